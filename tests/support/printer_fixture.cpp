#include "support/printer_fixture.h"

#include <vector>

namespace hmitest {

TestPrinter::TestPrinter(const WCHAR* label) : created_(backend::CreatePrinter(name_, label)) {
    if (created_) handle_ = backend::OpenTestPrinter(name_.c_str());
}

TestPrinter::~TestPrinter() {
    if (created_) backend::DestroyPrinter(handle_, name_.c_str());
}

bool TestPrinter::Set(const WCHAR* key, const WCHAR* value, DWORD type, const void* data, DWORD bytes) {
    // Windows' registry counts a REG_SZ terminator that the caller left out when one follows the data
    // in memory; a copy with non-zero bytes behind it stores exactly the bytes given.
    std::vector<BYTE> copy(static_cast<const BYTE*>(data), static_cast<const BYTE*>(data) + bytes);
    copy.insert(copy.end(), sizeof(WCHAR), 0xFF);
    return handle_ && SetPrinterDataExW(handle_, key, value, type, copy.data(), bytes) == ERROR_SUCCESS;
}

bool TestPrinter::SetText(const WCHAR* key, const WCHAR* value, const WCHAR* text) {
    return Set(key, value, REG_SZ, text, DWORD((std::char_traits<WCHAR>::length(text) + 1) * sizeof(WCHAR)));
}

bool TestPrinter::SetDword(const WCHAR* key, const WCHAR* value, DWORD number) {
    return Set(key, value, REG_DWORD, &number, sizeof number);
}

bool TestPrinter::Remove(const WCHAR* key, const WCHAR* value) {
    return handle_ && backend::DeleteValue(handle_, name_.c_str(), key, value) == ERROR_SUCCESS;
}

HANDLE TestPrinter::Reopen() {
    if (handle_) ClosePrinter(handle_);
    return handle_ = created_ ? backend::OpenTestPrinter(name_.c_str()) : nullptr;
}

}  // namespace hmitest
