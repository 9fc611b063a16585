// Printer data written value by value, then opened and asked everything through the exports.
//
// Input: the allocation-failure byte, then values separated by 0x1E, each KEY 0x1F NAME 0x1F TYPE DATA
// (texts as in Units). TYPE 's' stores DATA as REG_SZ with a terminator, 'b' as REG_BINARY without
// one, 'd' as REG_DWORD from hexadecimal, 'x' as REG_BINARY bytes from hexadecimal pairs.
#ifndef HMI_FUZZ_PRINTER_DATA_EXERCISE_H
#define HMI_FUZZ_PRINTER_DATA_EXERCISE_H

#include <cstdlib>
#include <string>

#include "fuzz/fuzz_support.h"
#include "support/printer_fixture.h"

namespace hmifuzz {

inline bool StoreValue(hmitest::TestPrinter& printer, std::string_view record) {
    Input fields(record);
    const WString key = Units(fields.Until('\x1f'));
    const WString name = Units(fields.Until('\x1f'));
    const std::string_view data = fields.Rest();
    if (data.empty()) return false;
    const std::string_view body = data.substr(1);
    switch (data.front()) {
        case 's':
            return printer.SetText(key.c_str(), name.c_str(), Units(body).c_str());
        case 'b': {
            const WString units = Units(body);
            return printer.Set(key.c_str(), name.c_str(), REG_BINARY, units.data(),
                               static_cast<DWORD>(units.size() * sizeof(WCHAR)));
        }
        case 'd':
            return printer.SetDword(key.c_str(), name.c_str(),
                                    static_cast<DWORD>(std::strtoul(std::string(body).c_str(), nullptr, 16)));
        case 'x': {
            std::string bytes;
            for (size_t i = 0; i + 1 < body.size(); i += 2) {
                bytes.push_back(static_cast<char>(std::strtoul(std::string(body.substr(i, 2)).c_str(), nullptr, 16)));
            }
            return printer.Set(key.c_str(), name.c_str(), REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
        }
        default:
            return false;
    }
}

inline void ExercisePrinterData(const uint8_t* data, size_t size) {
    Input input(data, size);
    const uint8_t failure = input.Byte();
    hmitest::TestPrinter printer;
    if (!printer.ok()) return;
    while (!input.empty()) StoreValue(printer, input.Until('\x1e'));
    AllocationFailure fault(failure);
    HMIAccess* access = HMIOpen(printer.handle());
    AskDatabase(access);
    HMIClose(access);
}

}  // namespace hmifuzz

#endif
