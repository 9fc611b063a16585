// The parseError object: a snapshot of why the document's last load failed.
#ifndef HMI_POSIX_MSXML_DOM_PARSE_ERROR_H
#define HMI_POSIX_MSXML_DOM_PARSE_ERROR_H

#include "posix/msxml/dom_object.h"
#include "posix/msxml/parse.h"

class DomParseError final : public ComObject<IXMLDOMParseError> {
public:
    explicit DomParseError(const ParseFailure& failure) noexcept : failure_(failure) { ++hmiLiveDomObjects; }
    ~DomParseError() override { --hmiLiveDomObjects; }

    HRESULT QueryInterface(REFIID riid, void** object) override { return Answer(riid, object, {&IID_IXMLDOMParseError}); }
    // E_FAIL for every failure: the substitute does not reproduce MSXML's particular codes.
    HRESULT get_errorCode(LONG* code) override { return Give(code, failure_.failed ? LONG(E_FAIL) : 0); }
    HRESULT get_line(LONG* line) override { return Give(line, failure_.line); }
    HRESULT get_linepos(LONG* column) override { return Give(column, failure_.column); }
    HRESULT get_reason(BSTR* reason) override;

private:
    static HRESULT Give(LONG* out, long value) {
        if (!out) return E_INVALIDARG;
        *out = static_cast<LONG>(value);
        return S_OK;
    }

    ParseFailure failure_;
};

#endif
