#include "printer.h"

#include "text.h"

namespace hmitool {

bool Printer::Open(const std::string& name, std::string* error) {
    WString wide = Widen(name);
    if (OpenPrinterW(&wide[0], &handle_, nullptr)) return true;
    handle_ = nullptr;
    const DWORD code = GetLastError();
    WCHAR message[512] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, message, 512, nullptr);
    *error = "cannot open printer '" + name + "' (error " + std::to_string(code) + "): " + Narrow(message);
    while (!error->empty() && (error->back() == '\n' || error->back() == '\r')) error->pop_back();
    return false;
}

}  // namespace hmitool
