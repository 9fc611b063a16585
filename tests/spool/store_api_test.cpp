// Linux only (the store substitute exists only on Linux): the spooler functions' own conventions.
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
    TempDir dir;
    HANDLE printer = nullptr;
};

TEST_F(StoreApi, InvalidArgumentsAnswerWindowsCodes) {
    DWORD type, needed, count;
    BYTE data[8];
    EXPECT_EQ(GetPrinterDataExW(printer, u"M", u"v", &type, data, sizeof data, nullptr), 87u);
    EXPECT_EQ(GetPrinterDataExW(printer, u"\\M", u"v", &type, data, sizeof data, &needed), 161u);
    EXPECT_EQ(EnumPrinterDataExW(printer, u"", data, sizeof data, &needed, &count), 87u);
    EXPECT_EQ(EnumPrinterDataExW(printer, u"M", data, sizeof data, nullptr, &count), 87u);
    EXPECT_EQ(EnumPrinterDataExW(printer, u"M", data, sizeof data, &needed, nullptr), 87u);
    EXPECT_EQ(SetPrinterDataExW(printer, u"M", u"v", REG_BINARY, nullptr, 1), 998u);
    EXPECT_EQ(DeletePrinterDataExW(printer, u"Absent", u"v"), 2u);
    // Names the store file could not hold are refused.
    const Bytes one = {1};
    EXPECT_EQ(Set(printer, u"M", u"two\nlines", REG_BINARY, one), 87u);
    EXPECT_EQ(Set(printer, u"M\nN", u"v", REG_BINARY, one), 87u);
    EXPECT_EQ(Set(printer, u"M", Text(1, char16_t(0xDC00)), REG_BINARY, one), 87u);
    Text deep = u"k";
    for (int i = 1; i < 512; ++i) deep += u"\\k";
    EXPECT_EQ(Set(printer, deep, u"v", REG_BINARY, one), 0u);
    EXPECT_EQ(Set(printer, deep + u"\\k", u"v", REG_BINARY, one), 87u);
    HANDLE none = reinterpret_cast<HANDLE>(1);
    EXPECT_FALSE(OpenPrinterW(nullptr, &none, nullptr));
    EXPECT_EQ(none, nullptr);
    Text name = Widen(dir.File("p.reg"));
    EXPECT_FALSE(OpenPrinterW(name.data(), nullptr, nullptr));
}

TEST_F(StoreApi, NullKeyAndNameAreTheRootAndTheUnnamedValue) {
    BYTE one = 1;
    ASSERT_EQ(SetPrinterDataExW(printer, nullptr, nullptr, REG_BINARY, &one, 1), 0u);
    Bytes data;
    EXPECT_EQ(Read(printer, u"", u"", data), 0u);
    EXPECT_EQ(data, Bytes{1});
    EXPECT_EQ(DeletePrinterDataExW(printer, nullptr, nullptr), 0u);
    EXPECT_EQ(Read(printer, u"", u"", data), 2u);
}

TEST_F(StoreApi, ValuesEnumerateInFirstWrittenOrder) {
    for (const char16_t* name : {u"c", u"A", u"b", u"a", u"D"}) ASSERT_EQ(Set(printer, u"M", name, REG_BINARY, {0}), 0u);
    std::vector<Text> names;
    EXPECT_EQ(Names(printer, u"M", names), 0u);
    EXPECT_EQ(names, (std::vector<Text>{u"v", u"c", u"A", u"b", u"D"}));
    ASSERT_EQ(DeletePrinterDataExW(printer, u"m", u"C"), 0u);
    ASSERT_EQ(Set(printer, u"M", u"C", REG_BINARY, {0}), 0u);
    EXPECT_EQ(Names(printer, u"M", names), 0u);
    EXPECT_EQ(names, (std::vector<Text>{u"v", u"A", u"b", u"D", u"C"}));
    Bytes data;  // lookups still find every value after the positions moved
    for (const Text& name : names) EXPECT_EQ(Read(printer, u"M", name, data), 0u);
}

TEST(StoreNames, PrinterNamesResolveToStoreFiles) {
    TempDir dir;
    // No other test here opens a printer by name, so the variables are not restored.
    const char* const variables[] = {"HMI_PRINTER_STORE", "XDG_DATA_HOME", "HOME"};
    const std::filesystem::path previous = std::filesystem::current_path();
    std::filesystem::current_path(dir.path);
    const struct {
        const char* what;
        const char* env[3];  // null unsets, others are below dir
        Text name;
        std::string file;
    } cases[] = {
        {"HMI_PRINTER_STORE", {"/s", "/x", "/h"}, u"Office Jet", "/s/Office Jet.reg"},
        {"XDG_DATA_HOME", {nullptr, "/x", "/h"}, u"Office Jet", "/x/xrvhmi/printers/Office Jet.reg"},
        {"empty variables are unset", {"", "", "/h"}, u"Office Jet", "/h/.local/share/xrvhmi/printers/Office Jet.reg"},
        {"a name ending in .reg is a relative path", {"/s", "/x", "/h"}, u"local.reg", "/local.reg"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        for (int i = 0; i < 3; ++i) {
            if (c.env[i]) setenv(variables[i], (*c.env[i] ? dir.path + c.env[i] : "").c_str(), 1);
            else unsetenv(variables[i]);
        }
        const std::filesystem::path path = dir.path + c.file;
        std::filesystem::create_directories(path.parent_path());
        WriteFile(path, kHeader);
        Text name = c.name;
        HANDLE printer = nullptr;
        EXPECT_TRUE(OpenPrinterW(name.data(), &printer, nullptr)) << HMISpoolLastOpenError();
        ClosePrinter(printer);
        std::filesystem::remove(path);  // so that no other case finds it
    }
    std::filesystem::current_path(previous);
}

}  // namespace
