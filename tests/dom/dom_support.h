// Helpers of the DOM conformance suite: owners, conversions and the document as the library
// configures it. Written only against platform/platform.h, so the suite runs on MSXML and on the
// substitute alike.
#ifndef HMI_TESTS_DOM_SUPPORT_H
#define HMI_TESTS_DOM_SUPPORT_H

#include <string>
#include "platform/platform.h"

namespace domtest {

using WString = std::basic_string<WCHAR>;

WString Wide(const std::string& utf8);
std::string Utf8(const WCHAR* text);  // "(null)" for a null pointer

// A BSTR made from UTF-8 text, freed on destruction.
class Bstr {
public:
    explicit Bstr(const std::string& utf8) : text_(SysAllocString(Wide(utf8).c_str())) {}
    Bstr() = default;
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }
    operator BSTR() const { return text_; }
    // Out-parameter slot, poisoned so that a call which does not write it is seen.
    BSTR* Out() {
        SysFreeString(text_);
        text_ = Poison<BSTR>();
        return &text_;
    }
    BSTR Get() const { return text_; }
    std::string Utf8() const { return domtest::Utf8(text_); }

    template <typename T>
    static T Poison() {
        return reinterpret_cast<T>(static_cast<uintptr_t>(0xCDCDCDCDu));
    }

private:
    BSTR text_ = nullptr;
};

// One owned interface reference.
template <typename I>
class Ptr {
public:
    Ptr() = default;
    Ptr(const Ptr&) = delete;
    Ptr& operator=(const Ptr&) = delete;
    ~Ptr() { Reset(); }
    I** Out() {
        Reset();
        ptr_ = Bstr::Poison<I*>();
        return &ptr_;
    }
    void Reset() {
        if (ptr_ && ptr_ != Bstr::Poison<I*>()) ptr_->Release();
        ptr_ = nullptr;
    }
    I* operator->() const { return ptr_; }
    I* Get() const { return ptr_; }
    explicit operator bool() const { return ptr_ != nullptr; }

private:
    I* ptr_ = nullptr;
};

constexpr const char* kNamespace = "http://xrvhmi.example.org/ns/cmd/2008/07/common/";

VARIANT StringVariant(const Bstr& text);

// CoCreateInstance of the class, then async off, XPath, and the "iv" prefix bound.
HRESULT CreateConfiguredDocument(const CLSID& clsid, IXMLDOMDocument2** document);

// True when the suite runs on Wine, whose MSXML differs from Windows' in a few named places.
bool RunsOnWine();

}  // namespace domtest

#endif
