#include "printer_handles.h"

#include <unordered_map>

namespace hmispool {

namespace {

struct Registry {
    std::mutex lock;
    std::unordered_map<void*, std::shared_ptr<OpenPrinter>> printers;
};

Registry& TheRegistry() {
    static Registry registry;
    return registry;
}

}  // namespace

void* RegisterPrinter(std::shared_ptr<OpenPrinter> printer) {
    Registry& registry = TheRegistry();
    void* handle = printer.get();
    std::lock_guard<std::mutex> guard(registry.lock);
    registry.printers.emplace(handle, std::move(printer));
    return handle;
}

std::shared_ptr<OpenPrinter> FindPrinter(void* handle) {
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> guard(registry.lock);
    auto it = registry.printers.find(handle);
    return it == registry.printers.end() ? nullptr : it->second;
}

std::shared_ptr<OpenPrinter> UnregisterPrinter(void* handle) {
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> guard(registry.lock);
    auto it = registry.printers.find(handle);
    if (it == registry.printers.end()) return nullptr;
    std::shared_ptr<OpenPrinter> printer = std::move(it->second);
    registry.printers.erase(it);
    return printer;
}

}  // namespace hmispool
