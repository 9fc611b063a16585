#include "xml/hmi_bstr.h"

HMIBSTR::HMIBSTR() noexcept : str(nullptr), var() {
    var.vt = VT_BSTR;
    var.bstrVal = nullptr;
}

HMIBSTR::~HMIBSTR() { put(); }

bool HMIBSTR::assign(const WCHAR* text) noexcept {
    BSTR copy = SysAllocString(text);
    SysFreeString(str);
    str = copy;
    var.bstrVal = copy;
    return copy || !text;
}

BSTR* HMIBSTR::put() noexcept {
    var.bstrVal = nullptr;
    BSTR old = str;
    str = nullptr;
    SysFreeString(old);
    return &str;
}
