// Linux only (the store substitute exists only on Linux): writing changed stores back.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>
#include <vector>

#include "spool/spool_test_support.h"

namespace {

using namespace spooltest;

struct Written {
    Text key;
    Value value;
};

std::vector<Written> Values() {
    Bytes large(300);
    for (size_t i = 0; i < large.size(); ++i) large[i] = static_cast<BYTE>(i);
    Bytes unpaired = TextBytes(u"x");
    unpaired.insert(unpaired.begin(), {0x00, 0xD8});
    return {
        {u"PrinterDriverData\\Media", {u"text", REG_SZ, TextBytes(u"Plain \"paper\" C:\\x\\")}},
        {u"PrinterDriverData\\Media", {u"", REG_DWORD, DwordBytes(0x1a)}},
        {u"PrinterDriverData\\Media", {u"Caf\u00e9 \"q\" \\", REG_SZ, TextBytes(u"\u7d19\U0001F5A8")}},
        {u"PrinterDriverData\\Media", {u"lines", REG_SZ, TextBytes(u"a\r\nb")}},
        {u"PrinterDriverData\\Media", {u"embedded zero", REG_SZ, {'a', 0, 0, 0, 'b', 0, 0, 0}}},
        {u"PrinterDriverData\\Media", {u"no terminator", REG_SZ, {'a', 0}}},
        {u"PrinterDriverData\\Media", {u"odd text", REG_SZ, {'a', 0, 0}}},
        {u"PrinterDriverData\\Media", {u"unpaired", REG_SZ, unpaired}},
        {u"PrinterDriverData\\Media", {u"short dword", REG_DWORD, {1, 2}}},
        {u"PrinterDriverData\\Media", {u"empty", REG_BINARY, {}}},
        {u"PrinterDriverData\\Media", {u"large", REG_BINARY, large}},
        {u"PrinterDriverData\\Media", {u"qword", REG_QWORD, {1, 2, 3, 4, 5, 6, 7, 8}}},
        {u"PrinterDriverData\\Media", {u"odd type", 0x12345, {9}}},
        {u"PrinterDriverData\\Media\\0000001A\\HMI", {u"000", REG_BINARY, {'<', 0}}},
        {u"Key ]with[ brackets", {u"v", REG_DWORD, DwordBytes(7)}},
        {u"-not a deletion\\-sub", {u"v", REG_DWORD, DwordBytes(8)}},
        {u"hkey_not absolute", {u"v", REG_DWORD, DwordBytes(9)}},
        {u"", {u"at the root", REG_SZ, TextBytes(u"r")}},
    };
}

ino_t Inode(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.c_str(), &info), 0);
    return info.st_ino;
}

class StoreWriteBack : public ::testing::Test {
protected:
    void SetUp() override { WriteFile(path, kHeader + "[Existing]\n\"keep\"=dword:00000005\n"); }

    TempDir dir;
    const std::string path = dir.File("printer.reg");
};

TEST_F(StoreWriteBack, ChangedStoreReadsBackTheSame) {
    HANDLE printer = Open(path);
    ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError();
    for (const Written& w : Values()) {
        ASSERT_EQ(SetPrinterDataExW(printer, w.key.c_str(), w.value.name.c_str(), w.value.type,
                                    const_cast<BYTE*>(w.value.data.data()), static_cast<DWORD>(w.value.data.size())),
                  0u);
    }
    ASSERT_TRUE(SetPrinterDataExW(printer, u"Empty\\Key", u"gone", REG_BINARY, nullptr, 0) == 0 &&
                DeletePrinterDataExW(printer, u"Empty\\Key", u"gone") == 0);
    ASSERT_TRUE(ClosePrinter(printer));
    EXPECT_EQ(dir.Entries(), std::vector<std::string>{"printer.reg"});  // no temporary file left

    printer = Open(path);
    ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError() << "\n" << ReadFile(path);
    for (const Written& w : Values()) {
        SCOPED_TRACE(std::string(w.value.name.begin(), w.value.name.end()));
        Value value;
        ASSERT_EQ(Read(printer, w.key, w.value.name, value), 0u);
        EXPECT_EQ(value.type, w.value.type);
        EXPECT_EQ(value.data, w.value.data);
    }
    std::vector<Value> values;
    EXPECT_EQ(Enumerate(printer, u"Empty\\Key", values), 0u);
    EXPECT_TRUE(values.empty());
    EXPECT_EQ(Enumerate(printer, u"Existing", values), 0u);
    EXPECT_EQ(values, (std::vector<Value>{{u"keep", REG_DWORD, DwordBytes(5)}}));
    ClosePrinter(printer);
}

TEST_F(StoreWriteBack, WritesTheReadableForms) {
    HANDLE printer = Open(path);
    ASSERT_NE(printer, nullptr);
    for (const Written& w : Values()) {
        SetPrinterDataExW(printer, w.key.c_str(), w.value.name.c_str(), w.value.type,
                          const_cast<BYTE*>(w.value.data.data()), static_cast<DWORD>(w.value.data.size()));
    }
    ASSERT_TRUE(ClosePrinter(printer));
    const std::string file = ReadFile(path);
    for (const char* line : {"\n\"text\"=\"Plain \\\"paper\\\" C:\\\\x\\\\\"\n", "\n@=dword:0000001a\n",
                             "\n\"Caf\xC3\xA9 \\\"q\\\" \\\\\"=\"\xE7\xB4\x99\xF0\x9F\x96\xA8\"\n",
                             "\n\"lines\"=hex(1):61,00,0d,00,0a,00,62,00,00,00\n", "\n\"short dword\"=hex(4):01,02\n",
                             "\n\"empty\"=hex:\n", "\n\"odd type\"=hex(12345):09\n", "\n[]\n\"at the root\"=\"r\"\n",
                             "\n[Key ]with[ brackets]\n"}) {
        EXPECT_NE(file.find(line), std::string::npos) << line << "\nin\n" << file;
    }
    EXPECT_EQ(file.rfind(kHeader, 0), 0u);
    size_t start = 0;
    for (size_t end; (end = file.find('\n', start)) != std::string::npos; start = end + 1) {
        if (file[start] != '[') {  // hex lists wrap, key lines cannot
            EXPECT_LE(end - start, 80u) << file.substr(start, end - start);
        }
    }
}

TEST_F(StoreWriteBack, UnchangedStoreIsNotRewritten) {
    const ino_t before = Inode(path);
    const std::string content = ReadFile(path);
    HANDLE printer = Open(path);
    ASSERT_NE(printer, nullptr);
    Value value;
    EXPECT_EQ(Read(printer, u"Existing", u"keep", value), 0u);
    // Writing what is already stored changes nothing.
    ASSERT_EQ(SetPrinterDataExW(printer, u"existing", u"KEEP", REG_DWORD, value.data.data(), 4), 0u);
    EXPECT_EQ(DeletePrinterDataExW(printer, u"Existing", u"absent"), 2u);
    ASSERT_TRUE(ClosePrinter(printer));
    EXPECT_EQ(Inode(path), before);
    EXPECT_EQ(ReadFile(path), content);
}

TEST_F(StoreWriteBack, ReplacesTheFileKeepingItsPermissions) {
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    const ino_t before = Inode(path);
    HANDLE printer = Open(path);
    ASSERT_NE(printer, nullptr);
    ASSERT_EQ(SetPrinterDataExW(printer, u"New", u"v", REG_BINARY, nullptr, 0), 0u);
    ASSERT_TRUE(ClosePrinter(printer));
    struct stat info {};
    ASSERT_EQ(stat(path.c_str(), &info), 0);
    EXPECT_NE(info.st_ino, before);  // renamed over the old file, never rewritten in place
    EXPECT_EQ(info.st_mode & 07777, 0640u);
}

TEST_F(StoreWriteBack, FailedWriteReportsAndLeavesNothing) {
    HANDLE printer = Open(path);
    ASSERT_NE(printer, nullptr);
    ASSERT_EQ(SetPrinterDataExW(printer, u"New", u"v", REG_BINARY, nullptr, 0), 0u);
    const std::string moved = dir.path() + "-moved";
    ASSERT_EQ(rename(dir.path().c_str(), moved.c_str()), 0);
    EXPECT_FALSE(ClosePrinter(printer));
    ASSERT_EQ(rename(moved.c_str(), dir.path().c_str()), 0);
    EXPECT_EQ(dir.Entries(), std::vector<std::string>{"printer.reg"});
}

}  // namespace
