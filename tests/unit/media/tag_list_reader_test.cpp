// The list readers on value elements parsed from document text.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "media/tag_list_reader.h"
#include "media/tag_vocabulary.h"
#include "media_test_support.h"

namespace {

using mediatest::WString;

class TagListReaderTest : public mediatest::MediaDocumentTest {
protected:
    // A <v> element with the given content and, unless null, a "default" attribute.
    std::unique_ptr<HMIXMLNode> Element(const WCHAR* content, const WCHAR* defaultValue = nullptr) {
        WString text = HMI_W("<v");
        if (defaultValue) text += WString(HMI_W(" default=\"")) + defaultValue + HMI_W("\"");
        text += WString(HMI_W(">")) + content + HMI_W("</v>");
        auto element = ParseElement(text);
        EXPECT_TRUE(element) << mediatest::Ascii(text.c_str());
        return element;
    }
};

struct ColorModeListCase {
    const WCHAR* content;
    const WCHAR* defaultValue;
    bool ok;
    uint32_t expectedDefault;
    std::vector<uint32_t> values;
};

TEST_F(TagListReaderTest, ColorModeListWithDefault) {
    const std::vector<ColorModeListCase> cases = {
        {HMI_W("color,monochrome"), HMI_W("monochrome"), true, 1, {0, 1}},
        {HMI_W("color,xyz,monochrome"), nullptr, true, 4, {0, 1}},
        {HMI_W(",color,,monochrome,"), nullptr, true, 4, {0, 1}},
        {HMI_W("color,color"), HMI_W("all"), true, 3, {0, 0}},
        {HMI_W("xyz,color,monochrome"), nullptr, true, 4, {0, 1}},
        {HMI_W("color, monochrome"), nullptr, true, 4, {0}},
        {HMI_W("color,monochrome,xyz"), nullptr, false, 4, {}},
        {HMI_W("color,monochrome,color"), nullptr, false, 4, {}},
        {HMI_W(""), nullptr, true, 4, {}},
        {HMI_W(""), HMI_W(""), true, 4, {}},
        {HMI_W("monochrome"), HMI_W("Color"), true, 4, {1}},
    };
    for (const ColorModeListCase& c : cases) {
        SCOPED_TRACE(mediatest::Ascii(c.content));
        auto element = Element(c.content, c.defaultValue);
        ASSERT_TRUE(element);
        _tagHMIAvailableColorMode list;
        std::memset(&list, 0xCD, sizeof list);
        EXPECT_EQ(ReadTagListWithDefault(element.get(), HMIColorModeConverter, &list), c.ok);
        EXPECT_EQ(static_cast<uint32_t>(list.defaultValue), c.expectedDefault);
        EXPECT_EQ(list.reserved, 0xCDCDCDCDu);
        ASSERT_EQ(list.count, c.values.size());
        for (size_t i = 0; i < c.values.size(); ++i) EXPECT_EQ(static_cast<uint32_t>(list.values[i]), c.values[i]);
    }
}

TEST_F(TagListReaderTest, InputBinsAndResolutions) {
    auto bins = Element(HMI_W("AUTO,asf,DISCTRAY"), HMI_W("AUTO"));
    ASSERT_TRUE(bins);
    _tagHMIMediaInfo info{};
    ASSERT_TRUE(ReadTagListWithDefault(bins.get(), HMIInputBinConverter, &info.availableinputbinid));
    EXPECT_EQ(info.availableinputbinid.defaultValue, HMI_INPUTBIN_AUTO);
    ASSERT_EQ(info.availableinputbinid.count, 3u);
    EXPECT_EQ(info.availableinputbinid.values[1], HMI_INPUTBIN_ASF);
    EXPECT_EQ(info.availableinputbinid.values[2], HMI_INPUTBIN_DISCTRAY);

    const HMITagLongConverter numbers;
    _tagHMIPrintQualityInfo quality{};
    auto resolutions = Element(HMI_W("300,600"), HMI_W("600"));
    ASSERT_TRUE(ReadTagListWithDefault(resolutions.get(), numbers, &quality.availableresolution));
    EXPECT_EQ(quality.availableresolution.defaultValue, 600);
    ASSERT_EQ(quality.availableresolution.count, 2u);
    EXPECT_EQ(quality.availableresolution.values[0], 300);
    EXPECT_EQ(quality.availableresolution.values[1], 600);

    auto withZero = Element(HMI_W("600,0,-1200,dpi"), HMI_W("fine"));
    ASSERT_TRUE(ReadTagListWithDefault(withZero.get(), numbers, &quality.availableresolution));
    EXPECT_EQ(quality.availableresolution.defaultValue, 0);
    ASSERT_EQ(quality.availableresolution.count, 2u);
    EXPECT_EQ(quality.availableresolution.values[1], -1200);
}

TEST_F(TagListReaderTest, PlainListTestsCapacityBeforeConversion) {
    _tagHMIMediaInfo info{};
    auto four = Element(HMI_W("xx,WW,JA,US,EU"));
    ASSERT_TRUE(ReadTagList(four.get(), HMILocaleConverter, &info.locale));
    EXPECT_EQ(info.locale.count, 4u);
    EXPECT_EQ(info.locale.values[3], HMI_LOCALE_EU);

    auto fifth = Element(HMI_W("WW,JA,US,EU,xx"));
    EXPECT_FALSE(ReadTagList(fifth.get(), HMILocaleConverter, &info.locale));
    EXPECT_EQ(info.locale.count, 0u);
    EXPECT_EQ(HMICountListValues(fifth->Text(), HMILocaleConverter, 4), 5);

    auto none = Element(HMI_W(""));
    info.locale.count = 3;
    EXPECT_TRUE(ReadTagList(none.get(), HMILocaleConverter, &info.locale));
    EXPECT_EQ(info.locale.count, 0u);
}

struct PrintAreaCase {
    const WCHAR* content;  // null: no element
    bool ok;
    uint32_t constrained;
    uint64_t values[4];
};

TEST_F(TagListReaderTest, PrintArea) {
    const std::vector<PrintAreaCase> cases = {
        {nullptr, true, 0, {0, 0, 0, 0}},
        {HMI_W(""), true, 0, {0, 0, 0, 0}},
        {HMI_W("unconstrained"), true, 0, {0, 0, 0, 0}},
        {HMI_W("Unconstrained"), true, 1, {0, 0, 0, 0}},
        {HMI_W("1,2,3,4"), true, 1, {1, 2, 3, 4}},
        {HMI_W("10,0,20"), true, 1, {10, 20, 0, 0}},
        {HMI_W("4294967295"), true, 1, {4294967295u, 0, 0, 0}},
        {HMI_W("1,2,3,4,5"), false, 0, {1, 2, 3, 4}},
        {HMI_W("1,2,3,4,0"), false, 0, {1, 2, 3, 4}},
    };
    for (const PrintAreaCase& c : cases) {
        SCOPED_TRACE(mediatest::Ascii(c.content));
        std::unique_ptr<HMIXMLNode> element;
        if (c.content) {
            element = Element(c.content);
            ASSERT_TRUE(element);
        }
        _tagHMIPrintArea area{};
        area.reserved = 0xCDCDCDCD;
        EXPECT_EQ(ReadPrintArea(element.get(), &area), c.ok);
        EXPECT_EQ(area.constrained, c.constrained);
        EXPECT_EQ(area.reserved, 0xCDCDCDCDu);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(area.values[i], c.values[i]) << "slot " << i;
    }
}

}  // namespace
