// HMIGetCommonInfoFile, HMIGetAvailableMediaFile and HMIGetMediaInfoHeaderFile through the library,
// from files the tests write; records poisoned first and compared byte for byte.
#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <vector>

#include "unit/file/file_test_files.h"

namespace hmitest {
namespace {

constexpr unsigned char kPoison = 0xCD;  // the byte of Poisoned records
// Sets a field from an ASCII picture of its units: '~' leaves a unit as it was, "\0" zeroes it.
template <size_t N>
void Picture(WCHAR (&field)[N], const std::string& units) {
    ASSERT_LE(units.size(), N);
    for (size_t i = 0; i < units.size(); ++i) {
        if (units[i] != '~') field[i] = static_cast<WCHAR>(units[i]);
    }
}

std::string Z(const std::string& text) { return text + std::string(1, '\0'); }

class FileDatabase : public FileTest {};

TEST_F(FileDatabase, CommonInfoWrittenFieldByFieldInPlace) {
    const struct {
        const char* name;
        std::string body;
        BOOL result;
        std::optional<float> version;
        std::string product, time;  // pictures, see Picture
    } cases[] = {
        {"all fit", "<iv:db_format_ver>1.5</iv:db_format_ver><iv:product_id>ABCDEFGH</iv:product_id>"
                    "<iv:pop-db-time>" + Chars(19) + "</iv:pop-db-time>",
         TRUE, 1.5f, Z("ABCDEFGH"), Z(Chars(19))},
        {"one unit too long each", "<iv:c><iv:db_format_ver>x2</iv:db_format_ver></iv:c><iv:product_id>ABCDEFGHI"
                                   "</iv:product_id><iv:pop-db-time>" + Chars(20) + "</iv:pop-db-time>",
         TRUE, 0.0f, std::string(1, '\0') + "BCDEFGHI", std::string(1, '\0') + Chars(20).substr(1)},
        {"short texts leave the rest", "<iv:pop-db-time>t</iv:pop-db-time><iv:product_id>X'\"</iv:product_id>"
                                       "<iv:db_format_ver>2.25abc</iv:db_format_ver><iv:db_format_ver>9</iv:db_format_ver>",
         TRUE, 2.25f, Z("X'\""), Z("t")},
        {"empty product", "<iv:db_format_ver>3</iv:db_format_ver><iv:product_id/><iv:pop-db-time>t</iv:pop-db-time>",
         FALSE, 3.0f, "", ""},
        {"no version", "<iv:product_id>P</iv:product_id><iv:pop-db-time>t</iv:pop-db-time>", FALSE, {}, "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const WString path = files.Write("common", MediaXml(c.body));
        auto have = Poisoned<_tagHMICommonInfo>();
        EXPECT_EQ(HMIGetCommonInfoFile(access, path.c_str(), &have), c.result);
        auto want = Poisoned<_tagHMICommonInfo>();
        if (c.version) want.db_format_ver = *c.version;
        Picture(want.product_id, c.product);
        Picture(want.pop_db_time, c.time);
        EXPECT_TRUE(SameBytes(have, want));
    }
}

// Sizes around 16 + 130 x 3 = 406; the media list zero-fills the whole buffer it is given.
TEST_F(FileDatabase, AvailableMediaSizesAndEntries) {
    const std::string id64 = Chars(64), id65 = Chars(65, 'A');
    const WString path = files.Write("media", MediaXml(
        PaperType(id64, "") + "<iv:papertype_info/><iv:g>" + PaperType(id65, "") + "</iv:g>" +
        PaperType("", "") + PaperType("q&quot;'", "") + "<papertype_info id=\"none\"/>" + PaperType("q&quot;'", "")));
    const size_t required = 16 + 130 * 6;
    for (const size_t bytes : {size_t{0}, required - 1, required, required + 9}) {
        SCOPED_TRACE(bytes);
        std::vector<unsigned char> block(bytes + 8, kPoison);
        auto* media = bytes ? reinterpret_cast<_tagHMIAvailableMedia*>(block.data()) : nullptr;
        size_t reported = 7;
        ASSERT_EQ(HMIGetAvailableMediaFile(access, path.c_str(), media, bytes, &reported), bytes >= required);
        std::vector<unsigned char> want(bytes + 8, kPoison);
        if (bytes >= required) {
            std::fill(want.begin(), want.begin() + bytes, 0);
            const uint64_t count = 4;
            const auto* ids = reinterpret_cast<const unsigned char*>(block.data() + 16);
            std::memcpy(want.data(), &count, 8);
            std::memcpy(want.data() + 8, &ids, 8);
            const std::string entries[] = {id64, std::string(1, '\0') + id65.substr(1), "q\"'", "q\"'"};
            for (size_t i = 0; i < 4; ++i) {
                for (size_t k = 0; k < entries[i].size(); ++k) {
                    const WCHAR unit = static_cast<WCHAR>(entries[i][k]);
                    std::memcpy(want.data() + 16 + 130 * i + 2 * k, &unit, 2);
                }
            }
        }
        EXPECT_EQ(block, want);
        EXPECT_EQ(reported, bytes >= required ? 7u : required);
    }
    size_t reported = 7;
    const WString none = files.Write("none", MediaXml("<papertype_info id=\"x\"/><iv:papertype_info_list/>"));
    _tagHMIAvailableMedia empty{};
    EXPECT_EQ(HMIGetAvailableMediaFile(access, none.c_str(), &empty, sizeof empty, &reported), FALSE);
    EXPECT_EQ(reported, 7u);
}

TEST_F(FileDatabase, MediaInfoHeaderOfTheElementWithThatId) {
    const std::string id64 = Chars(64), id300 = Chars(300, 'A'), sum32 = Chars(32, 'K');
    const std::string ok = "<iv:visible>ON</iv:visible><iv:checksum>" + sum32 + "</iv:checksum>";
    const WString path = files.Write("headers", MediaXml(
        PaperType("NoSum", "<iv:visible>ON</iv:visible>") + PaperType("Nested", "<iv:g>" + ok + "</iv:g>") +
        PaperType("word", "<iv:visible>ONE</iv:visible><iv:checksum>" + Chars(33, 'K') + "</iv:checksum>") +
        PaperType("NoVisible", "<visible>ON</visible><iv:checksum>s</iv:checksum>") +
        PaperType(id64, ok) + PaperType(id300, ok) + "<iv:checksum>stray</iv:checksum>"));
    const struct {
        std::string id;
        BOOL result;
        std::string idPicture;
        std::optional<BOOL> visible;
        std::string checksum;
    } cases[] = {
        {"Nested", TRUE, Z("Nested"), TRUE, Z(sum32)},
        {"word", TRUE, Z("word"), FALSE, std::string(1, '\0') + Chars(33, 'K').substr(1)},
        {id64, TRUE, Z(id64), TRUE, Z(sum32)},
        {id300, TRUE, std::string(1, '\0') + id300.substr(1, 64), TRUE, Z(sum32)},
        {"NoSum", FALSE, Z("NoSum"), TRUE, ""}, {"NoVisible", FALSE, Z("NoVisible"), {}, ""},
        {"nested", FALSE, "", {}, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id.substr(0, 12));
        auto have = Poisoned<_tagHMIMediaInfoHeader>();
        EXPECT_EQ(HMIGetMediaInfoHeaderFile(access, path.c_str(), W(c.id).c_str(), &have), c.result);
        auto want = Poisoned<_tagHMIMediaInfoHeader>();
        Picture(want.id, c.idPicture);
        if (!c.idPicture.empty()) want.valid = 4, want.media_number = 0;
        if (c.visible) want.visible = *c.visible;
        Picture(want.checksum, c.checksum);
        EXPECT_TRUE(SameBytes(have, want));
    }
}

}  // namespace
}  // namespace hmitest
