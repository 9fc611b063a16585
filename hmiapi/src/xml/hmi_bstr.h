// HMIBSTR: owner of one BSTR, with a VARIANT view of it for DOM calls that take a VARIANT.
#ifndef HMI_XML_BSTR_H
#define HMI_XML_BSTR_H

#include "platform/platform.h"

class HMIBSTR {
public:
    HMIBSTR() noexcept;
    virtual ~HMIBSTR();
    HMIBSTR(const HMIBSTR&) = delete;
    HMIBSTR& operator=(const HMIBSTR&) = delete;

    // Replaces the string with a new BSTR copy of text (made before the old one is freed).
    // False when text is not null and the copy cannot be made; the holder is then empty.
    bool assign(const WCHAR* text) noexcept;

    // Frees the string and hands out the address of str for a DOM out-argument; var is not kept in
    // step with what the DOM writes there.
    BSTR* put() noexcept;

    BSTR str;
    VARIANT var;  // vt VT_BSTR, bstrVal == str; owns nothing
};

#endif
