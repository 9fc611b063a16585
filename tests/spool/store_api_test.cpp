// Linux only: the store substitute's own conventions and writing changed stores back.
#include <sys/stat.h>

#include <utility>

#include "spool/spool_test_support.h"

namespace {

using namespace spooltest;

struct stat Stat(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.c_str(), &info), 0);
    return info;
}

// Only the store file is in the directory, no temporary one.
bool OnlyTheStore(const std::string& directory) {
    auto entries = std::filesystem::directory_iterator(directory);
    return entries->path().filename() == "printer.reg" && ++entries == std::filesystem::directory_iterator();
}

class StoreApi : public ::testing::Test {
protected:
    void SetUp() override {
        WriteFile(path, kHeader + "[Existing]\n\"keep\"=dword:00000005\n");
        ASSERT_NE(printer = Open(path), nullptr) << HMISpoolLastOpenError();
    }
    void TearDown() override { ClosePrinter(printer); }
    TempDir dir;
    const std::string path = dir.File("printer.reg");
    HANDLE printer = nullptr;
};

TEST_F(StoreApi, InvalidArgumentsAnswerWindowsCodes) {
    DWORD type, needed, count;
    BYTE data[8];
    EXPECT_EQ(GetPrinterDataExW(printer, u"Existing", u"keep", &type, data, sizeof data, nullptr), 87u);
    EXPECT_EQ(GetPrinterDataExW(printer, u"\\Existing", u"keep", &type, data, sizeof data, &needed), 161u);
    EXPECT_EQ(EnumPrinterDataExW(printer, u"", data, sizeof data, &needed, &count), 87u);
    EXPECT_EQ(SetPrinterDataExW(printer, u"M", u"v", REG_BINARY, nullptr, 1), 998u);
    // Names the store file could not hold are refused.
    for (Text name : {Text(u"two\nlines"), Text(1, char16_t(0xDC00))}) EXPECT_EQ(Set(printer, u"M", name, 0, {1}), 87u);
}

// Names and data that the file format has to escape or cannot show as text.
TEST_F(StoreApi, ChangedStoreIsWrittenReadablyAndReadsBackTheSame) {
    const Text media = u"PrinterDriverData\\Media";
    const struct { Text key, name; DWORD type; Bytes data; } written[] = {
        {media, u"text", REG_SZ, TextBytes(u"Plain \"paper\" C:\\x\\")}, {media, u"", REG_DWORD, DwordBytes(0x1a)},
        {media, u"lines", REG_SZ, TextBytes(u"a\r\nb")}, {media, u"embedded zero", REG_SZ, {'a', 0, 0, 0, 'b', 0}},
        {media, u"unpaired, odd length", REG_SZ, {0x00, 0xD8, 'x', 0, 0}}, {media, u"odd type", 0x12345, {9}},
        {u"Key ]with[ brackets", u"v", REG_DWORD, DwordBytes(7)}, {u"-no deletion\\-x", u"v", REG_DWORD, DwordBytes(8)},
        {u"hkey_not absolute", u"v", REG_DWORD, DwordBytes(9)}, {u"", u"at the root", REG_SZ, TextBytes(u"r")},
    };
    for (const auto& w : written) ASSERT_EQ(Set(printer, w.key, w.name, w.type, w.data), 0u);
    for (Text n : {u"c", u"A", u"b", u"a", u"D"}) ASSERT_EQ(Set(printer, u"Existing", n, 0, TextBytes(n)), 0u);
    ASSERT_EQ(DeletePrinterDataExW(printer, u"existing", u"C"), 0u);
    ASSERT_EQ(Set(printer, u"Existing", u"C", 0, {}), 0u);
    Bytes data;  // lookups still work after the positions moved
    EXPECT_TRUE(Read(printer, u"Existing", u"d", data) == 0 && data == TextBytes(u"D"));
    ASSERT_TRUE(ClosePrinter(printer));
    EXPECT_TRUE(OnlyTheStore(dir.path));

    const std::string file = ReadFile(path);
    for (const char* line : {"\n\"text\"=\"Plain \\\"paper\\\" C:\\\\x\\\\\"\n", "\n@=dword:0000001a\n",
                             "\n\"lines\"=hex(1):61,00,0d,00,0a,00,62,00,00,00\n", "\n[]\n\"at the root\"=\"r\"\n"}) {
        EXPECT_NE(file.find(line), std::string::npos) << line << "\nin\n" << file;
    }
    ASSERT_NE(printer = Open(path), nullptr) << HMISpoolLastOpenError() << "\n" << file;
    for (const auto& w : written) {
        DWORD type = 0;
        EXPECT_TRUE(Read(printer, w.key, w.name, data, &type) == 0 && type == w.type && data == w.data)
            << std::string(w.name.begin(), w.name.end());
    }
}

// A key of a few values is scanned and one of many is indexed: across the change, every value is found
// under any case of its name (beyond ASCII too), is replaced in place and is deleted once.
TEST_F(StoreApi, ValuesAreFoundByAnyCaseInKeysOfFewAndOfManyValues) {
    const auto name = [](int i, bool upper) { return Text(upper ? u"V\u00C9" : u"v\u00E9") + Text(1, u'a' + i); };
    const auto valueCount = [&](const Text& key) {
        DWORD needed = 0, count = 0;
        EnumPrinterDataExW(printer, key.c_str(), nullptr, 0, &needed, &count);
        Bytes block(needed);
        return EnumPrinterDataExW(printer, key.c_str(), block.data(), needed, &needed, &count) == 0 ? count : ~0u;
    };
    Bytes data;
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(Set(printer, u"Many", name(i, false), REG_DWORD, DwordBytes(i)), 0u);
        for (int j = 0; j <= i; ++j) {
            ASSERT_TRUE(Read(printer, j % 2 ? u"MANY" : u"many", name(j, true), data) == 0 && data == DwordBytes(j))
                << i << " values, value " << j;
        }
    }
    ASSERT_EQ(Set(printer, u"Many", name(3, true), REG_DWORD, DwordBytes(33)), 0u);
    EXPECT_EQ(valueCount(u"Many"), 20u) << "an existing name, in another case, is replaced";
    ASSERT_EQ(DeletePrinterDataExW(printer, u"Many", name(3, true).c_str()), 0u);
    EXPECT_EQ(Read(printer, u"Many", name(3, false), data), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(DeletePrinterDataExW(printer, u"Many", name(3, false).c_str()), ERROR_FILE_NOT_FOUND);
    EXPECT_TRUE(Read(printer, u"Many", name(19, false), data) == 0 && data == DwordBytes(19));
    EXPECT_EQ(valueCount(u"Many"), 19u);
    // A key of few values, read between reads of another key, keeps its own.
    ASSERT_EQ(Set(printer, u"Few", name(0, true), REG_DWORD, DwordBytes(100)), 0u);
    EXPECT_TRUE(Read(printer, u"FEW", name(0, false), data) == 0 && data == DwordBytes(100));
    EXPECT_TRUE(Read(printer, u"Many", name(0, false), data) == 0 && data == DwordBytes(0));
    EXPECT_EQ(Read(printer, u"Few", name(1, false), data), ERROR_FILE_NOT_FOUND);
}

TEST_F(StoreApi, OnlyAChangedStoreIsReplacedKeepingItsPermissions) {
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    const ino_t before = Stat(path).st_ino;
    const std::string content = ReadFile(path);
    // Writing what is already stored and deleting nothing change nothing.
    ASSERT_EQ(Set(printer, u"existing", u"KEEP", REG_DWORD, DwordBytes(5)), 0u);
    EXPECT_EQ(DeletePrinterDataExW(printer, u"Existing", u"absent"), 2u);
    ASSERT_TRUE(ClosePrinter(printer));
    EXPECT_TRUE(Stat(path).st_ino == before && ReadFile(path) == content);

    ASSERT_NE(printer = Open(path), nullptr);
    ASSERT_EQ(Set(printer, u"New", u"v", REG_BINARY, {}), 0u);
    ASSERT_TRUE(ClosePrinter(printer));
    EXPECT_NE(Stat(path).st_ino, before);  // renamed over the old file, never rewritten in place
    EXPECT_EQ(Stat(path).st_mode & 07777, 0640u);

    // A failed write reports and leaves no temporary file.
    ASSERT_NE(printer = Open(path), nullptr);
    ASSERT_EQ(Set(printer, u"Newer", u"v", REG_BINARY, {}), 0u);
    const std::string moved = dir.path + "-moved";
    ASSERT_EQ(rename(dir.path.c_str(), moved.c_str()), 0);
    EXPECT_FALSE(ClosePrinter(std::exchange(printer, nullptr)));
    ASSERT_EQ(rename(moved.c_str(), dir.path.c_str()), 0);
    EXPECT_TRUE(OnlyTheStore(dir.path));
}

// Direct subkeys only, in their first spelling, sorted without case; a sibling sharing the prefix is not one.
TEST_F(StoreApi, EnumPrinterKeyListsDirectSubkeys) {
    for (Text key : {u"Media\\b2\\HMI", u"Media\\A1", u"media\\B2\\HMN", u"Media2\\c", u"Media\\a1\\x"}) {
        ASSERT_EQ(Set(printer, key, u"v", REG_DWORD, DwordBytes(1)), 0u);
    }
    const auto list = [&](const char16_t* key, DWORD bytes, DWORD* needed) {
        std::vector<char16_t> buffer(bytes / 2 + 1, u'#');
        const DWORD status = EnumPrinterKeyW(printer, key, buffer.data(), bytes, needed);
        return std::make_pair(status, Text(buffer.data(), bytes / 2));
    };
    DWORD needed = 0;
    EXPECT_EQ(list(u"Media", 0, &needed).first, 234u);
    EXPECT_EQ(needed, 14u);
    EXPECT_EQ(list(u"MEDIA", 14, &needed), std::make_pair(DWORD{0}, Text(u"A1\0b2\0\0", 7)));
    EXPECT_EQ(list(u"Media", 13, &needed).first, 234u);
    EXPECT_EQ(list(u"Media\\b2\\HMI", 2, &needed), std::make_pair(DWORD{0}, Text(u"\0", 1)));
    EXPECT_EQ(list(u"", 64, &needed).second.substr(0, 22), Text(u"Existing\0Media\0Media2\0\0", 22));
    EXPECT_EQ(list(u"Missing", 64, &needed).first, 2u);
    EXPECT_EQ(EnumPrinterKeyW(printer, u"Media", nullptr, 0, nullptr), 87u);
    EXPECT_EQ(EnumPrinterKeyW(nullptr, u"Media", nullptr, 0, &needed), 6u);
}

TEST(StoreNames, PrinterNamesResolveToStoreFiles) {
    TempDir dir;
    // No other test here opens a printer by name, so the variables are not restored.
    const std::filesystem::path previous = std::filesystem::current_path();
    std::filesystem::current_path(dir.path);
    const char* const variables[] = {"HMI_PRINTER_STORE", "XDG_DATA_HOME", "HOME"};
    const struct { const char* env[3]; std::string name, file; } cases[] = {  // env: null unsets
        {{"/s", "/x", "/h"}, "Office Jet", "/s/Office Jet.reg"},
        {{nullptr, "/x", "/h"}, "Office Jet", "/x/xrvhmi/printers/Office Jet.reg"},
        {{"", "", "/h"}, "Office Jet", "/h/.local/share/xrvhmi/printers/Office Jet.reg"},  // empty is unset
        {{"/s", "/x", "/h"}, "local.reg", "/local.reg"},  // a name ending in .reg is a relative path
    };
    for (const auto& c : cases) {
        for (int i = 0; i < 3; ++i) {
            c.env[i] ? setenv(variables[i], (*c.env[i] ? dir.path + c.env[i] : "").c_str(), 1) : unsetenv(variables[i]);
        }
        const std::filesystem::path path = dir.path + c.file;
        std::filesystem::create_directories(path.parent_path());
        WriteFile(path, kHeader);
        EXPECT_TRUE(ClosePrinter(Open(c.name))) << c.file << ": " << HMISpoolLastOpenError();
        std::filesystem::remove(path);  // so that no other case finds it
    }
    std::filesystem::current_path(previous);
}

}  // namespace
