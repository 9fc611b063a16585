// The media queries through the built library: the detail cache, the "all" fallback of every level,
// records byte for byte, media that fail without being cached, and null arguments.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <type_traits>

#include "support/full_medium.h"

namespace hmitest {
namespace {

// A C caller may pass any 32 bits for an enumeration: such calls go through the export's address with
// int32_t in each enumeration's place (the same ABI).
template <typename T>
using RawArgument = std::conditional_t<std::is_enum_v<T>, int32_t, T>;
template <typename R, typename... A>
auto WithRawEnums(R (*entry)(A...)) { return reinterpret_cast<R (*)(RawArgument<A>...)>(entry); }

// Each node is marked by its record: a colour mode by its borderless default, a borderless mode by its
// purpose default, a purpose by its operation flag.
const char* kCascade = R"(
  <printcolormode type="color"><availableborderlessprint default="ON"/>
    <borderlessprint type="ON"><availableprint_purpose default="photo"/>
      <print_purpose type="photo"><operationflag>10</operationflag></print_purpose>
      <print_purpose type="all"><operationflag>14</operationflag></print_purpose></borderlessprint>
    <borderlessprint type="all"><availableprint_purpose default="proof"/>
      <print_purpose type="cad"><operationflag>32</operationflag></print_purpose></borderlessprint></printcolormode>
  <printcolormode type="all"><availableborderlessprint default="OFF"/>
    <borderlessprint type="OFF"><availableprint_purpose default="cad"/></borderlessprint></printcolormode>
  <printcolormode type="sepia"><availableborderlessprint default="all"/></printcolormode>)";
const char* kNoAll = R"(<printcolormode type="color"><availableborderlessprint default="OFF"/>
    <borderlessprint type="all"><availableprint_purpose default="proof"/>
      <print_purpose type="all"><operationflag>5</operationflag></print_purpose></borderlessprint></printcolormode>)";
const std::string kId64(64, 'L');

class MediaQueries : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(WriteDatabase(printer, {{"00000001", "Full"}, {"00000002", "full"}, {"00000010", "Cascade"},
                                            {"00000011", "NoAll"}, {"00000030", "Broken0"}, {"00000031", "Broken1"},
                                            {"00000032", "Broken2"}, {"00000033", "Broken3"}, {"00000040", kId64},
                                            {"00000041", kId64 + "X"}}));
        ASSERT_TRUE(WriteMedium(printer, 0x01, FullMediumBody()) && WriteMedium(printer, 0x02, W(kNoAll)) &&
                    WriteMedium(printer, 0x10, W(kCascade)) && WriteMedium(printer, 0x11, W(kNoAll)) &&
                    WriteMedium(printer, 0x40, FullMediumBody()) && WriteMedium(printer, 0x41, FullMediumBody()));
        ASSERT_NE(access = HMIOpen(printer.Reopen()), nullptr);
    }
    void TearDown() override { HMIClose(access); }

    HMIXMLMediaDetail* Media(const std::string& id) { return HMIFilterMedia(access, W(id).c_str()); }
    bool HasFullInfo(const std::string& id) {  // the medium's record equals that of FullMediumBody
        auto info = Poisoned<_tagHMIMediaInfo>();
        const WString wide = W(id);
        return HMIGetMediaInfoDirect(access, wide.c_str(), &info) == 1 && SameBytes(info, FullMediumInfo(wide.c_str()));
    }

    TestPrinter printer;
    HMIAccess* access = nullptr;
};

TEST_F(MediaQueries, CachedDetailIsReturnedWithoutReadingThePrinterAgain) {
    HMIXMLMediaDetail* full = Media("Full");
    ASSERT_NE(full, nullptr);
    // Ids are compared case-sensitively: "full" is another medium, "FULL" none.
    HMIXMLMediaDetail* lower = Media("full");
    EXPECT_TRUE(lower != nullptr && lower != full);
    EXPECT_EQ(Media("FULL"), nullptr);
    ASSERT_TRUE(printer.Remove(MediumKey(0x01, "HMI").c_str(), HMI_W("")));
    EXPECT_EQ(Media("Full"), full);
    ASSERT_EQ(HMIUpdatePrinterHandle(access, nullptr), 1);
    EXPECT_EQ(Media("Full"), full);
    EXPECT_TRUE(HasFullInfo("Full"));
    EXPECT_EQ(Media("Cascade"), nullptr);
}

// The id is read afresh on every call: one caller buffer, rewritten between calls, names each medium in
// turn, and an id that only begins with the medium found last (or is that id cut short) is another.
TEST_F(MediaQueries, RewrittenIdBufferNamesEachMediumInTurn) {
    WCHAR buffer[80] = {};
    const auto filter = [&](const std::string& id) {
        const WString wide = W(id);
        std::copy(wide.c_str(), wide.c_str() + wide.size() + 1, buffer);
        return HMIFilterMedia(access, buffer);
    };
    HMIXMLMediaDetail* full = filter("Full");
    HMIXMLMediaDetail* lower = filter("full");
    ASSERT_TRUE(full && lower && full != lower);
    EXPECT_EQ(filter("Full"), full);
    EXPECT_EQ(filter("FullX"), nullptr);
    EXPECT_EQ(filter("Ful"), nullptr);
    EXPECT_EQ(filter("full"), lower);
    HMIXMLMediaDetail* longest = filter(kId64);
    EXPECT_NE(longest, nullptr);
    EXPECT_EQ(filter(kId64 + "X"), nullptr);
    EXPECT_EQ(filter(kId64), longest);
}

// Every chain of filters and its Direct form give the same node; -1 marks no node.
TEST_F(MediaQueries, EveryLevelFallsBackToAllAndNothingElse) {
    const struct {
        const char* id;
        int32_t color, onoff, purpose;
        int depth;
        int64_t mark;
    } rows[] = {
        {"Cascade", 0, 0, 0, 1, HMI_ON}, {"Cascade", 1, 0, 0, 1, HMI_OFF},
        {"Cascade", 4, 0, 0, 1, HMI_ONOFF_ALL},  // "sepia", filed as invalid
        {"Cascade", 0x7FFFFFFF, 0, 0, 1, HMI_OFF}, {"Cascade", -1, 0, 0, 1, HMI_OFF},
        {"NoAll", 0, 0, 0, 1, HMI_OFF}, {"NoAll", 1, 0, 0, 1, -1},
        {"Cascade", 0, 1, 0, 2, HMI_PRINTPURPOSE_PHOTO}, {"Cascade", 0, 0x7FFFFFFF, 0, 2, HMI_PRINTPURPOSE_PROOF},
        {"Cascade", 1, 0, 0, 2, HMI_PRINTPURPOSE_CAD}, {"Cascade", 1, 1, 0, 2, -1},  // no "all" below "all"
        {"Cascade", 0, 1, 0, 3, 0x10}, {"Cascade", 0, 1, -1, 3, 0x14}, {"Cascade", 0, 0, 2, 3, 0x32},
        {"Cascade", 0, 0, 0, 3, -1}, {"NoAll", 0, 0, 1000, 3, 5},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(std::string(r.id) + " " + std::to_string(r.color) + "/" + std::to_string(r.onoff) + "/" +
                     std::to_string(r.purpose));
        const WString id = W(r.id);
        HMIXMLMediaDetail* detail = HMIFilterMedia(access, id.c_str());
        ASSERT_NE(detail, nullptr);
        HMIXMLMediaColorMode* mode = WithRawEnums(HMIFilterColorMode)(access, detail, r.color);
        EXPECT_EQ(WithRawEnums(HMIFilterColorModeDirect)(access, id.c_str(), r.color), mode);
        auto* borderless = mode ? WithRawEnums(HMIFilterBorderless)(access, mode, r.onoff) : nullptr;
        EXPECT_EQ(WithRawEnums(HMIFilterBorderlessDirect)(access, id.c_str(), r.color, r.onoff), borderless);
        auto* node = borderless ? WithRawEnums(HMIFilterPrintPurpose)(access, borderless, r.purpose) : nullptr;
        EXPECT_EQ(WithRawEnums(HMIFilterPrintPurposeDirect)(access, id.c_str(), r.color, r.onoff, r.purpose), node);
        int64_t mark = -1;
        _tagHMIAvailableBorderless onoffs;
        _tagHMIAvailablePrintPurpose purposes;
        _tagHMIPrintPurposeInfo info;
        if (r.depth == 1 && HMIGetAvailableBorderless(access, mode, &onoffs)) mark = onoffs.defaultValue;
        if (r.depth == 2 && HMIGetAvailablePrintPurpose(access, borderless, &purposes)) mark = purposes.defaultValue;
        if (r.depth == 3 && HMIGetPrintPurposeInfo(access, node, &info)) mark = int64_t(info.operationflag);
        EXPECT_EQ(mark, r.mark);
    }
}

TEST_F(MediaQueries, RecordsAreCopiedByteForByte) {
    const WString id = W("Full");
    HMIXMLMediaDetail* detail = Media("Full");
    const _tagHMIMediaInfo expected = FullMediumInfo(id.c_str());
    auto info = Poisoned<_tagHMIMediaInfo>(), direct = info;
    EXPECT_TRUE(HMIGetMediaInfo(access, detail, &info) == 1 && SameBytes(info, expected));
    EXPECT_TRUE(HMIGetMediaInfoDirect(access, id.c_str(), &direct) == 1 && SameBytes(direct, expected));
    auto colors = Poisoned<_tagHMIAvailableColorMode>();
    EXPECT_TRUE(HMIGetAvailableColorMode(access, detail, &colors) == 1 &&
                SameBytes(colors, expected.availableprintcolormode));
    HMIXMLMediaColorMode* color = HMIFilterColorMode(access, detail, HMI_COLORMODE_COLOR);
    auto onoffs = Poisoned<_tagHMIAvailableBorderless>();
    EXPECT_TRUE(HMIGetAvailableBorderless(access, color, &onoffs) == 1 && SameBytes(onoffs, FullColorBorderless()));
    HMIXMLMediaBorderlessMode* on = HMIFilterBorderless(access, color, HMI_ON);
    auto purposes = Poisoned<_tagHMIAvailablePrintPurpose>();
    EXPECT_TRUE(HMIGetAvailablePrintPurpose(access, on, &purposes) == 1 && SameBytes(purposes, FullOnPurposes()));
    HMIXMLMediaPrintPurpose* photo = HMIFilterPrintPurpose(access, on, HMI_PRINTPURPOSE_PHOTO);
    auto purpose = Poisoned<_tagHMIPrintPurposeInfo>();
    EXPECT_TRUE(HMIGetPrintPurposeInfo(access, photo, &purpose) == 1 && SameBytes(purpose, FullPhotoPurpose()));
}

// Variants 0 to 3 each read their own list and dictionary; quality "all" is the only fallback.
TEST_F(MediaQueries, QualityVariantsReadTheirOwnListAndDictionary) {
    HMIXMLMediaPrintPurpose* photo = HMIFilterPrintPurposeDirect(access, HMI_W("Full"), HMI_COLORMODE_COLOR, HMI_ON,
                                                                 HMI_PRINTPURPOSE_PHOTO);
    ASSERT_NE(photo, nullptr);
    const _tagHMIPrintPurposeInfo info = FullPhotoPurpose();
    const _tagHMIAvailablePrintQuality* lists[] = {&info.availableprintquality_rgb,
                                                    &info.availableprintquality_cmyk_4DLUT,
                                                    &info.availableprintquality_cmyk_1DLUT, &info.printquality_index};
    for (DWORD variant : {0u, 1u, 2u, 3u, 4u, 0xFFFFFFFFu}) {
        auto list = Poisoned<_tagHMIAvailablePrintQuality>();
        EXPECT_EQ(HMIGetAvailablePrintQuality(access, photo, variant, &list), variant < 4 ? 1 : 0) << variant;
        EXPECT_TRUE(SameBytes(list, variant < 4 ? *lists[variant] : Poisoned<_tagHMIAvailablePrintQuality>()));
    }
    using Q = _tagHMIPrintQualityInfo;
    const Q rgb3 = FullRgbQuality(), all = Zeroed<Q>(HMI_PRINTQUALITY_ALL, HMI_3POS_ALL);
    const Q cmyk1 = Zeroed<Q>(HMI_PRINTQUALITY_1, HMI_3POS_FINE), index2 = Zeroed<Q>(HMI_PRINTQUALITY_2, HMI_3POS_FINE);
    const Q index5 = Zeroed<Q>(HMI_PRINTQUALITY_5, HMI_3POS_DRAFT);
    const struct {
        DWORD variant;
        int32_t quality;
        const Q* expected;  // null: the call fails
    } rows[] = {
        {0, HMI_PRINTQUALITY_3, &rgb3},   {0, HMI_PRINTQUALITY_1, nullptr}, {1, -1, &all},
        {2, HMI_PRINTQUALITY_1, &cmyk1},  {2, HMI_PRINTQUALITY_5, nullptr}, {3, HMI_PRINTQUALITY_5, &index5},
        {3, HMI_PRINTQUALITY_2, &index2}, {4, HMI_PRINTQUALITY_3, nullptr},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE("variant " + std::to_string(r.variant) + ", quality " + std::to_string(r.quality));
        auto quality = Poisoned<Q>();
        EXPECT_EQ(WithRawEnums(HMIGetPrintQualityInfo)(access, photo, r.variant, r.quality, &quality),
                  r.expected ? 1 : 0);
        EXPECT_TRUE(SameBytes(quality, r.expected ? *r.expected : Poisoned<Q>()));
    }
}

// A medium that cannot be built fails each time and is not cached: once its data is repaired, it loads.
TEST_F(MediaQueries, BrokenMediumFailsEveryTimeUntilRepaired) {
    const WString key = MediumKey(0x31, "HMI");
    const std::function<bool()> breakData[] = {
        [] { return true; },  // no document
        [&] { return WriteMedium(printer, 0x31, FullMediumBody()) && printer.Remove(key.c_str(), HMI_W("001")); },
        [&] { return WriteMediaDocument(printer, 0x32, W("<media><medium>"), 512); },  // not well formed
        [&] { return WriteMedium(printer, 0x33, W("<printcolormode/>")); },  // rejected: no type
    };
    for (DWORD number = 0x30; number < 0x34; ++number) {
        const std::string name = "Broken" + std::to_string(number - 0x30);
        const WString id = W(name);
        SCOPED_TRACE(name);
        ASSERT_TRUE(breakData[number - 0x30]());
        for (int attempt = 0; attempt < 2; ++attempt) {
            EXPECT_EQ(HMIFilterMedia(access, id.c_str()), nullptr);
            auto info = Poisoned<_tagHMIMediaInfo>();
            EXPECT_EQ(HMIGetMediaInfoDirect(access, id.c_str(), &info), 0);
            EXPECT_TRUE(SameBytes(info, Poisoned<_tagHMIMediaInfo>()));
            EXPECT_EQ(HMIFilterColorModeDirect(access, id.c_str(), HMI_COLORMODE_COLOR), nullptr);
        }
        ASSERT_TRUE(WriteMedium(printer, number, FullMediumBody()));
        EXPECT_TRUE(HasFullInfo(name));
    }
}

// Both long ids have documents, but the database keeps no id longer than 64 units. After a printer
// change the database stays that of the first printer; documents come from the current one.
TEST_F(MediaQueries, MediaOfTheFirstDatabaseLoadFromTheCurrentPrinter) {
    EXPECT_TRUE(HasFullInfo(kId64));
    EXPECT_EQ(Media(kId64 + "X"), nullptr);
    EXPECT_EQ(Media(""), nullptr);
    HMIXMLMediaDetail* full = Media("Full");
    ASSERT_NE(full, nullptr);
    // Ids are compared case-sensitively: "full" is another medium, "FULL" none.
    HMIXMLMediaDetail* lower = Media("full");
    EXPECT_TRUE(lower != nullptr && lower != full);
    EXPECT_EQ(Media("FULL"), nullptr);
    TestPrinter other;
    ASSERT_TRUE(WriteMedium(other, 0x10, FullMediumBody()));
    ASSERT_EQ(HMIUpdatePrinterHandle(access, other.Reopen()), 1);
    EXPECT_EQ(Media("Full"), full);
    EXPECT_TRUE(HasFullInfo("Cascade"));
    EXPECT_EQ(Media("NoAll"), nullptr);
}

// The out pointer as whichever record type the entry point takes.
struct AnyOut {
    void* out;
    template <typename Record>
    operator Record*() const { return static_cast<Record*>(out); }
};

// Every entry point with all arguments given succeeds, and fails with any one of them null or (by id)
// with a handle opened without a printer, writing nothing.
TEST_F(MediaQueries, NullArgumentsFailAndWriteNothing) {
    const WCHAR* id = HMI_W("Full");
    HMIXMLMediaDetail* detail = Media("Full");
    HMIXMLMediaColorMode* color = HMIFilterColorMode(access, detail, HMI_COLORMODE_COLOR);
    HMIXMLMediaBorderlessMode* on = HMIFilterBorderless(access, color, HMI_ON);
    HMIXMLMediaPrintPurpose* photo = HMIFilterPrintPurpose(access, on, HMI_PRINTPURPOSE_PHOTO);
    ASSERT_NE(photo, nullptr);
    const auto c = HMI_COLORMODE_COLOR;
    const auto b = HMI_ON;
    const auto p = HMI_PRINTPURPOSE_PHOTO;
    const auto N = [](auto* node, bool given) { return given ? node : nullptr; };
#define ENTRY(byId, hasOut, call) \
    {#call, byId, hasOut, [&](HMIAccess* a, bool n, [[maybe_unused]] AnyOut o) { return int(!!call); }}
    const struct {
        const char* name;
        bool byId, hasOut;
        std::function<int(HMIAccess*, bool node, AnyOut)> call;
    } entries[] = {
        ENTRY(true, false, HMIFilterMedia(a, N(id, n))),
        ENTRY(false, true, HMIGetMediaInfo(a, N(detail, n), o)),
        ENTRY(true, true, HMIGetMediaInfoDirect(a, N(id, n), o)),
        ENTRY(false, true, HMIGetAvailableColorMode(a, N(detail, n), o)),
        ENTRY(false, false, HMIFilterColorMode(a, N(detail, n), c)),
        ENTRY(true, false, HMIFilterColorModeDirect(a, N(id, n), c)),
        ENTRY(false, true, HMIGetAvailableBorderless(a, N(color, n), o)),
        ENTRY(false, false, HMIFilterBorderless(a, N(color, n), b)),
        ENTRY(true, false, HMIFilterBorderlessDirect(a, N(id, n), c, b)),
        ENTRY(false, true, HMIGetAvailablePrintPurpose(a, N(on, n), o)),
        ENTRY(false, false, HMIFilterPrintPurpose(a, N(on, n), p)),
        ENTRY(true, false, HMIFilterPrintPurposeDirect(a, N(id, n), c, b, p)),
        ENTRY(false, true, HMIGetPrintPurposeInfo(a, N(photo, n), o)),
        ENTRY(false, true, HMIGetAvailablePrintQuality(a, N(photo, n), 3, o)),
        ENTRY(false, true, HMIGetPrintQualityInfo(a, N(photo, n), 0, HMI_PRINTQUALITY_3, o)),
    };
#undef ENTRY
    HMIAccess* withoutPrinter = HMIOpen(nullptr);
    ASSERT_NE(withoutPrinter, nullptr);
    for (const auto& e : entries) {
        SCOPED_TRACE(e.name);
        auto out = Poisoned<_tagHMIMediaInfo>();  // the largest record
        EXPECT_EQ(e.call(nullptr, true, {&out}), 0);
        EXPECT_EQ(e.call(access, false, {&out}), 0);
        EXPECT_TRUE(!e.hasOut || e.call(access, true, {nullptr}) == 0);
        EXPECT_TRUE(!e.byId || e.call(withoutPrinter, true, {&out}) == 0);
        EXPECT_TRUE(SameBytes(out, Poisoned<_tagHMIMediaInfo>()));
        EXPECT_EQ(e.call(access, true, {&out}), 1);
    }
    HMIClose(withoutPrinter);
}

}  // namespace
}  // namespace hmitest
