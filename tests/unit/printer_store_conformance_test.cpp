// What the library needs of GetPrinterDataExW and EnumPrinterDataExW, with the same expectations for
// the Linux store substitute and the real spooler (Wine in the Windows build).
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/printer_fixture.h"

namespace {

using hmitest::TestPrinter;
using Text = std::basic_string<WCHAR>;

const WCHAR* const kKey = HMI_W("PrinterDriverData\\Media");
constexpr BYTE kFill = 0xCC;

struct Read {
    DWORD result;
    DWORD type;
    DWORD needed;
    std::vector<BYTE> buffer;
};

// bufferSize < 0 passes a null buffer.
Read Get(HANDLE printer, const WCHAR* key, const WCHAR* name, long bufferSize) {
    Read read{0xFFFF, 0xFFFF, 0xFFFF, std::vector<BYTE>(bufferSize < 0 ? 0 : bufferSize + 8, kFill)};
    read.result = GetPrinterDataExW(printer, key, name, &read.type, bufferSize < 0 ? nullptr : read.buffer.data(),
                                    bufferSize < 0 ? 0 : static_cast<DWORD>(bufferSize), &read.needed);
    return read;
}

std::vector<BYTE> Bytes(const void* data, size_t size) {
    const BYTE* p = static_cast<const BYTE*>(data);
    return std::vector<BYTE>(p, p + size);
}

std::vector<BYTE> TextBytes(const Text& text) { return Bytes(text.c_str(), (text.size() + 1) * sizeof(WCHAR)); }

struct StoredCase {
    const char* what;
    DWORD type;
    std::vector<BYTE> data;
};

std::vector<StoredCase> StoredCases() {
    const WCHAR noTerminator[] = {'a', 'b'};
    const BYTE odd[] = {1, 2, 3};
    const BYTE qword[] = {1, 2, 3, 4, 5, 6, 7, 8};
    std::vector<BYTE> large(1000);
    for (size_t i = 0; i < large.size(); ++i) large[i] = static_cast<BYTE>(i * 7);
    return {
        {"text", REG_SZ, TextBytes(HMI_W("Plain paper"))},
        {"escapes", REG_SZ, TextBytes(HMI_W("say \"hi\" C:\\dir\\"))},
        {"non-ASCII", REG_SZ, TextBytes(HMI_W("caf\u00e9 \u7d19 \U0001F5A8"))},
        {"line break", REG_SZ, TextBytes(HMI_W("two\r\nlines"))},
        {"empty text", REG_SZ, TextBytes(HMI_W(""))},
        {"text without terminator", REG_SZ, Bytes(noTerminator, sizeof noTerminator)},
        {"dword", REG_DWORD, Bytes("\x1a\0\0\0", 4)},
        {"short dword", REG_DWORD, Bytes("\x1a\0", 2)},
        {"binary", REG_BINARY, Bytes(odd, sizeof odd)},
        {"empty binary", REG_BINARY, {}},
        {"qword", REG_QWORD, Bytes(qword, sizeof qword)},
        {"no type", REG_NONE, Bytes(odd, 1)},
        {"large binary", REG_BINARY, large},
    };
}

bool SetCase(TestPrinter& printer, const WCHAR* name, const StoredCase& c) {
    return printer.Set(kKey, name, c.type, c.data.data(), static_cast<DWORD>(c.data.size()));
}

class PrinterStoreConformance : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(printer.ok()); }
    TestPrinter printer;
};

TEST_F(PrinterStoreConformance, ReadsAnswerBytesOrTheNeededSize) {
    for (const StoredCase& c : StoredCases()) {
        SCOPED_TRACE(c.what);
        const DWORD size = static_cast<DWORD>(c.data.size());
        ASSERT_TRUE(SetCase(printer, HMI_W("v"), c));

        Read null = Get(printer.handle(), kKey, HMI_W("v"), -1);
        EXPECT_EQ(null.result, static_cast<DWORD>(ERROR_MORE_DATA));
        EXPECT_EQ(null.needed, size);
        if (size > 0) {
            Read small = Get(printer.handle(), kKey, HMI_W("v"), size - 1);
            EXPECT_EQ(small.result, static_cast<DWORD>(ERROR_MORE_DATA));
            EXPECT_EQ(small.needed, size);
        }
        for (long extra : {0L, 6L}) {
            Read read = Get(printer.handle(), kKey, HMI_W("v"), size + extra);
            ASSERT_EQ(read.result, static_cast<DWORD>(ERROR_SUCCESS));
            EXPECT_EQ(read.needed, size);
            EXPECT_EQ(read.type, c.type);
            EXPECT_EQ(std::vector<BYTE>(read.buffer.begin(), read.buffer.begin() + size), c.data);
            // Nothing is written past the buffer size given. (Within it, Wine terminates a REG_SZ
            // stored without terminator when there is room; the substitute adds nothing.)
            EXPECT_EQ(std::vector<BYTE>(read.buffer.begin() + size + extra, read.buffer.end()),
                      std::vector<BYTE>(8, kFill));
        }
    }
}

TEST_F(PrinterStoreConformance, ValuesSurviveClosingAndReopening) {
    std::vector<StoredCase> cases = StoredCases();
    for (size_t i = 0; i < cases.size(); ++i) {
        Text name = HMI_W("value ") + Text(1, static_cast<WCHAR>('a' + i));
        ASSERT_TRUE(SetCase(printer, name.c_str(), cases[i]));
    }
    ASSERT_NE(printer.Reopen(), nullptr);
    for (size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(cases[i].what);
        Text name = HMI_W("value ") + Text(1, static_cast<WCHAR>('a' + i));
        Read read = Get(printer.handle(), kKey, name.c_str(), static_cast<long>(cases[i].data.size()));
        ASSERT_EQ(read.result, static_cast<DWORD>(ERROR_SUCCESS));
        EXPECT_EQ(read.type, cases[i].type);
        read.buffer.resize(cases[i].data.size());
        EXPECT_EQ(read.buffer, cases[i].data);
    }
}

TEST_F(PrinterStoreConformance, MissingKeysAndValuesAnswerFileNotFound) {
    ASSERT_TRUE(printer.SetDword(HMI_W("PrinterDriverData\\Media\\0000001A"), HMI_W("valid"), 1));
    struct {
        const WCHAR* key;
        const WCHAR* name;
    } const cases[] = {
        {HMI_W("PrinterDriverData\\Media\\0000001A"), HMI_W("visible")},
        {HMI_W("PrinterDriverData\\Media\\0000001B"), HMI_W("valid")},
        {kKey, HMI_W("valid")},  // the parent exists, the value is only in the subkey
        {HMI_W("Elsewhere"), HMI_W("valid")},
    };
    for (const auto& c : cases) {
        for (long size : {-1L, 64L}) EXPECT_EQ(Get(printer.handle(), c.key, c.name, size).result, 2u);
    }
    DWORD needed = 0xFFFF, count = 0xFFFF;
    EXPECT_EQ(EnumPrinterDataExW(printer.handle(), HMI_W("PrinterDriverData\\Nothing"), nullptr, 0, &needed, &count), 2u);
}

TEST_F(PrinterStoreConformance, NamesCompareCaseInsensitivelyAndKeepTheirSpelling) {
    ASSERT_TRUE(printer.SetText(kKey, HMI_W("Product_ID"), HMI_W("first")));
    ASSERT_TRUE(printer.SetText(HMI_W("printerdriverdata\\MEDIA"), HMI_W("PRODUCT_id"), HMI_W("second")));

    Read read = Get(printer.handle(), HMI_W("PRINTERDRIVERDATA\\media"), HMI_W("product_id"), 64);
    ASSERT_EQ(read.result, static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(std::vector<BYTE>(read.buffer.begin(), read.buffer.begin() + read.needed), TextBytes(HMI_W("second")));

    DWORD needed = 0, count = 0;
    std::vector<BYTE> block(256);
    ASSERT_EQ(EnumPrinterDataExW(printer.handle(), HMI_W("printerDRIVERdata\\media"), block.data(),
                                 static_cast<DWORD>(block.size()), &needed, &count), 0u);
    ASSERT_EQ(count, 1u);
    auto* entry = reinterpret_cast<PRINTER_ENUM_VALUESW*>(block.data());
    EXPECT_EQ(Text(entry->pValueName), HMI_W("Product_ID"));
}

TEST_F(PrinterStoreConformance, EnumerationBlockHoldsEntriesNamesAndData) {
    // Written in name order: Wine lists values sorted by name, Windows (and the substitute) in the
    // order they were first written.
    struct Value {
        const WCHAR* name;
        DWORD type;
        std::vector<BYTE> data;
    };
    const std::vector<Value> values = {
        {HMI_W(""), REG_BINARY, Bytes("\x02\0\0\0", 4)},
        {HMI_W("000"), REG_BINARY, Bytes("<\0a\0", 4)},
        {HMI_W("001"), REG_SZ, TextBytes(HMI_W("/>"))},
        {HMI_W("Gamma"), REG_BINARY, Bytes("\x01\x02\x03", 3)},
        {HMI_W("zero"), REG_BINARY, {}},
    };
    for (const Value& v : values) ASSERT_TRUE(printer.Set(kKey, v.name, v.type, v.data.data(), static_cast<DWORD>(v.data.size())));

    DWORD needed = 0, count = 0;
    ASSERT_EQ(EnumPrinterDataExW(printer.handle(), kKey, nullptr, 0, &needed, &count), static_cast<DWORD>(ERROR_MORE_DATA));
    ASSERT_GT(needed, 0u);
    DWORD smallNeeded = 0;
    std::vector<BYTE> block(needed);
    ASSERT_EQ(EnumPrinterDataExW(printer.handle(), kKey, block.data(), needed - 1, &smallNeeded, &count),
              static_cast<DWORD>(ERROR_MORE_DATA));
    EXPECT_EQ(smallNeeded, needed);

    ASSERT_EQ(EnumPrinterDataExW(printer.handle(), kKey, block.data(), needed, &needed, &count), 0u);
    ASSERT_EQ(count, values.size());
    const BYTE* begin = block.data();
    const BYTE* end = begin + block.size();
    const BYTE* packed = begin + count * sizeof(PRINTER_ENUM_VALUESW);
    auto* entries = reinterpret_cast<const PRINTER_ENUM_VALUESW*>(begin);
    std::vector<std::pair<const BYTE*, const BYTE*>> ranges;
    for (DWORD i = 0; i < count; ++i) {
        SCOPED_TRACE(i);
        const PRINTER_ENUM_VALUESW& e = entries[i];
        const Text name = values[i].name;
        const BYTE* namePtr = reinterpret_cast<const BYTE*>(e.pValueName);
        ASSERT_GE(namePtr, packed);
        ASSERT_LE(namePtr + e.cbValueName, end);
        EXPECT_EQ(e.cbValueName, (name.size() + 1) * sizeof(WCHAR));
        EXPECT_EQ(Bytes(namePtr, e.cbValueName), TextBytes(name));
        EXPECT_EQ(e.dwType, values[i].type);
        ASSERT_EQ(e.cbData, values[i].data.size());
        ASSERT_NE(e.pData, nullptr);
        ASSERT_GE(e.pData, packed);
        ASSERT_LE(e.pData + e.cbData, end);
        EXPECT_EQ(Bytes(e.pData, e.cbData), values[i].data);
        ranges.emplace_back(namePtr, namePtr + e.cbValueName);
        ranges.emplace_back(e.pData, e.pData + e.cbData);
    }
    for (size_t a = 0; a < ranges.size(); ++a) {
        for (size_t b = a + 1; b < ranges.size(); ++b) {
            EXPECT_FALSE(ranges[a].first < ranges[b].second && ranges[b].first < ranges[a].second)
                << "ranges " << a << " and " << b << " overlap";
        }
    }
}

TEST_F(PrinterStoreConformance, KeyWithoutValuesEnumeratesNothing) {
    ASSERT_TRUE(printer.SetDword(HMI_W("PrinterDriverData\\Media\\0000001A\\HMI"), HMI_W(""), 1));
    for (const WCHAR* key : {HMI_W("PrinterDriverData\\Media"), HMI_W("PrinterDriverData\\Media\\0000001A")}) {
        DWORD needed = 0xFFFF, count = 0xFFFF;
        BYTE block[64];
        EXPECT_EQ(EnumPrinterDataExW(printer.handle(), key, nullptr, 0, &needed, &count), 0u);
        EXPECT_EQ(needed, 0u);
        EXPECT_EQ(count, 0u);
        EXPECT_EQ(EnumPrinterDataExW(printer.handle(), key, block, sizeof block, &needed, &count), 0u);
        EXPECT_EQ(count, 0u);
    }
}

TEST_F(PrinterStoreConformance, RemovedValuesAreGone) {
    ASSERT_TRUE(printer.SetDword(kKey, HMI_W("keep"), 1));
    ASSERT_TRUE(printer.SetDword(kKey, HMI_W("drop"), 2));
    ASSERT_TRUE(printer.Remove(kKey, HMI_W("DROP")));
    EXPECT_FALSE(printer.Remove(kKey, HMI_W("drop")));
    EXPECT_EQ(Get(printer.handle(), kKey, HMI_W("drop"), 4).result, 2u);
    ASSERT_NE(printer.Reopen(), nullptr);
    EXPECT_EQ(Get(printer.handle(), kKey, HMI_W("drop"), 4).result, 2u);
    EXPECT_EQ(Get(printer.handle(), kKey, HMI_W("keep"), 4).result, 0u);
}

TEST(PrinterStoreHandles, StaleAndNullHandlesAreRefused) {
    HANDLE stale;
    {
        TestPrinter printer;
        ASSERT_TRUE(printer.ok());
        stale = printer.Reopen();
        ASSERT_NE(stale, nullptr);
    }
    DWORD type, needed, count;
    BYTE data[8];
    for (HANDLE handle : {static_cast<HANDLE>(nullptr), stale}) {
        EXPECT_EQ(GetPrinterDataExW(handle, kKey, HMI_W("v"), &type, data, sizeof data, &needed), 6u);
        EXPECT_EQ(EnumPrinterDataExW(handle, kKey, data, sizeof data, &needed, &count), 6u);
        EXPECT_EQ(SetPrinterDataExW(handle, kKey, HMI_W("v"), REG_BINARY, data, 1), 6u);
        EXPECT_FALSE(ClosePrinter(handle));
    }
}

}  // namespace
