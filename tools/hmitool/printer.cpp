#include "printer.h"

namespace hmitool {

Printer::~Printer() {
    if (handle_) ClosePrinter(handle_);
}

}  // namespace hmitool
