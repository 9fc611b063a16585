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
// media list names (and their HMI and HMN keys) the same way, when walkList is set. Key names are
// made in a fixed buffer: nothing here allocates while allocations may fail.
inline void WalkKey(HANDLE printer, const WCHAR* key, bool walkList) {
    DWORD needed = 0, count = 0;
    if (EnumPrinterDataExW(printer, key, nullptr, 0, &needed, &count) != ERROR_MORE_DATA) return;
    auto* block = static_cast<BYTE*>(std::malloc(needed));
    if (!block || EnumPrinterDataExW(printer, key, block, needed, &needed, &count) != ERROR_SUCCESS) count = 0;
    const auto* entries = reinterpret_cast<const PRINTER_ENUM_VALUESW*>(block);
    const size_t keyUnits = std::char_traits<WCHAR>::length(key);
    for (DWORD i = 0; i < count; ++i) {
        DWORD type = 0, size = 0;
        BYTE small[4];
        GetPrinterDataExW(printer, key, entries[i].pValueName, &type, nullptr, 0, &size);
        GetPrinterDataExW(printer, key, entries[i].pValueName, &type, small, size ? size - 1 : 0, &size);
        if (!walkList || entries[i].dwType != REG_SZ || entries[i].cbData != 18 || keyUnits > 64) continue;
        for (const WCHAR* leaf : {HMI_W(""), HMI_W("\\HMI"), HMI_W("\\HMN")}) {
            WCHAR medium[80] = {};
            std::char_traits<WCHAR>::copy(medium, key, keyUnits);
            medium[keyUnits] = '\\';
            std::char_traits<WCHAR>::copy(medium + keyUnits + 1, reinterpret_cast<const WCHAR*>(entries[i].pData), 8);
            std::char_traits<WCHAR>::copy(medium + keyUnits + 9, leaf, std::char_traits<WCHAR>::length(leaf));
            WalkKey(printer, medium, false);
        }
    }
    std::free(block);
}

inline void ExerciseStoreFile(const uint8_t* data, size_t size) {
    Input input(data, size);
    const uint8_t failure = input.Byte();
    const ScratchDirectory files;
    WString path = files.Write("printer.reg", input.Rest());
    const WCHAR* media = HMI_W("PrinterDriverData\\Media");
    HANDLE printer = nullptr;
    bool opened = false;
    {
        AllocationFailure fault(failure);
        if (OpenPrinterW(path.data(), &printer, nullptr)) {
            opened = true;
            WalkKey(printer, media, true);
            DWORD one = 1;
            SetPrinterDataExW(printer, media, HMI_W("added"), REG_DWORD, reinterpret_cast<BYTE*>(&one), 4);
            DeletePrinterDataExW(printer, media, HMI_W("db_format_ver"));
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
