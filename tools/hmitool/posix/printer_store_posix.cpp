#include <cstdlib>

#include "printer_store.h"
#include "reg_file.h"

namespace hmitool {
namespace {

// As OpenPrinterW resolves a printer name: $HMI_PRINTER_STORE, else $XDG_DATA_HOME/xrvhmi/printers,
// else ~/.local/share/xrvhmi/printers.
std::string StoreDirectory() {
    if (const char* store = std::getenv("HMI_PRINTER_STORE"); store && *store) return store;
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data) return std::string(data) + "/xrvhmi/printers";
    const char* home = std::getenv("HOME");
    return std::string(home ? home : "") + "/.local/share/xrvhmi/printers";
}

}  // namespace

bool IsStoreFileName(const std::string& name) {
    return name.find('/') != std::string::npos ||
           (name.size() >= 4 && name.compare(name.size() - 4, 4, ".reg") == 0);
}

bool WritePrinterStore(const std::string& printer, const StoreImage& image, const std::string& comment,
                       std::string* error) {
    return WriteFileReplacing(StoreDirectory() + "/" + printer + ".reg", RegFileBytes(image, {}, comment), error);
}

}  // namespace hmitool
