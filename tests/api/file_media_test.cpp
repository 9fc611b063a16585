// HMIGetMediaNameFile, HMIEnumMediaNamesFile, HMIFilterMediaFile and HMICloseMediaFile through the library.
#include <gtest/gtest.h>

#include <cstring>
#include <tuple>
#include <vector>

#include "unit/file/file_test_files.h"

namespace hmitest {
namespace {

constexpr WCHAR kPoisonUnit = 0xCDCD;

class FileMedia : public FileTest {
protected:
    // Reads the name with a poisoned buffer of bufferChars (+ 1 guard unit); returns the result.
    BOOL Name(const WString& path, const std::string& language, size_t bufferChars) {
        buffer.assign(bufferChars + 1, kPoisonUnit);
        reported = 7;
        return HMIGetMediaNameFile(access, path.c_str(), W(language).c_str(), bufferChars ? buffer.data() : nullptr,
                                   bufferChars, &reported);
    }

    std::vector<WCHAR> buffer;
    size_t reported = 7;
};

// Lengths count up to 260; a buffer of len + 1 is required; a failed size check writes nothing.
TEST_F(FileMedia, NameSizesAroundEachBoundary) {
    const std::string ten = "Gloss Fine", long300 = Chars(300);
    const WString path = files.Write("names", NamesXml({{"en", ten}, {"xx", long300}}));
    const struct {
        std::string language;
        size_t bufferChars;
        BOOL result;
        size_t reported;
        std::string content;  // the buffer afterwards, up to its guard unit; "~" for untouched
    } cases[] = {
        {"en", 0, FALSE, 11, "~"}, {"en", 10, FALSE, 11, "~"}, {"en", 11, TRUE, 7, ten + '\0'},
        {"en", 12, TRUE, 7, ten + '\0' + '~'}, {"xx", 260, FALSE, 261, "~"},
        {"xx", 261, FALSE, 7, '\0' + long300.substr(1, 260)}, {"xx", 301, TRUE, 7, long300 + '\0'},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.language + " " + std::to_string(c.bufferChars));
        EXPECT_EQ(Name(path, c.language, c.bufferChars), c.result);
        EXPECT_EQ(reported, c.reported);
        std::vector<WCHAR> want(buffer.size(), kPoisonUnit);
        for (size_t i = 0; i < c.content.size() && c.bufferChars; ++i) {
            if (c.content[i] != '~') want[i] = static_cast<WCHAR>(static_cast<unsigned char>(c.content[i]));
        }
        EXPECT_EQ(buffer, want);
    }
}

// Exact, case-sensitive languages in the media-information namespace only; the first item wins.
TEST_F(FileMedia, NameByLanguage) {
    const std::string lang300 = Chars(300, 'A');
    const WString path = files.Write("names", MediaXml(
        "<medianame_item language=\"de\">Plain</medianame_item><iv:g><iv:medianame_item language=\"en\">First"
        "</iv:medianame_item></iv:g><iv:medianame_item language=\"en\">Second</iv:medianame_item>"
        "<iv:medianame_item language=\"it's\">Apos</iv:medianame_item><iv:medianame_item language=\"q&quot;\">Q"
        "</iv:medianame_item><iv:medianame_item language=\"" + lang300 + "\">Long</iv:medianame_item>"
        "<iv:medianame_item language=\"fr\"></iv:medianame_item>"));
    const std::pair<std::string, const char*> cases[] = {
        {"en", "First"}, {"it's", "Apos"}, {lang300, "Long"}, {"EN", nullptr},
        {"de", nullptr}, {"q\"", nullptr}, {"fr", nullptr},   {"", nullptr},
    };
    for (const auto& [language, name] : cases) {
        SCOPED_TRACE(language.substr(0, 8));
        EXPECT_EQ(Name(path, language, 32), name ? TRUE : FALSE);
        EXPECT_EQ(reported, 7u);
        EXPECT_TRUE(!name || WString(buffer.data()) == W(name));
    }
}

// 16 + 136 x 3 = 424; only the required bytes are zeroed.
TEST_F(FileMedia, NameListSizes) {
    const WString path = files.Write("three", NamesXml({{"en", "Gloss"}, {"ja", "Kami"}, {"de", "Glanz"}}));
    const size_t required = 424;
    for (const size_t bytes : {size_t{0}, required - 1, required, required + 9}) {
        SCOPED_TRACE(bytes);
        std::vector<unsigned char> block(bytes + 8, 0xCD);
        auto* list = bytes ? reinterpret_cast<_tagHMIMediaNameList*>(block.data()) : nullptr;
        size_t reported = 7;
        ASSERT_EQ(HMIEnumMediaNamesFile(access, path.c_str(), list, bytes, &reported), bytes >= required);
        std::vector<unsigned char> want(bytes + 8, 0xCD);
        if (bytes >= required) {
            std::fill(want.begin(), want.begin() + required, 0);
            _tagHMIMediaNameList head{3, reinterpret_cast<_tagHMIMediaName*>(block.data() + 16)};
            std::memcpy(want.data(), &head, sizeof head);
            const std::pair<const char*, const char*> names[] = {{"en", "Gloss"}, {"ja", "Kami"}, {"de", "Glanz"}};
            for (size_t i = 0; i < 3; ++i) {
                _tagHMIMediaName entry{};
                for (size_t k = 0; names[i].first[k]; ++k) entry.language[k] = names[i].first[k];
                for (size_t k = 0; names[i].second[k]; ++k) entry.name[k] = names[i].second[k];
                std::memcpy(want.data() + 16 + 136 * i, &entry, sizeof entry);
            }
        }
        EXPECT_EQ(block, want);
        EXPECT_EQ(reported, bytes >= required ? 7u : required);
    }
}

// Items that do not fit are left out and their place taken; the size still counts them.
TEST_F(FileMedia, NameListSkipsWhatDoesNotFit) {
    const WString path = files.Write("odd", NamesXml({{"deu", "Drei"}, {"en", Chars(64)}, {"fr", Chars(65)},
                                                      {"", "NoLanguage"}, {"x", ""}, {"en", "Again"},
                                                      {"\xE6\x97\xA5", "\xE7\xB4\x99"}, {Chars(300), "Long"}}));
    std::vector<unsigned char> block(16 + 136 * 8);
    auto* list = reinterpret_cast<_tagHMIMediaNameList*>(block.data());
    ASSERT_EQ(HMIEnumMediaNamesFile(access, path.c_str(), list, block.size(), nullptr), TRUE);
    ASSERT_EQ(list->count, 3u);
    EXPECT_EQ(list->names, reinterpret_cast<_tagHMIMediaName*>(block.data() + 16));
    EXPECT_EQ(WString(list->names[0].language), W("en"));
    EXPECT_EQ(WString(list->names[0].name), W(Chars(64)));
    EXPECT_EQ(WString(list->names[1].name), W("Again"));
    EXPECT_EQ(WString(list->names[2].language), HMI_W("\x65E5"));
    EXPECT_EQ(WString(list->names[2].name), HMI_W("\x7D19"));
}

TEST_F(FileMedia, NameReadersFindTheirOwnNamespaceOnly) {
    const WString prefixed = files.Write("prefixed", MediaXml("<iv:medianame_item language=\"en\">A</iv:medianame_item>"));
    const WString plain = files.Write("plain", MediaXml("<medianame_item language=\"en\">A</medianame_item>"));
    size_t required = 7;
    _tagHMIMediaNameList list{};
    EXPECT_TRUE(HMIEnumMediaNamesFile(access, prefixed.c_str(), &list, sizeof list, &required) == FALSE && required == 7u);
    EXPECT_TRUE(HMIEnumMediaNamesFile(access, plain.c_str(), nullptr, 0, &required) == FALSE && required == 16u + 136);
    EXPECT_TRUE(Name(prefixed, "en", 2) == TRUE && Name(plain, "en", 2) == FALSE);
}

// A medium with a colour branch and an "all" branch.
std::string MediumXml() {
    return MediaXml("<medium><availableprintcolormode default=\"color\">color,monochrome</availableprintcolormode>"
                    "<printcolormode type=\"color\"><availableborderlessprint default=\"OFF\">OFF,ON"
                    "</availableborderlessprint></printcolormode><printcolormode type=\"all\"/></medium>");
}

TEST_F(FileMedia, DetailBelongsToTheCallerAndOutlivesTheHandle) {
    const WString path = files.Write("medium", MediumXml());
    const WString id64 = W(Chars(64));
    HMIXMLMediaDetail* first = HMIFilterMediaFile(access, id64.c_str(), path.c_str());
    HMIXMLMediaDetail* second = HMIFilterMediaFile(access, id64.c_str(), path.c_str());
    ASSERT_TRUE(first && second && first != second);
    EXPECT_EQ(HMIFilterMediaFile(access, (id64 + HMI_W("x")).c_str(), path.c_str()), nullptr);
    HMIClose(access);
    access = HMIOpen(nullptr);

    _tagHMIMediaInfo info;
    ASSERT_EQ(HMIGetMediaInfo(access, first, &info), TRUE);
    EXPECT_TRUE(WString(info.id) == id64 && info.availableprintcolormode.count == 2u);
    HMIXMLMediaColorMode* color = HMIFilterColorMode(access, first, HMI_COLORMODE_COLOR);
    HMIXMLMediaColorMode* all = HMIFilterColorMode(access, first, HMI_COLORMODE_MONOCHROME);
    ASSERT_TRUE(color && all && all != color);
    _tagHMIAvailableBorderless borderless;
    ASSERT_EQ(HMIGetAvailableBorderless(access, color, &borderless), TRUE);
    EXPECT_TRUE(borderless.count == 2u && borderless.defaultValue == HMI_OFF);

    HMICloseMediaFile(nullptr, first);  // does nothing: first stays usable
    EXPECT_EQ(HMIGetMediaInfo(access, first, &info), TRUE);
    HMICloseMediaFile(access, nullptr);
    HMICloseMediaFile(access, first);
    HMICloseMediaFile(access, second);
}

TEST_F(FileMedia, DetailFailures) {
    const WString medium = files.Write("medium", MediumXml());
    const WString rejected = files.Write("rejected", MediaXml("<medium><printcolormode/></medium>"));
    const WString prefixed = files.Write("prefixed", MediaXml("<iv:medium/>"));
    for (const auto& [a, id, path] : {std::tuple{(HMIAccess*)nullptr, HMI_W("a"), medium.c_str()},
                                      {access, nullptr, medium.c_str()}, {access, HMI_W("a"), nullptr},
                                      {access, HMI_W("a"), rejected.c_str()}, {access, HMI_W("a"), prefixed.c_str()}})
        EXPECT_EQ(HMIFilterMediaFile(a, id, path), nullptr);
}

}  // namespace
}  // namespace hmitest
