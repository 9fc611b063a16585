#include "printer.h"

#include "text.h"

namespace hmitool {

bool Printer::Open(const std::string& name, std::string* error) {
    WString wide = Widen(name);
    if (OpenPrinterW(&wide[0], &handle_, nullptr)) return true;
    handle_ = nullptr;
    *error = HMISpoolLastOpenError();
    if (error->empty()) *error = "cannot open printer store '" + name + "'";
    return false;
}

}  // namespace hmitool
