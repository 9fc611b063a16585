// Linux only (the store substitute exists only on Linux): writing changed stores back.
#include <sys/stat.h>

#include "spool/spool_test_support.h"

namespace {

using namespace spooltest;

std::vector<std::string> Entries(const std::string& directory) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) names.push_back(entry.path().filename());
    return names;
}

struct stat Stat(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.c_str(), &info), 0);
    return info;
}

class StoreWriteBack : public ::testing::Test {
protected:
    void SetUp() override { WriteFile(path, kHeader + "[Existing]\n\"keep\"=dword:00000005\n"); }
    TempDir dir;
    const std::string path = dir.File("printer.reg");
};

// Names and data that the file format has to escape or cannot show as text; plain values of each
// type go through the printer-store conformance test.
TEST_F(StoreWriteBack, ChangedStoreIsWrittenReadablyAndReadsBackTheSame) {
    const Text media = u"PrinterDriverData\\Media";
    const struct {
        Text key, name;
        DWORD type;
        Bytes data;
    } written[] = {
        {media, u"text", REG_SZ, TextBytes(u"Plain \"paper\" C:\\x\\")},
        {media, u"", REG_DWORD, DwordBytes(0x1a)},
        {media, u"lines", REG_SZ, TextBytes(u"a\r\nb")},
        {media, u"embedded zero", REG_SZ, {'a', 0, 0, 0, 'b', 0, 0, 0}},
        {media, u"odd text", REG_SZ, {'a', 0, 0}},
        {media, u"unpaired", REG_SZ, {0x00, 0xD8, 'x', 0, 0, 0}},
        {media, u"odd type", 0x12345, {9}},
        {u"Key ]with[ brackets", u"v", REG_DWORD, DwordBytes(7)},
        {u"-not a deletion\\-sub", u"v", REG_DWORD, DwordBytes(8)},
        {u"hkey_not absolute", u"v", REG_DWORD, DwordBytes(9)},
        {u"", u"at the root", REG_SZ, TextBytes(u"r")},
    };
    HANDLE printer = Open(path);
    ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError();
    for (const auto& w : written) ASSERT_EQ(Set(printer, w.key, w.name, w.type, w.data), 0u);
    ASSERT_EQ(Set(printer, u"Empty\\Key", u"gone", REG_BINARY, {}), 0u);
    ASSERT_EQ(DeletePrinterDataExW(printer, u"Empty\\Key", u"gone"), 0u);
    ASSERT_TRUE(ClosePrinter(printer));
    EXPECT_EQ(Entries(dir.path), std::vector<std::string>{"printer.reg"});  // no temporary file left

    const std::string file = ReadFile(path);
    EXPECT_EQ(file.rfind(kHeader, 0), 0u);
    for (const char* line : {"\n\"text\"=\"Plain \\\"paper\\\" C:\\\\x\\\\\"\n", "\n@=dword:0000001a\n",
                             "\n\"lines\"=hex(1):61,00,0d,00,0a,00,62,00,00,00\n", "\n[]\n\"at the root\"=\"r\"\n"}) {
        EXPECT_NE(file.find(line), std::string::npos) << line << "\nin\n" << file;
    }

    printer = Open(path);
    ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError() << "\n" << file;
    for (const auto& w : written) {
        SCOPED_TRACE(std::string(w.name.begin(), w.name.end()));
        Bytes data;
        DWORD type = 0;
        ASSERT_EQ(Read(printer, w.key, w.name, data, &type), 0u);
        EXPECT_EQ(type, w.type);
        EXPECT_EQ(data, w.data);
    }
    std::vector<Text> names;
    EXPECT_EQ(Names(printer, u"Empty\\Key", names), 0u);
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(Names(printer, u"Existing", names), 0u);
    EXPECT_EQ(names, std::vector<Text>{u"keep"});
    ClosePrinter(printer);
}

TEST_F(StoreWriteBack, OnlyAChangedStoreIsReplacedKeepingItsPermissions) {
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    const ino_t before = Stat(path).st_ino;
    const std::string content = ReadFile(path);
    HANDLE printer = Open(path);
    ASSERT_NE(printer, nullptr);
    // Writing what is already stored and deleting nothing change nothing.
    ASSERT_EQ(Set(printer, u"existing", u"KEEP", REG_DWORD, DwordBytes(5)), 0u);
    EXPECT_EQ(DeletePrinterDataExW(printer, u"Existing", u"absent"), 2u);
    ASSERT_TRUE(ClosePrinter(printer));
    EXPECT_EQ(Stat(path).st_ino, before);
    EXPECT_EQ(ReadFile(path), content);

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
    EXPECT_FALSE(ClosePrinter(printer));
    ASSERT_EQ(rename(moved.c_str(), dir.path.c_str()), 0);
    EXPECT_EQ(Entries(dir.path), std::vector<std::string>{"printer.reg"});
}

}  // namespace
