// The paper-type database as HMIOpen loads it from printer data, checked through the exports.
#include <gtest/gtest.h>

#include <vector>

#include "support/fault_injection.h"
#include "support/full_medium.h"

namespace hmitest {
namespace {

const std::vector<MediumEntry> kThreeMedia = {
    {"0000001A", "PhotoGlossyPro"}, {"00000002", "PlainPaper", 0, 0}, {"00000003", "MatteFineArt"}};

class PaperTypeDatabase : public ::testing::Test {
protected:
    void TearDown() override { HMIClose(access); }
    HMIAccess* Open(const std::vector<MediumEntry>& media, long listCount = -1) {
        EXPECT_TRUE(WriteDatabase(printer, media, listCount));
        return access = HMIOpen(printer.Reopen());
    }
    std::vector<WString> Ids() {
        size_t required = 0;
        EXPECT_FALSE(HMIGetAvailableMedia(access, nullptr, 0, &required));
        std::vector<unsigned char> block(required);
        auto* media = reinterpret_cast<_tagHMIAvailableMedia*>(block.data());
        EXPECT_TRUE(HMIGetAvailableMedia(access, media, block.size(), nullptr));
        return std::vector<WString>(media->ids, media->ids + media->count);
    }
    TestPrinter printer;
    HMIAccess* access = nullptr;
};

TEST_F(PaperTypeDatabase, RecordsAreCopiedWhole) {
    ASSERT_NE(Open(kThreeMedia), nullptr);
    auto info = Poisoned<_tagHMICommonInfo>();
    ASSERT_EQ(HMIGetCommonInfo(access, &info), 1);
    auto expectedInfo = Zeroed<_tagHMICommonInfo>();
    expectedInfo.db_format_ver = 2.10f;
    Put(expectedInfo.product_id, HMI_W("XR-2400"));
    Put(expectedInfo.pop_db_time, HMI_W("2026-11-23 09:30:00"));
    EXPECT_TRUE(SameBytes(info, expectedInfo));
    auto header = Poisoned<_tagHMIMediaInfoHeader>();
    ASSERT_EQ(HMIGetMediaInfoHeader(access, HMI_W("PhotoGlossyPro"), &header), 1);
    auto expected = Zeroed<_tagHMIMediaInfoHeader>();
    Put(expected.id, HMI_W("PhotoGlossyPro"));
    expected.visible = 1;
    expected.valid = 1;
    expected.media_number = 0x1A;
    Put(expected.checksum, W(kThreeMedia[0].checksum).c_str());
    EXPECT_TRUE(SameBytes(header, expected));
    ASSERT_EQ(HMIGetMediaInfoHeader(access, HMI_W("PlainPaper"), &header), 1);
    EXPECT_TRUE(header.valid == 0u && header.visible == 0);
    EXPECT_EQ(HMIGetMediaInfoHeader(access, HMI_W("plainpaper"), &header), 0);
    EXPECT_EQ(HMIGetMediaInfoHeader(access, nullptr, &header), 0);
    EXPECT_EQ(HMIGetMediaInfoHeader(access, HMI_W("PlainPaper"), nullptr), 0);
}

// 16 + 130 x 3 = 406 bytes; a count that no stored entries back must not size memory or loops.
TEST_F(PaperTypeDatabase, MediaListSizingAndSelfPointer) {
    ASSERT_NE(Open(kThreeMedia, 0xFFFFFFFF), nullptr);
    size_t required = 0;
    EXPECT_EQ(HMIGetAvailableMedia(access, nullptr, 0, &required), 0);
    EXPECT_EQ(required, 406u);
    std::vector<unsigned char> buffer(406 + 8, 0xCD);
    auto* media = reinterpret_cast<_tagHMIAvailableMedia*>(buffer.data());
    required = 0;
    EXPECT_EQ(HMIGetAvailableMedia(access, media, 405, &required), 0);
    EXPECT_EQ(required, 406u);
    required = 777;
    ASSERT_EQ(HMIGetAvailableMedia(access, media, 406, &required), 1);
    EXPECT_EQ(required, 777u);
    EXPECT_EQ(media->count, 3u);
    EXPECT_EQ(reinterpret_cast<unsigned char*>(media->ids), buffer.data() + 16);
    EXPECT_EQ(WString(media->ids[2]), W("MatteFineArt"));
    EXPECT_EQ(media->ids[1][64], 0);  // built from a zero-filled block
    EXPECT_EQ(std::vector<unsigned char>(buffer.begin() + 406, buffer.end()), std::vector<unsigned char>(8, 0xCD));
    HMIClose(access);
    ASSERT_NE(Open({}, 0), nullptr);
    EXPECT_FALSE(HMIGetAvailableMedia(access, nullptr, 0, &required));
    EXPECT_EQ(required, 16u);
}

// Entries that cannot be read are skipped; number texts parse as hexadecimal; a repeated id is
// listed again while its first header stays.
TEST_F(PaperTypeDatabase, ListEntries) {
    ASSERT_TRUE(WriteDatabase(printer, {{"0000001A", "Upper"}, {"1a", "LowerCase"}, {"100000000", "Overflow"},
                                        {"xyz", "NoDigits"}, {"00000002", "Same"}, {"00000003", "Same"},
                                        {"00000004", "Removed"}}));
    ASSERT_TRUE(printer.Remove(kMediaKey, HMI_W("006")));
    ASSERT_NE(access = HMIOpen(printer.Reopen()), nullptr);
    EXPECT_EQ(Ids(), (std::vector<WString>{W("Upper"), W("LowerCase"), W("NoDigits"), W("Same"), W("Same")}));
    for (const auto& [id, number] : {std::pair{"LowerCase", 0x1Au}, {"NoDigits", 0u}, {"Same", 2u}}) {
        _tagHMIMediaInfoHeader header;
        ASSERT_TRUE(HMIGetMediaInfoHeader(access, W(id).c_str(), &header)) << id;
        EXPECT_EQ(header.media_number, number) << id;
    }
}

TEST_F(PaperTypeDatabase, FixedSizeValues) {
    ASSERT_TRUE(WriteDatabase(printer, {{"00000001", "Only"}}));
    // 9 units without a terminator fill product_id; an id of 65 units without one becomes the empty id; a
    // version stored without a terminator, and not as text, is still read within its bounds.
    const WString product = W("ABCDEFGHI"), longId(65, 'x'), version = W("1.25");
    ASSERT_TRUE(printer.Set(kMediaKey, HMI_W("product_id"), REG_SZ, product.data(), 18));
    ASSERT_TRUE(printer.Set((kMediaKey + W("\\00000001")).c_str(), HMI_W("id"), REG_SZ, longId.data(), 130));
    ASSERT_TRUE(printer.Set(kMediaKey, HMI_W("db_format_ver"), REG_BINARY, version.data(), 8));
    ASSERT_NE(access = HMIOpen(printer.Reopen()), nullptr);
    _tagHMICommonInfo info;
    ASSERT_TRUE(HMIGetCommonInfo(access, &info));
    EXPECT_EQ(WString(info.product_id, 9), product);
    EXPECT_FLOAT_EQ(info.db_format_ver, 1.25f);
    EXPECT_EQ(Ids(), std::vector<WString>{WString()});
    auto header = Poisoned<_tagHMIMediaInfoHeader>();
    ASSERT_TRUE(HMIGetMediaInfoHeader(access, HMI_W(""), &header));
    EXPECT_EQ(WString(header.id, 65), WString(65, 0));
}

// A common value missing or unreadable fails the open, except a version that is not a number (read as 0).
TEST(BrokenCommonValue, DecidesWhetherTheOpenFails) {
    const struct {
        const char* name;
        DWORD type;
        std::vector<unsigned char> data;  // empty with remove = true: the value is missing
        bool remove, opens;
    } cases[] = {
        {"db_format_ver", REG_SZ, {}, true, false}, {"db_format_ver", REG_SZ, {'a', 0, 'b', 0, 0, 0}, false, true},
        {"product_id", REG_SZ, std::vector<unsigned char>(20, 'A'), false, false},
        {"pop-db-time", REG_SZ, std::vector<unsigned char>(42, 'A'), false, false},
        {"papertype_info_list", REG_BINARY, {1, 0, 0, 0, 0}, false, false},
        {"papertype_info_list", REG_BINARY, {2}, false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << "case #" << (&c - cases));
        TestPrinter printer;
        ASSERT_TRUE(WriteDatabase(printer, kThreeMedia));
        const WString name = W(c.name);
        ASSERT_TRUE(c.remove ? printer.Remove(kMediaKey, name.c_str())
                             : printer.Set(kMediaKey, name.c_str(), c.type, c.data.data(), DWORD(c.data.size())));
        HMIAccess* access = HMIOpen(printer.Reopen());
        EXPECT_EQ(access != nullptr, c.opens);
        _tagHMICommonInfo info;
        const float version = c.data.size() == 6 ? 0.0f : 2.10f;
        EXPECT_TRUE(!access || (HMIGetCommonInfo(access, &info) && info.db_format_ver == version));
        HMIClose(access);
    }
}

TEST_F(PaperTypeDatabase, AllocationFailureAtEveryStepOfTheLoad) {
    ASSERT_TRUE(WriteDatabase(printer, kThreeMedia));
    HANDLE handle = printer.Reopen();
    const long before = LiveAllocations();
    long failures = ForEachAllocationFailure(
        [&] {
            HMIAccess* opened = HMIOpen(handle);
            // A load that survives a failure may only have dropped media, never produced wrong ones.
            _tagHMIMediaInfoHeader header;
            if (opened && HMIGetMediaInfoHeader(opened, HMI_W("MatteFineArt"), &header)) {
                EXPECT_EQ(header.media_number, 3u);
            }
            HMIClose(opened);
        },
        [&](bool) { EXPECT_EQ(LiveAllocations(), before); });
    EXPECT_GT(failures, 5);
}

// A printer given after an open without one adds no database.
TEST(AccessHandle, ALaterPrinterAddsNoDatabase) {
    _tagHMICommonInfo info;
    _tagHMIMediaInfoHeader header;
    TestPrinter printer;
    ASSERT_TRUE(WriteDatabase(printer, {{"00000001", "x"}}));
    HMIAccess* access = HMIOpen(nullptr);
    ASSERT_EQ(HMIUpdatePrinterHandle(access, printer.Reopen()), 1);
    EXPECT_EQ(HMIGetCommonInfo(access, &info), 0);
    EXPECT_EQ(HMIGetMediaInfoHeader(access, HMI_W("x"), &header), 0);
    HMIClose(access);
}

}  // namespace
}  // namespace hmitest
