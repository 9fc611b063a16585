// The exported spooler functions over store files. No exception leaves them: allocation failure
// answers ERROR_NOT_ENOUGH_MEMORY (FALSE for the BOOL functions).
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "enum_block.h"
#include "open_error.h"
#include "posix/spool/winspool.h"
#include "printer_handles.h"
#include "store_file.h"
#include "store_parser.h"
#include "store_writer.h"

using namespace hmispool;

namespace {

// A null key or value name is the printer's own key or the unnamed value, as in the registry.
std::u16string_view NameOrEmpty(LPCWSTR name) { return name ? std::u16string_view(name) : std::u16string_view(); }

std::shared_ptr<OpenPrinter> LoadPrinter(LPCWSTR name) {
    std::string reason;
    auto printer = std::make_shared<OpenPrinter>();
    if (!ResolveStorePath(NameOrEmpty(name), printer->path, reason)) {
        SetOpenError("%s", reason.c_str());
        return nullptr;
    }
    std::string bytes;
    if (!ReadStoreFile(printer->path, bytes, reason)) {
        SetOpenError("%s: %s", printer->path.c_str(), reason.c_str());
        return nullptr;
    }
    ParseError error;
    if (!ParseStore(std::move(bytes), printer->store, error)) {
        SetOpenError("%s:%zu: %s", printer->path.c_str(), error.line, error.message);
        return nullptr;
    }
    return printer;
}

bool Save(const OpenPrinter& printer) {
    std::string text;
    return FormatStore(printer.store, text) && ReplaceFileAtomically(printer.path, text);
}

// Runs an entry point's body; an exception (in practice an allocation failure) answers failure.
template <typename Result, typename Body>
Result Guarded(Result failure, Body body) noexcept {
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

// The open printer of a handle and the canonical form of a key, or the code that refuses them.
DWORD Resolve(HANDLE handle, LPCWSTR key, std::shared_ptr<OpenPrinter>& printer, std::u16string& path) {
    printer = FindPrinter(handle);
    if (!printer) return ERROR_INVALID_HANDLE;
    return NormalizeKeyPath(NameOrEmpty(key), path) ? ERROR_SUCCESS : ERROR_BAD_PATHNAME;
}

}  // namespace

extern "C" {

BOOL OpenPrinterW(LPWSTR name, HANDLE* printer, void*) {
    ClearOpenError();
    if (!printer) {
        SetOpenError("no handle pointer");
        return FALSE;
    }
    *printer = nullptr;
    try {
        std::shared_ptr<OpenPrinter> opened = LoadPrinter(name);
        if (!opened) return FALSE;
        *printer = RegisterPrinter(std::move(opened));
        return TRUE;
    } catch (...) {
        SetOpenError("out of memory");
        return FALSE;
    }
}

BOOL ClosePrinter(HANDLE handle) {
    return Guarded<BOOL>(FALSE, [&] {
        std::shared_ptr<OpenPrinter> printer = UnregisterPrinter(handle);
        if (!printer) return FALSE;
        std::lock_guard<std::mutex> guard(printer->lock);
        return !printer->changed || Save(*printer) ? TRUE : FALSE;
    });
}

DWORD GetPrinterDataExW(HANDLE handle, LPCWSTR key, LPCWSTR valueName, LPDWORD type, LPBYTE data, DWORD size,
                        LPDWORD needed) {
    return Guarded<DWORD>(ERROR_NOT_ENOUGH_MEMORY, [&]() -> DWORD {
        std::shared_ptr<OpenPrinter> printer;
        std::u16string path;
        if (DWORD refused = Resolve(handle, key, printer, path)) return refused;
        if (!needed) return ERROR_INVALID_PARAMETER;
        std::lock_guard<std::mutex> guard(printer->lock);
        const StoreKey* found = printer->store.Find(path);
        const StoredValue* value = found ? found->Find(NameOrEmpty(valueName)) : nullptr;
        if (!value) return ERROR_FILE_NOT_FOUND;
        if (type) *type = value->type;
        *needed = static_cast<DWORD>(value->data.size());
        // A null buffer asks for the size, even of an empty value.
        if (!data || size < value->data.size()) return ERROR_MORE_DATA;
        if (!value->data.empty()) std::memcpy(data, value->data.data(), value->data.size());
        return ERROR_SUCCESS;
    });
}

DWORD EnumPrinterDataExW(HANDLE handle, LPCWSTR key, LPBYTE enumValues, DWORD enumBytes, LPDWORD neededBytes,
                         LPDWORD returnedCount) {
    return Guarded<DWORD>(ERROR_NOT_ENOUGH_MEMORY, [&]() -> DWORD {
        std::shared_ptr<OpenPrinter> printer;
        std::u16string path;
        if (DWORD refused = Resolve(handle, key, printer, path)) return refused;
        if (!key || !*key || !neededBytes || !returnedCount) return ERROR_INVALID_PARAMETER;
        std::lock_guard<std::mutex> guard(printer->lock);
        const StoreKey* found = printer->store.Find(path);
        if (!found) return ERROR_FILE_NOT_FOUND;
        uint64_t size = EnumBlockSize(*found);
        if (size > UINT32_MAX) return ERROR_NOT_ENOUGH_MEMORY;
        *neededBytes = static_cast<DWORD>(size);
        *returnedCount = static_cast<DWORD>(found->values().size());
        if (size == 0) return ERROR_SUCCESS;
        if (!enumValues || enumBytes < size) return ERROR_MORE_DATA;
        FillEnumBlock(*found, enumValues);
        return ERROR_SUCCESS;
    });
}

DWORD EnumPrinterKeyW(HANDLE handle, LPCWSTR key, LPWSTR subkeys, DWORD bytes, LPDWORD neededBytes) {
    return Guarded<DWORD>(ERROR_NOT_ENOUGH_MEMORY, [&]() -> DWORD {
        std::shared_ptr<OpenPrinter> printer;
        std::u16string path;
        if (DWORD refused = Resolve(handle, key, printer, path)) return refused;
        if (!neededBytes) return ERROR_INVALID_PARAMETER;
        std::lock_guard<std::mutex> guard(printer->lock);
        if (!printer->store.Find(path)) return ERROR_FILE_NOT_FOUND;
        std::u16string list;
        for (const std::u16string& name : printer->store.Subkeys(path)) list.append(name).push_back(u'\0');
        list.push_back(u'\0');
        if (list.size() > UINT32_MAX / 2) return ERROR_NOT_ENOUGH_MEMORY;
        *neededBytes = static_cast<DWORD>(list.size() * 2);
        if (!subkeys || bytes < *neededBytes) return ERROR_MORE_DATA;
        std::memcpy(subkeys, list.data(), *neededBytes);
        return ERROR_SUCCESS;
    });
}

DWORD SetPrinterDataExW(HANDLE handle, LPCWSTR key, LPCWSTR valueName, DWORD type, LPBYTE data, DWORD bytes) {
    return Guarded<DWORD>(ERROR_NOT_ENOUGH_MEMORY, [&]() -> DWORD {
        std::shared_ptr<OpenPrinter> printer;
        std::u16string path;
        if (DWORD refused = Resolve(handle, key, printer, path)) return refused;
        if (!data && bytes != 0) return ERROR_NOACCESS;
        // Names that the store file could not hold are refused rather than lost at write-back.
        if (!IsWritableName(path) || !IsWritableName(NameOrEmpty(valueName)) || KeyDepth(path) > kMaxKeyDepth)
            return ERROR_INVALID_PARAMETER;
        std::lock_guard<std::mutex> guard(printer->lock);
        if (!printer->store.Find(path)) printer->changed = true;
        if (printer->store.Create(path).Set(NameOrEmpty(valueName), type, std::vector<BYTE>(data, data + bytes))) printer->changed = true;
        return ERROR_SUCCESS;
    });
}

DWORD DeletePrinterDataExW(HANDLE handle, LPCWSTR key, LPCWSTR valueName) {
    return Guarded<DWORD>(ERROR_NOT_ENOUGH_MEMORY, [&]() -> DWORD {
        std::shared_ptr<OpenPrinter> printer;
        std::u16string path;
        if (DWORD refused = Resolve(handle, key, printer, path)) return refused;
        std::lock_guard<std::mutex> guard(printer->lock);
        StoreKey* found = printer->store.Find(path);
        if (!found || !found->Remove(NameOrEmpty(valueName))) return ERROR_FILE_NOT_FOUND;
        printer->changed = true;
        return ERROR_SUCCESS;
    });
}

const char* HMISpoolLastOpenError(void) { return OpenError(); }

}  // extern "C"
