// The media queries through the built library: the detail cache, the "all" fallback of every level,
// records byte for byte, media that fail without being cached, and null arguments.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <type_traits>

#include "support/full_medium.h"

namespace hmitest {
namespace {

template <typename T>
using RawArgument = std::conditional_t<std::is_enum_v<T>, int32_t, T>;

// A C caller may pass any 32 bits for an enumeration, which a C++ enumeration value cannot hold: such
// calls reach the export through its address with int32_t in each enumeration's place (the same ABI).
template <typename R, typename... A>
auto WithRawEnums(R (*entry)(A...)) {
    return reinterpret_cast<R (*)(RawArgument<A>...)>(entry);
}

// An out record filled with 0xCD, so that a call that writes nothing can be told from one that does.
template <typename Record>
struct Sentinel {
    Sentinel() { std::memset(&record, 0xCD, sizeof record); }
    bool Untouched() const {
        const auto* bytes = reinterpret_cast<const unsigned char*>(&record);
        for (size_t i = 0; i < sizeof record; ++i) {
            if (bytes[i] != 0xCD) return false;
        }
        return true;
    }
    bool Equals(const Record& expected) const { return std::memcmp(&record, &expected, sizeof record) == 0; }
    Record record;
};

// Each node of the cascade below is marked by its record: a colour mode by its borderless default, a
// borderless mode by its purpose default, a purpose by its operation flag.
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
// No "all" colour mode.
const char* kNoAll = R"(<printcolormode type="color"><availableborderlessprint default="OFF"/>
    <borderlessprint type="all"><availableprint_purpose default="proof"/>
      <print_purpose type="all"><operationflag>5</operationflag></print_purpose></borderlessprint></printcolormode>)";

const std::string kId64(64, 'L');

class MediaQueries : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(WriteDatabase(printer, {{"00000001", "Full"},
                                            {"00000010", "Cascade"},
                                            {"00000011", "NoAll"},
                                            {"00000020", "Glossy"},
                                            {"00000021", "GLOSSY"},
                                            {"00000030", "Broken0"},
                                            {"00000031", "Broken1"},
                                            {"00000032", "Broken2"},
                                            {"00000033", "Broken3"},
                                            {"00000040", kId64},
                                            {"00000041", kId64 + "X"}}));
        ASSERT_TRUE(WriteMedium(printer, 0x01, FullMediumBody()) && WriteMedium(printer, 0x10, W(kCascade)) &&
                    WriteMedium(printer, 0x11, W(kNoAll)) &&
                    WriteMedium(printer, 0x20, W("<format_version>low</format_version>")) &&
                    WriteMedium(printer, 0x21, W("<format_version>UP</format_version>")) &&
                    WriteMedium(printer, 0x40, FullMediumBody()) && WriteMedium(printer, 0x41, FullMediumBody()));
        access = HMIOpen(printer.Reopen());
        ASSERT_NE(access, nullptr);
    }
    void TearDown() override { HMIClose(access); }

    HMIXMLMediaDetail* Media(const std::string& id) { return HMIFilterMedia(access, W(id).c_str()); }

    // The medium's record equals that of FullMediumBody.
    bool HasFullInfo(const std::string& id) {
        Sentinel<_tagHMIMediaInfo> info;
        return HMIGetMediaInfoDirect(access, W(id).c_str(), &info.record) == 1 &&
               info.Equals(FullMediumInfo(W(id).c_str()));
    }

    TestPrinter printer;
    HMIAccess* access = nullptr;
};

TEST_F(MediaQueries, CachedDetailIsReturnedWithoutReadingThePrinterAgain) {
    HMIXMLMediaDetail* full = Media("Full");
    ASSERT_NE(full, nullptr);
    ASSERT_TRUE(printer.Remove(MediumKey(0x01, "HMI").c_str(), HMI_W("")));
    EXPECT_EQ(Media("Full"), full);
    ASSERT_EQ(HMIUpdatePrinterHandle(access, nullptr), 1);
    EXPECT_EQ(Media("Full"), full);
    EXPECT_TRUE(HasFullInfo("Full"));
    EXPECT_EQ(Media("Cascade"), nullptr);
}

TEST_F(MediaQueries, IdsDifferingInCaseAreDifferentMedia) {
    HMIXMLMediaDetail* lower = Media("Glossy");
    HMIXMLMediaDetail* upper = Media("GLOSSY");
    ASSERT_NE(lower, nullptr);
    ASSERT_NE(upper, nullptr);
    EXPECT_NE(lower, upper);
    _tagHMIMediaInfo info;
    ASSERT_EQ(HMIGetMediaInfo(access, upper, &info), 1);
    EXPECT_EQ(W("UP"), info.format_version);
    ASSERT_EQ(HMIGetMediaInfo(access, lower, &info), 1);
    EXPECT_EQ(W("low"), info.format_version);
    EXPECT_EQ(Media("glossy"), nullptr);
    EXPECT_EQ(Media("Glossy"), lower);
}

// Every chain of filters and its Direct form give the same node; -1 marks no node.
TEST_F(MediaQueries, EveryLevelFallsBackToAllAndNothingElse) {
    const struct {
        const char* id;
        int32_t color, onoff, purpose;
        int depth;
        int64_t mark;
    } rows[] = {
        {"Cascade", 0, 0, 0, 1, HMI_ON},  // the "color" node
        {"Cascade", 1, 0, 0, 1, HMI_OFF},  // the "all" node, for a mode without node
        {"Cascade", 3, 0, 0, 1, HMI_OFF},
        {"Cascade", 4, 0, 0, 1, HMI_ONOFF_ALL},  // "sepia", filed as invalid
        {"Cascade", 0x7FFFFFFF, 0, 0, 1, HMI_OFF},
        {"Cascade", -1, 0, 0, 1, HMI_OFF},
        {"Cascade", 1000, 0, 0, 1, HMI_OFF},
        {"NoAll", 0, 0, 0, 1, HMI_OFF},
        {"NoAll", 1, 0, 0, 1, -1},
        {"NoAll", -1, 0, 0, 1, -1},
        {"Cascade", 0, 1, 0, 2, HMI_PRINTPURPOSE_PHOTO},
        {"Cascade", 0, 0, 0, 2, HMI_PRINTPURPOSE_PROOF},
        {"Cascade", 0, 3, 0, 2, HMI_PRINTPURPOSE_PROOF},
        {"Cascade", 0, 0x7FFFFFFF, 0, 2, HMI_PRINTPURPOSE_PROOF},
        {"Cascade", 1, 0, 0, 2, HMI_PRINTPURPOSE_CAD},
        {"Cascade", 1, 1, 0, 2, -1},  // no "all" below the "all" colour mode
        {"Cascade", 4, 1, 0, 2, -1},
        {"NoAll", 1, 1, 0, 2, -1},
        {"Cascade", 0, 1, 0, 3, 0x10},
        {"Cascade", 0, 1, 1, 3, 0x14},
        {"Cascade", 0, 1, 4, 3, 0x14},
        {"Cascade", 0, 1, -1, 3, 0x14},
        {"Cascade", 0, 0, 2, 3, 0x32},
        {"Cascade", 0, 0, 0, 3, -1},  // no "all" purpose
        {"Cascade", 1, 0, 0, 3, -1},
        {"NoAll", 0, 0, 1000, 3, 5},
        {"NoAll", 1, 0, 0, 3, -1},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(std::string(r.id) + " " + std::to_string(r.color) + "/" + std::to_string(r.onoff) + "/" +
                     std::to_string(r.purpose));
        const WString id = W(r.id);
        const int32_t color = r.color, onoff = r.onoff, purpose = r.purpose;
        HMIXMLMediaDetail* detail = HMIFilterMedia(access, id.c_str());
        ASSERT_NE(detail, nullptr);
        HMIXMLMediaColorMode* mode = WithRawEnums(HMIFilterColorMode)(access, detail, color);
        EXPECT_EQ(WithRawEnums(HMIFilterColorModeDirect)(access, id.c_str(), color), mode);
        HMIXMLMediaBorderlessMode* borderless = mode ? WithRawEnums(HMIFilterBorderless)(access, mode, onoff) : nullptr;
        EXPECT_EQ(WithRawEnums(HMIFilterBorderlessDirect)(access, id.c_str(), color, onoff), borderless);
        HMIXMLMediaPrintPurpose* node =
            borderless ? WithRawEnums(HMIFilterPrintPurpose)(access, borderless, purpose) : nullptr;
        EXPECT_EQ(WithRawEnums(HMIFilterPrintPurposeDirect)(access, id.c_str(), color, onoff, purpose), node);

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
    ASSERT_NE(detail, nullptr);
    const _tagHMIMediaInfo expected = FullMediumInfo(id.c_str());
    Sentinel<_tagHMIMediaInfo> info, direct;
    ASSERT_EQ(HMIGetMediaInfo(access, detail, &info.record), 1);
    EXPECT_TRUE(info.Equals(expected));
    ASSERT_EQ(HMIGetMediaInfoDirect(access, id.c_str(), &direct.record), 1);
    EXPECT_TRUE(direct.Equals(expected));
    Sentinel<_tagHMIAvailableColorMode> colors;
    ASSERT_EQ(HMIGetAvailableColorMode(access, detail, &colors.record), 1);
    EXPECT_TRUE(colors.Equals(expected.availableprintcolormode));

    HMIXMLMediaColorMode* color = HMIFilterColorMode(access, detail, HMI_COLORMODE_COLOR);
    Sentinel<_tagHMIAvailableBorderless> onoffs;
    ASSERT_EQ(HMIGetAvailableBorderless(access, color, &onoffs.record), 1);
    EXPECT_TRUE(onoffs.Equals(FullColorBorderless()));
    HMIXMLMediaBorderlessMode* on = HMIFilterBorderless(access, color, HMI_ON);
    Sentinel<_tagHMIAvailablePrintPurpose> purposes;
    ASSERT_EQ(HMIGetAvailablePrintPurpose(access, on, &purposes.record), 1);
    EXPECT_TRUE(purposes.Equals(FullOnPurposes()));
    HMIXMLMediaPrintPurpose* photo = HMIFilterPrintPurpose(access, on, HMI_PRINTPURPOSE_PHOTO);
    Sentinel<_tagHMIPrintPurposeInfo> purpose;
    ASSERT_EQ(HMIGetPrintPurposeInfo(access, photo, &purpose.record), 1);
    EXPECT_TRUE(purpose.Equals(FullPhotoPurpose()));
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
        Sentinel<_tagHMIAvailablePrintQuality> list;
        EXPECT_EQ(HMIGetAvailablePrintQuality(access, photo, variant, &list.record), variant < 4 ? 1 : 0) << variant;
        EXPECT_TRUE(variant < 4 ? list.Equals(*lists[variant]) : list.Untouched()) << variant;
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
        {0, HMI_PRINTQUALITY_3, &rgb3},  {0, HMI_PRINTQUALITY_1, nullptr}, {0, HMI_PRINTQUALITY_ALL, nullptr},
        {1, HMI_PRINTQUALITY_1, &all},   {1, 0x7FFFFFFF, &all},           {1, -1, &all},
        {2, HMI_PRINTQUALITY_1, &cmyk1}, {2, HMI_PRINTQUALITY_5, nullptr}, {3, HMI_PRINTQUALITY_5, &index5},
        {3, HMI_PRINTQUALITY_2, &index2}, {3, 1000, nullptr},             {4, HMI_PRINTQUALITY_3, nullptr},
        {0xFFFFFFFF, HMI_PRINTQUALITY_ALL, nullptr},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE("variant " + std::to_string(r.variant) + ", quality " + std::to_string(r.quality));
        Sentinel<Q> quality;
        EXPECT_EQ(WithRawEnums(HMIGetPrintQualityInfo)(access, photo, r.variant, r.quality, &quality.record),
                  r.expected ? 1 : 0);
        EXPECT_TRUE(r.expected ? quality.Equals(*r.expected) : quality.Untouched());
    }
}

// A medium that cannot be built fails each time and is not cached: once its data is repaired, it loads.
TEST_F(MediaQueries, BrokenMediumFailsEveryTimeUntilRepaired) {
    const WString key = MediumKey(0x31, "HMI");
    const struct {
        const char* id;
        std::function<bool()> breakData;
    } cases[] = {
        {"Broken0", [] { return true; }},  // no document
        {"Broken1",  // a chunk missing
         [&] { return WriteMedium(printer, 0x31, FullMediumBody()) && printer.Remove(key.c_str(), HMI_W("001")); }},
        {"Broken2", [&] { return WriteMediaDocument(printer, 0x32, W("<media><medium>"), 512); }},  // not well formed
        {"Broken3", [&] { return WriteMedium(printer, 0x33, W("<printcolormode/>")); }},  // rejected: no type
    };
    for (DWORD number = 0x30; number < 0x34; ++number) {
        const auto& c = cases[number - 0x30];
        SCOPED_TRACE(c.id);
        ASSERT_TRUE(c.breakData());
        const WString id = W(c.id);
        for (int attempt = 0; attempt < 2; ++attempt) {
            EXPECT_EQ(HMIFilterMedia(access, id.c_str()), nullptr);
            Sentinel<_tagHMIMediaInfo> info;
            EXPECT_EQ(HMIGetMediaInfoDirect(access, id.c_str(), &info.record), 0);
            EXPECT_TRUE(info.Untouched());
            EXPECT_EQ(HMIFilterColorModeDirect(access, id.c_str(), HMI_COLORMODE_COLOR), nullptr);
        }
        ASSERT_TRUE(WriteMedium(printer, number, FullMediumBody()));
        EXPECT_TRUE(HasFullInfo(c.id));
    }
}

// Both long ids have documents, but the database keeps no id longer than 64 units.
TEST_F(MediaQueries, OnlyMediaOfTheDatabaseWithIdsOfAtMost64UnitsLoad) {
    EXPECT_TRUE(HasFullInfo(kId64));
    EXPECT_EQ(Media(kId64 + "X"), nullptr);
    EXPECT_EQ(Media("Unlisted"), nullptr);
    EXPECT_EQ(Media(""), nullptr);
}

// The database stays that of the first printer; documents come from the current one.
TEST_F(MediaQueries, ReplacedPrinterServesMediaNotYetCached) {
    HMIXMLMediaDetail* full = Media("Full");
    ASSERT_NE(full, nullptr);
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
    operator Record*() const {
        return static_cast<Record*>(out);
    }
};

// Every entry point with all arguments given succeeds, and fails with any one of them null or
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
    const auto q = HMI_PRINTQUALITY_3;
    const auto N = [](auto* node, bool given) { return given ? node : nullptr; };
    const struct {
        const char* name;
        bool byId;  // also fails on a handle without printer
        bool hasOut;
        std::function<int(HMIAccess*, bool node, AnyOut)> call;
    } entries[] = {
        {"FilterMedia", true, false, [&](HMIAccess* a, bool n, AnyOut) { return !!HMIFilterMedia(a, N(id, n)); }},
        {"GetMediaInfo", false, true,
         [&](HMIAccess* a, bool n, AnyOut o) { return HMIGetMediaInfo(a, N(detail, n), o); }},
        {"GetMediaInfoDirect", true, true,
         [&](HMIAccess* a, bool n, AnyOut o) { return HMIGetMediaInfoDirect(a, N(id, n), o); }},
        {"GetAvailableColorMode", false, true,
         [&](HMIAccess* a, bool n, AnyOut o) { return HMIGetAvailableColorMode(a, N(detail, n), o); }},
        {"FilterColorMode", false, false,
         [&](HMIAccess* a, bool n, AnyOut) { return !!HMIFilterColorMode(a, N(detail, n), c); }},
        {"FilterColorModeDirect", true, false,
         [&](HMIAccess* a, bool n, AnyOut) { return !!HMIFilterColorModeDirect(a, N(id, n), c); }},
        {"GetAvailableBorderless", false, true,
         [&](HMIAccess* a, bool n, AnyOut o) { return HMIGetAvailableBorderless(a, N(color, n), o); }},
        {"FilterBorderless", false, false,
         [&](HMIAccess* a, bool n, AnyOut) { return !!HMIFilterBorderless(a, N(color, n), b); }},
        {"FilterBorderlessDirect", true, false,
         [&](HMIAccess* a, bool n, AnyOut) { return !!HMIFilterBorderlessDirect(a, N(id, n), c, b); }},
        {"GetAvailablePrintPurpose", false, true,
         [&](HMIAccess* a, bool n, AnyOut o) { return HMIGetAvailablePrintPurpose(a, N(on, n), o); }},
        {"FilterPrintPurpose", false, false,
         [&](HMIAccess* a, bool n, AnyOut) { return !!HMIFilterPrintPurpose(a, N(on, n), p); }},
        {"FilterPrintPurposeDirect", true, false,
         [&](HMIAccess* a, bool n, AnyOut) { return !!HMIFilterPrintPurposeDirect(a, N(id, n), c, b, p); }},
        {"GetPrintPurposeInfo", false, true,
         [&](HMIAccess* a, bool n, AnyOut o) { return HMIGetPrintPurposeInfo(a, N(photo, n), o); }},
        {"GetAvailablePrintQuality", false, true,
         [&](HMIAccess* a, bool n, AnyOut o) { return HMIGetAvailablePrintQuality(a, N(photo, n), 3, o); }},
        {"GetPrintQualityInfo", false, true,
         [&](HMIAccess* a, bool n, AnyOut o) { return HMIGetPrintQualityInfo(a, N(photo, n), 0, q, o); }},
    };
    HMIAccess* withoutPrinter = HMIOpen(nullptr);
    ASSERT_NE(withoutPrinter, nullptr);
    for (const auto& e : entries) {
        SCOPED_TRACE(e.name);
        Sentinel<_tagHMIMediaInfo> out;  // the largest record
        EXPECT_EQ(e.call(nullptr, true, {&out.record}), 0);
        EXPECT_EQ(e.call(access, false, {&out.record}), 0);
        if (e.hasOut) {
            EXPECT_EQ(e.call(access, true, {nullptr}), 0);
        }
        if (e.byId) {
            EXPECT_EQ(e.call(withoutPrinter, true, {&out.record}), 0);
        }
        EXPECT_TRUE(out.Untouched());
        EXPECT_EQ(e.call(access, true, {&out.record}), 1);
    }
    HMIClose(withoutPrinter);
}

}  // namespace
}  // namespace hmitest
