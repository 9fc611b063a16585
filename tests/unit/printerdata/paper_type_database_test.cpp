// The paper-type database as HMIOpen loads it from printer data, checked through the exports.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "support/fault_injection.h"
#include "support/media_database.h"

namespace hmitest {
namespace {

class PaperTypeDatabase : public ::testing::Test {
protected:
    void TearDown() override { HMIClose(access); }

    HMIAccess* Open(const std::vector<MediumEntry>& media, long listCount = -1) {
        EXPECT_TRUE(printer.ok());
        EXPECT_TRUE(WriteDatabase(printer, media, listCount));
        access = HMIOpen(printer.Reopen());
        return access;
    }

    std::vector<WString> Ids() {
        size_t required = 0;
        EXPECT_FALSE(HMIGetAvailableMedia(access, nullptr, 0, &required));
        std::vector<unsigned char> block(required);
        auto* media = reinterpret_cast<_tagHMIAvailableMedia*>(block.data());
        EXPECT_TRUE(HMIGetAvailableMedia(access, media, block.size(), nullptr));
        std::vector<WString> ids;
        for (uint64_t i = 0; i < media->count; ++i) ids.emplace_back(media->ids[i]);
        return ids;
    }

    TestPrinter printer;
    HMIAccess* access = nullptr;
};

const std::vector<MediumEntry> kThreeMedia = {
    {"0000001A", "PhotoGlossyPro"}, {"00000002", "PlainPaper", 0, 0}, {"00000003", "MatteFineArt"}};

TEST_F(PaperTypeDatabase, RecordsAreCopiedWhole) {
    ASSERT_NE(Open(kThreeMedia), nullptr);
    _tagHMICommonInfo info;
    std::memset(&info, 0xCD, sizeof info);
    ASSERT_EQ(HMIGetCommonInfo(access, &info), 1);
    _tagHMICommonInfo expectedInfo = {};
    expectedInfo.db_format_ver = 2.10f;
    std::memcpy(expectedInfo.product_id, W("XR-2400").c_str(), 7 * sizeof(WCHAR));
    std::memcpy(expectedInfo.pop_db_time, W("2026-11-23 09:30:00").c_str(), 19 * sizeof(WCHAR));
    EXPECT_EQ(std::memcmp(&info, &expectedInfo, sizeof info), 0);

    _tagHMIMediaInfoHeader header;
    std::memset(&header, 0xCD, sizeof header);
    ASSERT_EQ(HMIGetMediaInfoHeader(access, HMI_W("PhotoGlossyPro"), &header), 1);
    _tagHMIMediaInfoHeader expected = {};
    std::memcpy(expected.id, W("PhotoGlossyPro").c_str(), 14 * sizeof(WCHAR));
    expected.visible = 1;
    expected.valid = 1;
    expected.media_number = 0x1A;
    std::memcpy(expected.checksum, W(kThreeMedia[0].checksum).c_str(), 32 * sizeof(WCHAR));
    EXPECT_EQ(std::memcmp(&header, &expected, sizeof header), 0);

    ASSERT_EQ(HMIGetMediaInfoHeader(access, HMI_W("PlainPaper"), &header), 1);
    EXPECT_EQ(header.valid, 0u);
    EXPECT_EQ(header.visible, 0);
    EXPECT_EQ(HMIGetMediaInfoHeader(access, HMI_W("plainpaper"), &header), 0);
    EXPECT_EQ(HMIGetMediaInfoHeader(access, nullptr, &header), 0);
    EXPECT_EQ(HMIGetMediaInfoHeader(access, HMI_W("PlainPaper"), nullptr), 0);
}

TEST_F(PaperTypeDatabase, MediaListSizingAndSelfPointer) {
    ASSERT_NE(Open(kThreeMedia), nullptr);
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
    for (size_t i = 406; i < buffer.size(); ++i) EXPECT_EQ(buffer[i], 0xCD) << "byte " << i;
}

// Entries that cannot be read are skipped; number texts parse as hexadecimal; a repeated id is
// listed again while its first header stays.
TEST_F(PaperTypeDatabase, ListEntries) {
    ASSERT_TRUE(WriteDatabase(printer, {{"0000001A", "Upper"}, {"1a", "LowerCase"}, {"100000000", "Overflow"},
                                        {"xyz", "NoDigits"}, {"00000002", "Same"}, {"00000003", "Same"},
                                        {"00000004", "Removed"}}));
    ASSERT_TRUE(printer.Remove(kMediaKey, HMI_W("006")));
    access = HMIOpen(printer.Reopen());
    ASSERT_NE(access, nullptr);
    EXPECT_EQ(Ids(), (std::vector<WString>{W("Upper"), W("LowerCase"), W("NoDigits"), W("Same"), W("Same")}));
    const std::pair<const char*, DWORD> numbers[] = {{"LowerCase", 0x1A}, {"NoDigits", 0}, {"Same", 2}};
    for (const auto& [id, number] : numbers) {
        _tagHMIMediaInfoHeader header;
        ASSERT_TRUE(HMIGetMediaInfoHeader(access, W(id).c_str(), &header)) << id;
        EXPECT_EQ(header.media_number, number) << id;
    }
}

TEST_F(PaperTypeDatabase, EmptyAndHugeListCounts) {
    ASSERT_NE(Open({}, 0), nullptr);
    size_t required = 0;
    EXPECT_FALSE(HMIGetAvailableMedia(access, nullptr, 0, &required));
    EXPECT_EQ(required, 16u);
    HMIClose(access);
    // A count that no stored entries back must not size memory or loops.
    access = nullptr;
    ASSERT_NE(Open(kThreeMedia, 0xFFFFFFFF), nullptr);
    EXPECT_EQ(Ids().size(), 3u);
}

TEST_F(PaperTypeDatabase, FixedSizeValues) {
    ASSERT_TRUE(WriteDatabase(printer, {{"00000001", "Only"}}));
    // 9 units without a terminator fill product_id completely.
    const WString product = W("ABCDEFGHI");
    ASSERT_TRUE(printer.Set(kMediaKey, HMI_W("product_id"), REG_SZ, product.data(), 18));
    // An id of 65 units without a terminator becomes the empty id.
    const WString longId(65, 'x');
    ASSERT_TRUE(printer.Set((kMediaKey + W("\\00000001")).c_str(), HMI_W("id"), REG_SZ, longId.data(), 130));
    // A version stored without a terminator, and not as text, is still read within its bounds.
    const WString version = W("1.25");
    ASSERT_TRUE(printer.Set(kMediaKey, HMI_W("db_format_ver"), REG_BINARY, version.data(), 8));
    access = HMIOpen(printer.Reopen());
    ASSERT_NE(access, nullptr);
    _tagHMICommonInfo info;
    ASSERT_TRUE(HMIGetCommonInfo(access, &info));
    EXPECT_EQ(std::memcmp(info.product_id, product.data(), 18), 0);
    EXPECT_FLOAT_EQ(info.db_format_ver, 1.25f);
    EXPECT_EQ(Ids(), std::vector<WString>{WString()});
    _tagHMIMediaInfoHeader header;
    ASSERT_TRUE(HMIGetMediaInfoHeader(access, HMI_W(""), &header));
    EXPECT_EQ(std::memcmp(header.id, WString(65, 0).data(), sizeof header.id), 0);
}

struct BrokenValue {
    const char* name;
    DWORD type;
    std::vector<unsigned char> data;  // empty with remove = true: the value is missing
    bool remove;
    bool opens;
};

class BrokenCommonValue : public PaperTypeDatabase, public ::testing::WithParamInterface<BrokenValue> {};

TEST_P(BrokenCommonValue, DecidesWhetherTheOpenFails) {
    const BrokenValue& c = GetParam();
    ASSERT_TRUE(WriteDatabase(printer, kThreeMedia));
    const WString name = W(c.name);
    if (c.remove) {
        ASSERT_TRUE(printer.Remove(kMediaKey, name.c_str()));
    } else {
        ASSERT_TRUE(printer.Set(kMediaKey, name.c_str(), c.type, c.data.data(), static_cast<DWORD>(c.data.size())));
    }
    access = HMIOpen(printer.Reopen());
    EXPECT_EQ(access != nullptr, c.opens);
    if (access && std::string(c.name) == "db_format_ver") {
        _tagHMICommonInfo info;
        ASSERT_TRUE(HMIGetCommonInfo(access, &info));
        EXPECT_EQ(info.db_format_ver, 0.0f);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Values, BrokenCommonValue,
    ::testing::Values(BrokenValue{"db_format_ver", REG_SZ, {}, true, false},
                      BrokenValue{"db_format_ver", REG_SZ, {}, false, false},
                      BrokenValue{"db_format_ver", REG_SZ, {'a', 0, 'b', 0, 0, 0}, false, true},
                      BrokenValue{"product_id", REG_SZ, {}, true, false},
                      BrokenValue{"product_id", REG_SZ, std::vector<unsigned char>(20, 'A'), false, false},
                      BrokenValue{"pop-db-time", REG_SZ, std::vector<unsigned char>(42, 'A'), false, false},
                      BrokenValue{"pop-db-time", REG_SZ, {}, true, false},
                      BrokenValue{"papertype_info_list", REG_DWORD, {}, true, false},
                      BrokenValue{"papertype_info_list", REG_BINARY, {1, 0, 0, 0, 0}, false, false},
                      BrokenValue{"papertype_info_list", REG_BINARY, {2}, false, true}));

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

TEST(AccessHandle, NullArgumentsFailEveryExport) {
    _tagHMICommonInfo info;
    _tagHMIMediaInfoHeader header;
    size_t required = 5;
    WCHAR name[8];
    EXPECT_EQ(HMIUpdatePrinterHandle(nullptr, nullptr), 0);
    EXPECT_EQ(HMIGetCommonInfo(nullptr, &info), 0);
    EXPECT_EQ(HMIGetAvailableMedia(nullptr, nullptr, 0, &required), 0);
    EXPECT_EQ(required, 5u);
    EXPECT_EQ(HMIGetMediaInfoHeader(nullptr, HMI_W("x"), &header), 0);
    EXPECT_EQ(HMIGetMediaName(nullptr, HMI_W("x"), HMI_W("en"), name, 8, &required), 0);
    HMIClose(nullptr);
    // Without a printer the database stays empty, also after a printer handle is given later.
    TestPrinter printer;
    ASSERT_TRUE(WriteDatabase(printer, {{"00000001", "x"}}));
    HMIAccess* access = HMIOpen(nullptr);
    ASSERT_NE(access, nullptr);
    EXPECT_EQ(HMIUpdatePrinterHandle(access, printer.Reopen()), 1);
    EXPECT_EQ(HMIGetCommonInfo(access, &info), 0);
    EXPECT_EQ(HMIGetAvailableMedia(access, nullptr, 0, &required), 0);
    EXPECT_EQ(required, 5u);
    EXPECT_EQ(HMIGetMediaInfoHeader(access, HMI_W("x"), &header), 0);
    HMIClose(access);
}

}  // namespace
}  // namespace hmitest
