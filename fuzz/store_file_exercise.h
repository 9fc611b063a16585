// A store file as the Linux printer-data store reads it: opened, walked the way the library reads
// printer data, changed, and written back on close. What the store writes must open again.
//
// Input: the allocation-failure byte, then the file.
#ifndef HMI_FUZZ_STORE_FILE_EXERCISE_H
#define HMI_FUZZ_STORE_FILE_EXERCISE_H

#include <cstdio>

#include "fuzz/file_readers_exercise.h"

namespace hmifuzz {

// Every value of the key read with a size probe, exactly and one byte short; the subkeys that the
// media list names (and their HMI and HMN keys) the same way, when walkList is set.
inline void WalkKey(HANDLE printer, const WString& key, bool walkList) {
    DWORD needed = 0, count = 0;
    if (EnumPrinterDataExW(printer, key.c_str(), nullptr, 0, &needed, &count) != ERROR_MORE_DATA) return;
    auto* block = static_cast<BYTE*>(std::malloc(needed));
    if (!block || EnumPrinterDataExW(printer, key.c_str(), block, needed, &needed, &count) != ERROR_SUCCESS) count = 0;
    const auto* entries = reinterpret_cast<const PRINTER_ENUM_VALUESW*>(block);
    for (DWORD i = 0; i < count; ++i) {
        DWORD type = 0, size = 0;
        BYTE small[4];
        GetPrinterDataExW(printer, key.c_str(), entries[i].pValueName, &type, nullptr, 0, &size);
        GetPrinterDataExW(printer, key.c_str(), entries[i].pValueName, &type, small, size ? size - 1 : 0, &size);
        if (!walkList || entries[i].dwType != REG_SZ || entries[i].cbData != 18) continue;
        const WString medium = key + WCHAR('\\') + WString(reinterpret_cast<const WCHAR*>(entries[i].pData), 8);
        for (const char* leaf : {"", "\\HMI", "\\HMN"}) WalkKey(printer, medium + WString(leaf, leaf + std::strlen(leaf)), false);
    }
    std::free(block);
}

inline void ExerciseStoreFile(const uint8_t* data, size_t size) {
    Input input(data, size);
    const uint8_t failure = input.Byte();
    const ScratchDirectory files;
    WString path = files.Write("printer.reg", input.Rest());
    const WString media = HMI_W("PrinterDriverData\\Media");
    HANDLE printer = nullptr;
    bool opened = false;
    {
        AllocationFailure fault(failure);
        if (OpenPrinterW(path.data(), &printer, nullptr)) {
            opened = true;
            WalkKey(printer, media, true);
            DWORD one = 1;
            SetPrinterDataExW(printer, media.c_str(), HMI_W("added"), REG_DWORD, reinterpret_cast<BYTE*>(&one), 4);
            DeletePrinterDataExW(printer, media.c_str(), HMI_W("db_format_ver"));
            ClosePrinter(printer);
        }
    }
    // Written back or left as it was, the file opens as long as it opened before.
    if (opened && !OpenPrinterW(path.data(), &printer, nullptr)) {
        std::fprintf(stderr, "the store no longer opens: %s\n", HMISpoolLastOpenError());
        std::abort();
    }
    if (opened) ClosePrinter(printer);
}

}  // namespace hmifuzz

#endif
