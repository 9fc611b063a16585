// Linux only (the store substitute exists only on Linux): the spooler functions' own conventions.
#include <gtest/gtest.h>

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "spool/spool_test_support.h"

namespace {

using namespace spooltest;

class StoreApi : public ::testing::Test {
protected:
    void SetUp() override {
        WriteFile(dir.File("p.reg"), kHeader + "[M]\n\"v\"=hex:01\n");
        printer = Open(dir.File("p.reg"));
        ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError();
    }
    void TearDown() override { ClosePrinter(printer); }

    std::vector<Text> Names(const Text& key) {
        std::vector<Value> values;
        EXPECT_EQ(Enumerate(printer, key, values), 0u);
        std::vector<Text> names;
        for (const Value& v : values) names.push_back(v.name);
        return names;
    }

    TempDir dir;
    HANDLE printer = nullptr;
};

TEST_F(StoreApi, InvalidArgumentsAnswerWindowsCodes) {
    DWORD type, needed, count;
    BYTE data[8];
    EXPECT_EQ(GetPrinterDataExW(printer, u"M", u"v", &type, data, sizeof data, nullptr), 87u);
    EXPECT_EQ(GetPrinterDataExW(printer, u"\\M", u"v", &type, data, sizeof data, &needed), 161u);
    EXPECT_EQ(EnumPrinterDataExW(printer, nullptr, data, sizeof data, &needed, &count), 87u);
    EXPECT_EQ(EnumPrinterDataExW(printer, u"", data, sizeof data, &needed, &count), 87u);
    EXPECT_EQ(EnumPrinterDataExW(printer, u"M", data, sizeof data, nullptr, &count), 87u);
    EXPECT_EQ(EnumPrinterDataExW(printer, u"M", data, sizeof data, &needed, nullptr), 87u);
    EXPECT_EQ(SetPrinterDataExW(printer, u"M", u"v", REG_BINARY, nullptr, 1), 998u);
    // Names the store file could not hold are refused.
    EXPECT_EQ(SetPrinterDataExW(printer, u"M", u"two\nlines", REG_BINARY, data, 1), 87u);
    EXPECT_EQ(SetPrinterDataExW(printer, u"M\nN", u"v", REG_BINARY, data, 1), 87u);
    Text deep = u"k";
    for (int i = 0; i < 512; ++i) deep += u"\\k";
    EXPECT_EQ(SetPrinterDataExW(printer, deep.c_str(), u"v", REG_BINARY, data, 1), 87u);
    deep.resize(deep.size() - 2);
    EXPECT_EQ(SetPrinterDataExW(printer, deep.c_str(), u"v", REG_BINARY, data, 1), 0u);
    const char16_t lone[] = {0xDC00, 0};
    EXPECT_EQ(SetPrinterDataExW(printer, u"M", lone, REG_BINARY, data, 1), 87u);
    EXPECT_EQ(DeletePrinterDataExW(printer, u"M", u"absent"), 2u);
    EXPECT_EQ(DeletePrinterDataExW(printer, u"Absent", u"v"), 2u);
    HANDLE none = reinterpret_cast<HANDLE>(1);
    EXPECT_FALSE(OpenPrinterW(nullptr, &none, nullptr));
    EXPECT_EQ(none, nullptr);
    Text name = Widen(dir.File("p.reg"));
    EXPECT_FALSE(OpenPrinterW(name.data(), nullptr, nullptr));
}

TEST_F(StoreApi, NullKeyAndNameAreTheRootAndTheUnnamedValue) {
    BYTE one = 1;
    ASSERT_EQ(SetPrinterDataExW(printer, nullptr, nullptr, REG_BINARY, &one, 1), 0u);
    Value value;
    EXPECT_EQ(Read(printer, u"", u"", value), 0u);
    EXPECT_EQ(value.data, Bytes{1});
    EXPECT_EQ(DeletePrinterDataExW(printer, nullptr, nullptr), 0u);
    EXPECT_EQ(Read(printer, u"", u"", value), 2u);
}

TEST_F(StoreApi, ValuesEnumerateInFirstWrittenOrder) {
    BYTE b = 0;
    for (const char16_t* name : {u"c", u"A", u"b", u"a", u"D"}) {
        ASSERT_EQ(SetPrinterDataExW(printer, u"M", name, REG_BINARY, &b, 1), 0u);
    }
    EXPECT_EQ(Names(u"M"), (std::vector<Text>{u"v", u"c", u"A", u"b", u"D"}));
    ASSERT_EQ(DeletePrinterDataExW(printer, u"m", u"C"), 0u);
    ASSERT_EQ(SetPrinterDataExW(printer, u"M", u"C", REG_BINARY, &b, 1), 0u);
    EXPECT_EQ(Names(u"M"), (std::vector<Text>{u"v", u"A", u"b", u"D", u"C"}));
    // Lookups still find every value after the positions moved.
    Value value;
    for (const Text& name : Names(u"M")) EXPECT_EQ(Read(printer, u"M", name, value), 0u);
}

TEST_F(StoreApi, ReadsAddNoTerminator) {
    const BYTE unterminated[] = {'a', 0, 'b', 0};
    ASSERT_EQ(SetPrinterDataExW(printer, u"M", u"t", REG_SZ, const_cast<BYTE*>(unterminated), 4), 0u);
    BYTE buffer[8];
    std::fill(std::begin(buffer), std::end(buffer), 0xCC);
    DWORD type, needed;
    ASSERT_EQ(GetPrinterDataExW(printer, u"M", u"t", &type, buffer, sizeof buffer, &needed), 0u);
    EXPECT_EQ(needed, 4u);
    EXPECT_EQ(Bytes(buffer, buffer + 8), (Bytes{'a', 0, 'b', 0, 0xCC, 0xCC, 0xCC, 0xCC}));
}

TEST_F(StoreApi, EnumerationBlockIsAlignedAndExactlySized) {
    const BYTE bytes[] = {1, 2, 3, 4, 5, 6, 7};
    for (DWORD size : {7u, 1u, 0u, 3u}) {
        Text name(size + 1, u'n');
        ASSERT_EQ(SetPrinterDataExW(printer, u"M", name.c_str(), REG_BINARY, const_cast<BYTE*>(bytes), size), 0u);
    }
    DWORD needed = 0, count = 0;
    ASSERT_EQ(EnumPrinterDataExW(printer, u"M", nullptr, 0, &needed, &count), static_cast<DWORD>(ERROR_MORE_DATA));
    std::vector<uint64_t> storage(needed / 8 + 1);
    BYTE* block = reinterpret_cast<BYTE*>(storage.data());
    ASSERT_EQ(EnumPrinterDataExW(printer, u"M", block, needed, &needed, &count), 0u);
    ASSERT_EQ(count, 5u);
    auto* entries = reinterpret_cast<PRINTER_ENUM_VALUESW*>(block);
    size_t end = 0;
    for (DWORD i = 0; i < count; ++i) {
        EXPECT_EQ(reinterpret_cast<uintptr_t>(entries[i].pValueName) % 2, 0u);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(entries[i].pData) % 8, 0u);
        end = std::max(end, static_cast<size_t>(entries[i].pData + entries[i].cbData - block));
    }
    EXPECT_EQ(end, needed);
}

TEST(StoreNames, PrinterNamesResolveToStoreFiles) {
    TempDir dir;
    struct Case {
        const char* what;
        const char* store;
        const char* data;
        const char* home;
        std::string file;
    } const cases[] = {
        {"HMI_PRINTER_STORE", "/s", "/x", "/h", "/s/Office Jet.reg"},
        {"XDG_DATA_HOME", nullptr, "/x", "/h", "/x/xrvhmi/printers/Office Jet.reg"},
        {"empty variables count as unset", "", "", "/h", "/h/.local/share/xrvhmi/printers/Office Jet.reg"},
    };
    const char* const variables[] = {"HMI_PRINTER_STORE", "XDG_DATA_HOME", "HOME"};
    std::vector<std::optional<std::string>> saved;
    for (const char* variable : variables) {
        const char* value = getenv(variable);
        saved.push_back(value ? std::optional<std::string>(value) : std::nullopt);
    }
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        auto set = [&](const char* variable, const char* value) {
            if (value) {
                setenv(variable, (*value ? dir.path() + value : std::string()).c_str(), 1);
            } else {
                unsetenv(variable);
            }
        };
        set("HMI_PRINTER_STORE", c.store);
        set("XDG_DATA_HOME", c.data);
        set("HOME", c.home);
        std::string path = dir.path() + c.file;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        WriteFile(path, kHeader + "[M]\n\"which\"=\"" + c.what + "\"\n");
        Text name = u"Office Jet";
        HANDLE printer = nullptr;
        EXPECT_TRUE(OpenPrinterW(name.data(), &printer, nullptr)) << HMISpoolLastOpenError();
        Value value;
        EXPECT_EQ(Read(printer, u"M", u"which", value), 0u);
        EXPECT_EQ(value.data, TextBytes(Widen(c.what)));
        ClosePrinter(printer);
        std::filesystem::remove(path);
    }
    for (size_t i = 0; i < saved.size(); ++i) {
        if (saved[i]) {
            setenv(variables[i], saved[i]->c_str(), 1);
        } else {
            unsetenv(variables[i]);
        }
    }
}

TEST(StoreNames, NamesEndingInRegAreRelativePaths) {
    TempDir dir;
    WriteFile(dir.File("local.reg"), kHeader);
    const std::filesystem::path previous = std::filesystem::current_path();
    std::filesystem::current_path(dir.path());
    Text name = u"local.reg";
    HANDLE printer = nullptr;
    EXPECT_TRUE(OpenPrinterW(name.data(), &printer, nullptr)) << HMISpoolLastOpenError();
    ClosePrinter(printer);
    std::filesystem::current_path(previous);
}

}  // namespace
