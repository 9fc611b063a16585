// Linux only: reading store files.
#include <sys/stat.h>

#include "spool/spool_test_support.h"

namespace {

using namespace spooltest;

std::string Utf16File(const Text& text) {
    std::string bytes = "\xFF\xFE";
    for (char16_t c : text) bytes += {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    return bytes;
}

TEST(StoreParser, ReadsValues) {
    constexpr DWORD kGone = 0xFFFFFFFF;  // the value must not be found
    struct Expected { Text key, name; DWORD type; Bytes data; };
    const std::string absolute = "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\My Printer";
    const struct { const char* what; std::string file; std::vector<Expected> values; } cases[] = {
        // [Бумé] "αÿąաａⰰ" "ß𐐨": every script's simple upper case; ß and units of a surrogate pair stay
        {"UTF-8 byte-order mark, CRLF, case folds beyond ASCII",
         "\xEF\xBB\xBFWindows Registry Editor Version 5.00\r\n\r\n[\xD0\x91\xD1\x83\xD0\xBC\xC3\xA9]\r\n"
         "\"\xCE\xB1\xC3\xBF\xC4\x85\xD5\xA1\xEF\xBD\x81\xE2\xB0\xB0\"=\"b\"\r\n"
         "\"\xC3\x9F\xF0\x90\x90\xA8\"=\"c\"\r\n",
         {{u"\u0411\u0423\u041C\u00C9", u"\u0391\u0178\u0104\u0531\uFF21\u2C00", REG_SZ, TextBytes(u"b")},
          {u"\u0411\u0423\u041C\u00C9", u"\u00DF\U00010428", REG_SZ, TextBytes(u"c")},
          {u"\u0411\u0423\u041C\u00C9", u"\u1E9E\U00010400", kGone, {}}}},
        {"UTF-16LE with byte-order mark",
         Utf16File(u"Windows Registry Editor Version 5.00\r\n\r\n[M]\r\n\"caf\u00e9\"=\"\u7d19\U0001F5A8\"\r\n"),
         {{u"M", u"caf\u00e9", REG_SZ, TextBytes(u"\u7d19\U0001F5A8")}}},
        {"REGEDIT4 header, comments, indenting, escapes",
         "REGEDIT4\n; comment\n\n   [M]\n\t; another\n  \"a\" = dword:0000001a  \n\n@=dword:1\n"
         "\"a\\\\b\\\"c\"=\"x\\\\y\\\"z\"\n",
         {{u"M", u"a", REG_DWORD, DwordBytes(0x1a)}, {u"M", u"", REG_DWORD, DwordBytes(1)},
          {u"M", u"a\\b\"c", REG_SZ, TextBytes(u"x\\y\"z")}}},
        {"hex lists and types, lines without length limit",
         kHeader + "[M]\n\"b\"=hex:aa,0B\n\"q\"=hex(b):1,2,3,4,5,6,7,8\n\"big\"=hex(12345):ff\n\"e\"=hex:\n"
                   "\"c\"=hex(7):01,02,\\\n03,04,\\\r\n\t05\n\"d\"=hex:06\n\"t\"=\"" + std::string(99999, 'x') + "\"\n",
         {{u"M", u"b", REG_BINARY, {0xAA, 0x0B}}, {u"M", u"q", REG_QWORD, {1, 2, 3, 4, 5, 6, 7, 8}},
          {u"M", u"big", 0x12345, {0xFF}}, {u"M", u"e", REG_BINARY, {}}, {u"M", u"c", REG_MULTI_SZ, {1, 2, 3, 4, 5}},
          {u"M", u"d", REG_BINARY, {6}}, {u"M", u"t", REG_SZ, TextBytes(Text(99999, u'x'))}}},
        {"absolute key paths",
         kHeader + absolute + "]\n\"Name\"=\"P\"\n" + absolute + "\\PrinterDriverData\\Media]\n\"a\"=dword:2\n",
         {{u"", u"Name", REG_SZ, TextBytes(u"P")}, {u"PrinterDriverData\\Media", u"a", REG_DWORD, DwordBytes(2)}}},
        {"a value written twice keeps the last data, a key section twice is one key",
         kHeader + "[M]\n\"v\"=dword:1\n\"a\"=dword:1\n[N]\n[m]\n\"V\"=hex:02\n",
         {{u"M", u"v", REG_BINARY, {2}}, {u"m", u"a", REG_DWORD, DwordBytes(1)}}},
        {"deletions of values and of keys with their subkeys",
         kHeader + "[A]\n\"gone\"=dword:1\n\"kept\"=dword:2\n\"GONE\"=-\n[A\\B]\n\"x\"=dword:3\n"
                   "[A\\B\\C]\n\"z\"=dword:3\n[A\\BC]\n\"y\"=dword:4\n[-a\\b]\n",
         {{u"A", u"kept", REG_DWORD, DwordBytes(2)}, {u"A\\BC", u"y", REG_DWORD, DwordBytes(4)},
          {u"A", u"gone", kGone, {}}, {u"A\\B", u"x", kGone, {}}, {u"A\\B\\C", u"z", kGone, {}}}},
    };
    TempDir dir;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        WriteFile(dir.File("p.reg"), c.file);
        HANDLE printer = Open(dir.File("p.reg"));
        ASSERT_NE(printer, nullptr) << HMISpoolLastOpenError();
        for (const Expected& e : c.values) {
            Bytes data;
            DWORD type = 0;
            ASSERT_EQ(Read(printer, e.key, e.name, data, &type), e.type == kGone ? 2u : 0u);
            EXPECT_TRUE(e.type == kGone || (type == e.type && data == e.data)) << &e - c.values.data();
        }
        EXPECT_TRUE(ClosePrinter(printer));
    }
}

TEST(StoreParser, MalformedFilesFailWithTheLine) {
    std::string deep;  // 512 more levels below k
    for (int i = 0; i < 512; ++i) deep += "\\k";
    const std::string m = kHeader + "[M]\n";
    const struct { std::string file; size_t line; const char* reason; } cases[] = {
        {Utf16File(u"Windows Registry Editor Version 5.00\r\n").substr(2), 1, "expected the header"},
        {m + "\n\"caf\xE9\"=dword:1\n", 4, "invalid UTF-8"},
        {Utf16File(u"Windows Registry Editor Version 5.00\r\n[M]\r\n") + "x", 3, "middle of a character"},
        {Utf16File(u"Windows Registry Editor Version 5.00\n[M]\n\"\xD800\"=dword:1\n"), 3, "unpaired surrogate"},
        {m + "\"a\"=\"abc\n", 3, "unterminated string"}, {m + "\"a\"=\"x\\n\"\n", 3, "unknown escape"},
        {m + "\"a\"=\"x\" y\n", 3, "after the closing quote"}, {m + "\"a\"=dword:123456789\n", 3, "dword:"},
        {m + "\"a\"=hex:01,\\\n  02,\\\n  xx\n", 5, "bad hex byte"},
        {m + "\"a\"=hex:01,\\\n  02,\\\n", 4, "file ends inside"},
        {m + "[-M]\n\"a\"=dword:1\n", 4, "outside a key"}, {kHeader + "[\\M]\n", 2, "starts with '\\'"},
        {kHeader + "[HKEY_LOCAL_MACHINE\\SOFTWARE\\X]\n", 2, "outside a printer"},
        {kHeader + "[k" + deep + "]\n", 2, "deeper than 512"},
        {m + "\"a\"=dword:1\ngarbage\n", 4, "expected a [key] line"},
        {kHeader + "[M]\n[M\\a" + std::string(1, '\0') + "b]\n", 3, "NUL character in a key name"},
        {m + "\"a\"=dword:1\n\"a" + std::string(1, '\0') + "\"=dword:1\n", 4, "NUL character in a value name"},
    };
    TempDir dir;
    const std::string path = dir.File("bad.reg");
    for (const auto& c : cases) {
        WriteFile(path, c.file);
        EXPECT_EQ(Open(path), nullptr) << c.reason;
        const std::string reason = HMISpoolLastOpenError();
        EXPECT_TRUE(reason.rfind(path + ":" + std::to_string(c.line) + ": ", 0) == 0 &&
                    reason.find(c.reason) != std::string::npos) << reason;
    }
}

// A device or a FIFO would be read without end or block; a large file would exhaust memory.
TEST(StoreParser, OnlyRegularFilesWithinTheSizeLimitAreRead) {
    TempDir dir;
    const std::string large = dir.File("large.reg"), fifo = dir.File("fifo.reg");
    WriteFile(large, kHeader);
    std::filesystem::resize_file(large, (64 << 20) + 1);  // sparse
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const std::pair<std::string, std::string> cases[] = {
        {"/dev/zero", "not a regular file"}, {dir.path, "not a regular file"}, {fifo, "not a regular file"},
        {large, "larger than 64 MiB, the limit of a store file"}, {dir.File("absent.reg"), "No such file or directory"},
    };
    for (const auto& [path, reason] : cases) {
        EXPECT_EQ(Open(path), nullptr);
        EXPECT_EQ(HMISpoolLastOpenError(), path + ": " + reason);
    }
}

}  // namespace
