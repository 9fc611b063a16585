// Linux only (the store substitute exists only on Linux): reading store files.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "spool/spool_test_support.h"

namespace {

using namespace spooltest;

const Text kMedia = u"PrinterDriverData\\Media";

std::string Utf16File(const Text& text) {
    std::string bytes = "\xFF\xFE";
    for (char16_t c : text) {
        bytes.push_back(static_cast<char>(c & 0xFF));
        bytes.push_back(static_cast<char>(c >> 8));
    }
    return bytes;
}

// A key path of the given number of levels.
std::string KeyPath(int levels) {
    std::string path = "k";
    for (int i = 1; i < levels; ++i) path += "\\k";
    return path;
}

struct Expected {
    Text key;
    Text name;
    DWORD type;
    Bytes data;
};

struct ReadCase {
    const char* what;
    std::string file;
    std::vector<Expected> values;
};

std::vector<ReadCase> ReadCases() {
    return {
        {"text", kHeader + "\n[PrinterDriverData\\Media]\n\"db_format_ver\"=\"1.0\"\n",
         {{kMedia, u"db_format_ver", REG_SZ, TextBytes(u"1.0")}}},
        {"UTF-8 byte-order mark and CRLF",
         "\xEF\xBB\xBFWindows Registry Editor Version 5.00\r\n\r\n[PrinterDriverData\\Media]\r\n\"a\"=\"b\"\r\n",
         {{kMedia, u"a", REG_SZ, TextBytes(u"b")}}},
        {"UTF-16LE with byte-order mark",
         Utf16File(u"Windows Registry Editor Version 5.00\r\n\r\n[PrinterDriverData\\Media]\r\n"
                   u"\"caf\u00e9\"=\"\u7d19\U0001F5A8\"\r\n"),
         {{kMedia, u"caf\u00e9", REG_SZ, TextBytes(u"\u7d19\U0001F5A8")}}},
        {"non-ASCII UTF-8", kHeader + "[M]\n\"caf\xC3\xA9\"=\"\xE7\xB4\x99\xF0\x9F\x96\xA8\"\n",
         {{u"M", u"caf\u00e9", REG_SZ, TextBytes(u"\u7d19\U0001F5A8")}}},
        {"REGEDIT4 header", "REGEDIT4\n[M]\n@=dword:1\n", {{u"M", u"", REG_DWORD, DwordBytes(1)}}},
        {"comments, blank and indented lines",
         kHeader + "; comment\n\n   [M]\n\t; another\n  \"a\" = dword:0000001a  \n\n", {{u"M", u"a", REG_DWORD, DwordBytes(0x1a)}}},
        {"escapes in names and texts", kHeader + "[M]\n\"a\\\\b\\\"c\"=\"x\\\\y\\\"z\"\n",
         {{u"M", u"a\\b\"c", REG_SZ, TextBytes(u"x\\y\"z")}}},
        {"empty text", kHeader + "[M]\n\"e\"=\"\"\n", {{u"M", u"e", REG_SZ, TextBytes(u"")}}},
        {"hex lists and types",
         kHeader + "[M]\n\"b\"=hex:aa,0B\n\"m\"=hex(7):61,00,00,00,00,00\n\"q\"=hex(b):1,2,3,4,5,6,7,8\n"
                   "\"big\"=hex(12345):ff\n",
         {{u"M", u"b", REG_BINARY, {0xAA, 0x0B}},
          {u"M", u"m", REG_MULTI_SZ, {0x61, 0, 0, 0, 0, 0}},
          {u"M", u"q", REG_QWORD, {1, 2, 3, 4, 5, 6, 7, 8}},
          {u"M", u"big", 0x12345, {0xFF}}}},
        {"empty hex lists", kHeader + "[M]\n\"e\"=hex:\n\"n\"=hex(0):\n",
         {{u"M", u"e", REG_BINARY, {}}, {u"M", u"n", REG_NONE, {}}}},
        {"continued hex lists", kHeader + "[M]\n\"c\"=hex:01,02,\\\n  03,04,\\\r\n\t05\n\"d\"=hex:06\n",
         {{u"M", u"c", REG_BINARY, {1, 2, 3, 4, 5}}, {u"M", u"d", REG_BINARY, {6}}}},
        {"absolute key paths",
         kHeader + "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\My Printer]\n"
                   "\"Name\"=\"My Printer\"\n"
                   "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\printers\\My Printer\\"
                   "PrinterDriverData\\Media]\n\"a\"=dword:2\n",
         {{u"", u"Name", REG_SZ, TextBytes(u"My Printer")}, {kMedia, u"a", REG_DWORD, DwordBytes(2)}}},
        {"value written twice keeps the last data",
         kHeader + "[M]\n\"v\"=dword:1\n\"V\"=hex:02\n", {{u"M", u"v", REG_BINARY, {2}}}},
        {"key section twice is one key", kHeader + "[M]\n\"a\"=dword:1\n[N]\n[m]\n\"b\"=dword:2\n",
         {{u"M", u"a", REG_DWORD, DwordBytes(1)}, {u"m", u"b", REG_DWORD, DwordBytes(2)}}},
        {"case folds beyond ASCII",
         kHeader + "[\xD0\x91\xD1\x83\xD0\xBC\xC3\xA9]\n\"\xCE\xB1\xC3\xBF\"=dword:1\n",  // [Бумé] "αÿ"
         {{u"\u0411\u0423\u041C\u00C9", u"\u0391\u0178", REG_DWORD, DwordBytes(1)}}},
        {"key path of 512 levels", kHeader + "[" + KeyPath(512) + "]\n\"a\"=dword:3\n",
         {{Widen(KeyPath(512)), u"a", REG_DWORD, DwordBytes(3)}}},
        {"repeated backslashes collapse", kHeader + "[PrinterDriverData\\\\Media\\]\n\"a\"=dword:3\n",
         {{kMedia, u"a", REG_DWORD, DwordBytes(3)}}},
    };
}

TEST(StoreParser, ReadsValues) {
    TempDir dir;
    for (const ReadCase& c : ReadCases()) {
        SCOPED_TRACE(c.what);
        WriteFile(dir.File("p.reg"), c.file);
        HANDLE printer = Open(dir.File("p.reg"));
        ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError();
        EXPECT_STREQ(HMISpoolLastOpenError(), "");
        for (const Expected& e : c.values) {
            Value value;
            ASSERT_EQ(Read(printer, e.key, e.name, value), 0u);
            EXPECT_EQ(value.type, e.type);
            EXPECT_EQ(value.data, e.data);
        }
        EXPECT_TRUE(ClosePrinter(printer));
    }
}

TEST(StoreParser, LongLinesHaveNoLimit) {
    TempDir dir;
    std::string line = "\"big\"=hex:";
    for (int i = 0; i < 200000; ++i) line += i ? ",5a" : "5a";
    std::string text(100000, 'x');
    WriteFile(dir.File("p.reg"), kHeader + "[M]\n" + line + "\n\"t\"=\"" + text + "\"\n");
    HANDLE printer = Open(dir.File("p.reg"));
    ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError();
    Value value;
    ASSERT_EQ(Read(printer, u"M", u"big", value), 0u);
    EXPECT_EQ(value.data, Bytes(200000, 0x5a));
    ASSERT_EQ(Read(printer, u"M", u"t", value), 0u);
    EXPECT_EQ(value.data, TextBytes(Text(100000, u'x')));
    ClosePrinter(printer);
}

TEST(StoreParser, DeletionsRemoveValuesAndKeysWithSubkeys) {
    TempDir dir;
    WriteFile(dir.File("p.reg"), kHeader +
                                     "[A]\n\"gone\"=dword:1\n\"kept\"=dword:2\n\"GONE\"=-\n"
                                     "[A\\B]\n\"x\"=dword:3\n[A\\B\\C]\n[A\\BC]\n\"y\"=dword:4\n"
                                     "[-a\\b]\n");
    HANDLE printer = Open(dir.File("p.reg"));
    ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError();
    std::vector<Value> values;
    EXPECT_EQ(Enumerate(printer, u"A", values), 0u);
    EXPECT_EQ(values, (std::vector<Value>{{u"kept", REG_DWORD, DwordBytes(2)}}));
    EXPECT_EQ(Enumerate(printer, u"A\\B", values), 2u);
    EXPECT_EQ(Enumerate(printer, u"A\\B\\C", values), 2u);
    EXPECT_EQ(Enumerate(printer, u"A\\BC", values), 0u);
    ClosePrinter(printer);
}

TEST(StoreParser, KeysExistWithoutValuesAndWithTheirParents) {
    TempDir dir;
    WriteFile(dir.File("p.reg"), kHeader + "[Empty]\n[Deep\\Er\\Key]\n\"v\"=dword:1\n");
    HANDLE printer = Open(dir.File("p.reg"));
    ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError();
    for (const Text key : {u"Empty", u"Deep", u"deep\\er"}) {
        SCOPED_TRACE(std::string(key.begin(), key.end()));
        DWORD needed = 99, count = 99;
        EXPECT_EQ(EnumPrinterDataExW(printer, key.c_str(), nullptr, 0, &needed, &count), 0u);
        EXPECT_EQ(needed, 0u);
        EXPECT_EQ(count, 0u);
    }
    ClosePrinter(printer);
}

struct ErrorCase {
    const char* what;
    std::string file;
    size_t line;
    const char* reason;
};

TEST(StoreParser, MalformedFilesFailWithTheLine) {
    const std::vector<ErrorCase> cases = {
        {"empty file", "", 1, "expected the header"},
        {"missing header", "[M]\n\"a\"=dword:1\n", 1, "expected the header"},
        {"UTF-16 without byte-order mark", Utf16File(u"Windows Registry Editor Version 5.00\r\n").substr(2), 1,
         "expected the header"},
        {"Latin-1 text", kHeader + "[M]\n\n\"caf\xE9\"=dword:1\n", 4, "invalid UTF-8"},
        {"overlong UTF-8", kHeader + "[M]\n\"\xC0\xAF\"=dword:1\n", 3, "invalid UTF-8"},
        {"UTF-16 cut in a character", Utf16File(u"Windows Registry Editor Version 5.00\r\n[M]\r\n") + "x", 3,
         "middle of a character"},
        {"unpaired surrogate", Utf16File(u"Windows Registry Editor Version 5.00\n[M]\n\"\xD800\"=dword:1\n"), 3,
         "unpaired surrogate"},
        {"unterminated text", kHeader + "[M]\n\"a\"=\"abc\n", 3, "unterminated string"},
        {"unterminated name", kHeader + "[M]\n\"a=dword:1\n", 3, "unterminated string"},
        {"unknown escape", kHeader + "[M]\n\"a\"=\"x\\n\"\n", 3, "unknown escape"},
        {"text after the closing quote", kHeader + "[M]\n\"a\"=\"x\" y\n", 3, "after the closing quote"},
        {"missing '='", kHeader + "[M]\n\"a\" dword:1\n", 3, "expected '=' after value name"},
        {"unknown data", kHeader + "[M]\n\"a\"=string:x\n", 3, "expected \"text\""},
        {"dword of nine digits", kHeader + "[M]\n\"a\"=dword:123456789\n", 3, "dword:"},
        {"dword without digits", kHeader + "[M]\n\"a\"=dword:\n", 3, "dword:"},
        {"bad hex byte", kHeader + "[M]\n\"a\"=hex:zz\n", 3, "bad hex byte"},
        {"hex byte of three digits", kHeader + "[M]\n\"a\"=hex:123\n", 3, "bad hex byte"},
        {"hex list ending in a comma", kHeader + "[M]\n\"a\"=hex:01,\n", 3, "ends with ','"},
        {"bad type number", kHeader + "[M]\n\"a\"=hex(z):01\n", 3, "hex(N):"},
        {"bad hex on a continuation line", kHeader + "[M]\n\"a\"=hex:01,\\\n  02,\\\n  xx\n", 5, "bad hex byte"},
        {"file ends in a continued list", kHeader + "[M]\n\"a\"=hex:01,\\\n  02,\\\n", 4, "file ends inside"},
        {"value before any key", kHeader + "\"a\"=dword:1\n", 2, "outside a key"},
        {"value after a key deletion", kHeader + "[M]\n[-M]\n\"a\"=dword:1\n", 4, "outside a key"},
        {"key line without ']'", kHeader + "[M\n", 2, "expected ']'"},
        {"key path from the root of a drive", kHeader + "[\\M]\n", 2, "starts with '\\'"},
        {"absolute key outside a printer", kHeader + "[HKEY_LOCAL_MACHINE\\SOFTWARE\\X]\n", 2, "outside a printer"},
        {"key path of 513 levels", kHeader + "[" + KeyPath(513) + "]\n", 2, "deeper than 512"},
        {"stray text", kHeader + "[M]\n\"a\"=dword:1\ngarbage\n", 4, "expected a [key] line"},
    };
    TempDir dir;
    const std::string path = dir.File("bad.reg");
    for (const ErrorCase& c : cases) {
        SCOPED_TRACE(c.what);
        WriteFile(path, c.file);
        HANDLE printer = reinterpret_cast<HANDLE>(1);
        Text name = Widen(path);
        EXPECT_FALSE(OpenPrinterW(name.data(), &printer, nullptr));
        EXPECT_EQ(printer, nullptr);
        std::string reason = HMISpoolLastOpenError();
        std::string where = path + ":" + std::to_string(c.line) + ": ";
        EXPECT_EQ(reason.substr(0, where.size()), where) << reason;
        EXPECT_NE(reason.find(c.reason), std::string::npos) << reason;
    }
}

TEST(StoreParser, ReasonsArePerThreadAndClearedBySuccess) {
    TempDir dir;
    EXPECT_EQ(Open(dir.File("missing.reg")), nullptr);
    std::string reason = HMISpoolLastOpenError();
    EXPECT_NE(reason.find("No such file"), std::string::npos) << reason;
    std::thread([] { EXPECT_STREQ(HMISpoolLastOpenError(), ""); }).join();
    EXPECT_EQ(HMISpoolLastOpenError(), reason);
    WriteFile(dir.File("good.reg"), kHeader);
    HANDLE printer = Open(dir.File("good.reg"));
    ASSERT_NE(printer, nullptr);
    EXPECT_STREQ(HMISpoolLastOpenError(), "");
    ClosePrinter(printer);
}

}  // namespace
