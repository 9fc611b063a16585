// The keyword tables and the numeric converters.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "media/tag_vocabulary.h"

namespace {

template <typename E>
std::function<uint32_t(const WCHAR*)> By(const HMITagIDConverter<E>& converter) {
    return [&converter](const WCHAR* text) { return static_cast<uint32_t>(converter.Convert(text)); };
}

struct ConversionCase {
    const char* what;
    std::function<uint32_t(const WCHAR*)> convert;
    const WCHAR* text;
    uint32_t expected;
};

TEST(TagConverter, ConvertsKeywordsExactly) {
    const std::vector<ConversionCase> cases = {
        {"colour mode", By(HMIColorModeConverter), HMI_W("color"), 0},
        {"colour mode, other case", By(HMIColorModeConverter), HMI_W("Color"), 4},
        {"colour mode, leading blank", By(HMIColorModeConverter), HMI_W(" color"), 4},
        {"colour mode, trailing blank", By(HMIColorModeConverter), HMI_W("color "), 4},
        {"colour mode, empty", By(HMIColorModeConverter), HMI_W(""), 4},
        {"colour mode, null", By(HMIColorModeConverter), nullptr, 4},
        {"colour mode all", By(HMIColorModeConverter), HMI_W("all"), 3},
        {"category 01", By(HMIMediaCategoryConverter), HMI_W("01"), 0},
        {"category 14", By(HMIMediaCategoryConverter), HMI_W("14"), 13},
        {"category 1", By(HMIMediaCategoryConverter), HMI_W("1"), 16},
        {"category 15", By(HMIMediaCategoryConverter), HMI_W("15"), 16},
        {"quality 1", By(HMIPrintQualityConverter), HMI_W("1"), 0},
        {"quality 5", By(HMIPrintQualityConverter), HMI_W("5"), 4},
        {"quality all", By(HMIPrintQualityConverter), HMI_W("all"), 6},
        {"quality 0", By(HMIPrintQualityConverter), HMI_W("0"), 7},
        {"clear coat all is a member", By(HMIClearCoatConverter), HMI_W("all"), 2},
        {"clear coat custom", By(HMIClearCoatConverter), HMI_W("custom"), 3},
        {"on/off ON", By(HMIOnOffConverter), HMI_W("ON"), 1},
        {"on/off on", By(HMIOnOffConverter), HMI_W("on"), 4},
        {"cartridge photocolor", By(HMICartridgeConverter), HMI_W("photocolor"), 5},
        {"input bin DISCTRAY", By(HMIInputBinConverter), HMI_W("DISCTRAY"), 10},
        {"paper size last row", By(HMIPaperSizeConverter), HMI_W("custom_tolva_355x431mm"), 25},
        {"bk ink MBk", By(HMIBkInkTypeConverter), HMI_W("MBk"), 1},
        {"three-position draft", By(HMIPrintQuality3PosConverter), HMI_W("draft"), 2},
        {"finisher banner", By(HMIFinisherConverter), HMI_W("banner"), 1},
    };
    for (const ConversionCase& c : cases) EXPECT_EQ(c.convert(c.text), c.expected) << c.what;
}

template <typename E>
void CheckTable(const HMITagIDConverter<E>& converter, uint32_t invalid, size_t rows) {
    EXPECT_EQ(static_cast<uint32_t>(converter.InvalidValue()), invalid);
    ASSERT_EQ(converter.EntryCount(), rows);
    for (size_t i = 0; i < converter.EntryCount(); ++i) {
        const HMITagIDEntry& row = converter.Table()[i];
        EXPECT_EQ(static_cast<uint32_t>(converter.Convert(row.keyword)), row.value) << "row " << i;
        EXPECT_NE(row.value, invalid) << "row " << i;
        const WCHAR* keyword = converter.KeywordOf(static_cast<E>(row.value));
        ASSERT_NE(keyword, nullptr);
        EXPECT_EQ(static_cast<uint32_t>(converter.Convert(keyword)), row.value);
    }
    EXPECT_EQ(converter.KeywordOf(static_cast<E>(invalid)), nullptr);
}

TEST(TagConverter, EveryTableConvertsItsKeywordsAndInverts) {
    CheckTable(HMIOnOffConverter, 4, 3);
    CheckTable(HMIColorModeConverter, 4, 3);
    CheckTable(HMIPrintPurposeConverter, 5, 4);
    CheckTable(HMIPrintQualityConverter, 7, 6);
    CheckTable(HMIPrintQuality3PosConverter, 5, 4);
    CheckTable(HMIClearCoatConverter, 6, 4);
    CheckTable(HMIDuplexPrintConverter, 5, 4);
    CheckTable(HMICartridgeConverter, 9, 7);
    CheckTable(HMIAppHagakiMediaConverter, 5, 3);
    CheckTable(HMIHagakiAutoDuplexModeConverter, 5, 3);
    CheckTable(HMIMediaCategoryConverter, 16, 14);
    CheckTable(HMIPaperSizeConverter, 27, 26);
    CheckTable(HMILocaleConverter, 5, 4);
    CheckTable(HMIBkInkTypeConverter, 3, 2);
    CheckTable(HMIInputBinConverter, 13, 6);
    CheckTable(HMIFinisherConverter, 4, 3);
}

TEST(TagConverter, NumericConvertersReadLeadingDecimalNumbers) {
    const HMITagULongConverter unsignedConverter;
    const HMITagLongConverter signedConverter;
    EXPECT_EQ(unsignedConverter.InvalidValue(), 0u);
    EXPECT_EQ(signedConverter.InvalidValue(), 0);

    EXPECT_EQ(unsignedConverter.Convert(HMI_W("300")), 300u);
    EXPECT_EQ(unsignedConverter.Convert(HMI_W(" 42mm")), 42u);
    EXPECT_EQ(unsignedConverter.Convert(HMI_W("4294967295")), 4294967295u);
    EXPECT_EQ(unsignedConverter.Convert(HMI_W("0x10")), 0u);
    EXPECT_EQ(unsignedConverter.Convert(HMI_W("abc")), 0u);
    EXPECT_EQ(unsignedConverter.Convert(nullptr), 0u);

    EXPECT_EQ(signedConverter.Convert(HMI_W("-600")), -600);
    EXPECT_EQ(signedConverter.Convert(HMI_W("1200dpi")), 1200);
    EXPECT_EQ(signedConverter.Convert(HMI_W("dpi")), 0);
    EXPECT_EQ(signedConverter.Convert(nullptr), 0);
}

}  // namespace
