// What the library needs of GetPrinterDataExW and EnumPrinterDataExW, with the same expectations for
// the Linux store substitute and the real spooler (Wine in the Windows build).
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/printer_fixture.h"

namespace {

using hmitest::TestPrinter;
using Text = std::basic_string<WCHAR>;
using Bytes = std::vector<BYTE>;
const WCHAR* const kKey = HMI_W("PrinterDriverData\\Media");
constexpr BYTE kFill = 0xCC;

Bytes Of(const void* p, size_t size) { return Bytes(static_cast<const BYTE*>(p), static_cast<const BYTE*>(p) + size); }
Bytes TextBytes(const Text& text) { return Of(text.c_str(), (text.size() + 1) * sizeof(WCHAR)); }

struct Read { DWORD result, type, needed; Bytes buffer; };

// bufferSize < 0 passes a null buffer; the buffer has 8 more bytes that must stay untouched.
Read Get(HANDLE printer, const WCHAR* key, const WCHAR* name, long bufferSize) {
    Read read{0xFFFF, 0xFFFF, 0xFFFF, Bytes(bufferSize < 0 ? 0 : bufferSize + 8, kFill)};
    read.result = GetPrinterDataExW(printer, key, name, &read.type, bufferSize < 0 ? nullptr : read.buffer.data(),
                                    bufferSize < 0 ? 0 : static_cast<DWORD>(bufferSize), &read.needed);
    return read;
}

struct Stored { const WCHAR* name; DWORD type; Bytes data; };

class PrinterStoreConformance : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(printer.ok()); }
    bool Put(const Stored& v) { return printer.Set(kKey, v.name, v.type, v.data.data(), DWORD(v.data.size())); }
    TestPrinter printer;
};

TEST_F(PrinterStoreConformance, StoredBytesSurviveReopeningAndReadWithTheNeededSize) {
    const std::vector<Stored> cases = {
        {HMI_W("caf\u00e9 \u7d19"), REG_SZ, TextBytes(HMI_W("caf\u00e9 \u7d19 \U0001F5A8"))},
        {HMI_W(""), REG_SZ, TextBytes(HMI_W(""))}, {HMI_W("no terminator"), REG_SZ, Of(HMI_W("ab"), 2 * sizeof(WCHAR))},
        {HMI_W("short dword"), REG_DWORD, Of("\x1a\0", 2)}, {HMI_W("empty binary"), REG_BINARY, {}},
        {HMI_W("no type"), REG_NONE, {1}},
    };
    for (const Stored& c : cases) ASSERT_TRUE(Put(c));
    ASSERT_NE(printer.Reopen(), nullptr);
    for (const Stored& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(Text(c.name)));
        const long size = static_cast<long>(c.data.size());
        for (long bufferSize : {-1L, size - 1, size, size + 6}) {
            Read read = Get(printer.handle(), kKey, c.name, bufferSize);
            EXPECT_EQ(read.needed, static_cast<DWORD>(size));
            // A null buffer asks even for 0 bytes.
            EXPECT_EQ(read.result, DWORD(bufferSize < size ? ERROR_MORE_DATA : ERROR_SUCCESS));
            if (bufferSize < size) continue;
            EXPECT_TRUE(read.type == c.type && Bytes(read.buffer.begin(), read.buffer.begin() + size) == c.data);
            // Nothing is written past the buffer size given. (Within it, Wine terminates a REG_SZ
            // stored without terminator when there is room; the substitute adds nothing.)
            EXPECT_EQ(Bytes(read.buffer.begin() + bufferSize, read.buffer.end()), Bytes(8, kFill));
        }
    }
}

TEST_F(PrinterStoreConformance, MissingAndRemovedValuesAnswerFileNotFound) {
    const WCHAR* const sub = HMI_W("PrinterDriverData\\Media\\0000001A");
    ASSERT_TRUE(printer.SetDword(sub, HMI_W("valid"), 1) && printer.SetDword(kKey, HMI_W("drop"), 2));
    ASSERT_TRUE(printer.Remove(kKey, HMI_W("DROP")));
    ASSERT_NE(printer.Reopen(), nullptr);
    const struct { const WCHAR* key; const WCHAR* name; } missing[] = {
        {sub, HMI_W("visible")}, {HMI_W("Elsewhere"), HMI_W("valid")}, {kKey, HMI_W("drop")},
        {kKey, HMI_W("valid")},  // the parent exists, the value is only in the subkey
    };
    for (const auto& c : missing) {
        for (long size : {-1L, 64L}) EXPECT_EQ(Get(printer.handle(), c.key, c.name, size).result, 2u);
    }
    DWORD needed = 0xFFFF, count = 0xFFFF;
    EXPECT_EQ(EnumPrinterDataExW(printer.handle(), HMI_W("Elsewhere"), nullptr, 0, &needed, &count), 2u);
    // A key that only holds subkeys (here: without values since the removal) lists nothing.
    for (const WCHAR* key : {kKey, HMI_W("PrinterDriverData")}) {
        EXPECT_TRUE(EnumPrinterDataExW(printer.handle(), key, nullptr, 0, &needed, &count) == 0 && needed + count == 0);
    }
}

// Written in name order: Wine lists values sorted by name, Windows (and the substitute) in the order
// they were first written. Names compare case-insensitively and keep the spelling first written.
TEST_F(PrinterStoreConformance, EnumerationBlockHoldsEntriesNamesAndData) {
    std::vector<Stored> values = {
        {HMI_W(""), REG_BINARY, {2, 0, 0, 0}}, {HMI_W("001"), REG_SZ, TextBytes(HMI_W("/>"))},
        {HMI_W("Product_ID"), REG_BINARY, {1, 2, 3}}, {HMI_W("zero"), REG_BINARY, {}},
    };
    for (const Stored& v : values) ASSERT_TRUE(Put(v));
    values[2].data = {4, 5};
    ASSERT_TRUE(printer.Set(HMI_W("printerdriverdata\\MEDIA"), HMI_W("PRODUCT_id"), REG_BINARY, "\x04\x05", 2));

    DWORD needed = 0, smallNeeded = 0, count = 0;
    ASSERT_EQ(EnumPrinterDataExW(printer.handle(), kKey, nullptr, 0, &needed, &count), 234u);  // ERROR_MORE_DATA
    Bytes block(needed);
    ASSERT_EQ(EnumPrinterDataExW(printer.handle(), kKey, block.data(), needed - 1, &smallNeeded, &count), 234u);
    EXPECT_EQ(smallNeeded, needed);
    ASSERT_EQ(EnumPrinterDataExW(printer.handle(), kKey, block.data(), needed, &needed, &count), 0u);
    ASSERT_EQ(count, values.size());
    // Names and data lie after the entries, inside the block, without overlapping.
    auto* entries = reinterpret_cast<const PRINTER_ENUM_VALUESW*>(block.data());
    std::vector<std::pair<const BYTE*, const BYTE*>> ranges = {{block.data(), block.data() + count * sizeof *entries}};
    for (DWORD i = 0; i < count; ++i) {
        const PRINTER_ENUM_VALUESW& e = entries[i];
        const BYTE* name = reinterpret_cast<const BYTE*>(e.pValueName);
        EXPECT_EQ(Of(name, e.cbValueName), TextBytes(values[i].name)) << i;
        EXPECT_TRUE(e.dwType == values[i].type && Of(e.pData, e.cbData) == values[i].data) << i;
        ranges.emplace_back(name, name + e.cbValueName);
        ranges.emplace_back(e.pData, e.pData + e.cbData);
    }
    std::sort(ranges.begin(), ranges.end());
    EXPECT_EQ(ranges.front().first, block.data());
    for (size_t i = 1; i < ranges.size(); ++i) EXPECT_LE(ranges[i - 1].second, ranges[i].first) << "overlap at " << i;
    EXPECT_LE(ranges.back().second, block.data() + block.size());
}

}  // namespace
