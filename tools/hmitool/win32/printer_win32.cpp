#include "printer.h"

#include "system_error.h"
#include "text.h"

namespace hmitool {

bool Printer::Open(const std::string& name, std::string* error) {
    WString wide = Widen(name);
    if (OpenPrinterW(&wide[0], &handle_, nullptr)) return true;
    handle_ = nullptr;
    *error = "cannot open printer '" + name + "' (" + SystemErrorText(GetLastError()) + ")";
    return false;
}

}  // namespace hmitool
