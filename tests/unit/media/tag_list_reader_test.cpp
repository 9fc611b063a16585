// The keyword and numeric converters, and the list readers on value elements parsed from text.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "media/tag_list_reader.h"
#include "media/tag_vocabulary.h"
#include "media_test_support.h"

namespace {

using mediatest::Ascii;
using mediatest::WString;

template <typename E>
uint32_t Convert(const HMITagIDConverter<E>& converter, const WCHAR* text) {
    const E value = converter.Convert(text);
    EXPECT_EQ(converter.Convert(converter.KeywordOf(value)), value) << "keyword of " << Ascii(text);
    return static_cast<uint32_t>(value);
}

TEST(TagConverter, KeywordsMatchExactlyAndInvert) {
    EXPECT_EQ(Convert(HMIColorModeConverter, HMI_W("color")), 0u);
    const WCHAR* const invalid[] = {HMI_W("Color"), HMI_W(" color"), HMI_W("color "), HMI_W(""), nullptr};
    for (const WCHAR* text : invalid) {
        EXPECT_EQ(Convert(HMIColorModeConverter, text), 4u) << Ascii(text);
    }
    EXPECT_EQ(Convert(HMIMediaCategoryConverter, HMI_W("14")), 13u);
    EXPECT_EQ(Convert(HMIMediaCategoryConverter, HMI_W("15")), 16u);
    EXPECT_EQ(Convert(HMIPrintQualityConverter, HMI_W("all")), 6u);
    EXPECT_EQ(Convert(HMIPrintQualityConverter, HMI_W("0")), 7u);
    EXPECT_EQ(Convert(HMIClearCoatConverter, HMI_W("all")), 2u);
    EXPECT_EQ(Convert(HMIPaperSizeConverter, HMI_W("custom_tolva_355x431mm")), 25u);

    EXPECT_EQ(HMITagULongConverter().Convert(HMI_W(" 42mm")), 42u);
    EXPECT_EQ(HMITagULongConverter().Convert(HMI_W("0x10")), 0u);
    EXPECT_EQ(HMITagLongConverter().Convert(HMI_W("-600")), -600);
}

class TagListReaderTest : public mediatest::MediaDocumentTest {
protected:
    // A <v> element with the given content and, unless null, a "default" attribute.
    std::unique_ptr<HMIXMLNode> Element(const WCHAR* content, const WCHAR* defaultValue = nullptr) {
        WString text = HMI_W("<v");
        if (defaultValue) text += WString(HMI_W(" default=\"")) + defaultValue + HMI_W("\"");
        auto element = ParseElement(text + HMI_W(">") + content + HMI_W("</v>"));
        EXPECT_TRUE(element) << Ascii(content);
        return element;
    }
};

// Unknown tokens are dropped; a token beyond the capacity fails the read.
TEST_F(TagListReaderTest, ListsWithDefault) {
    const struct {
        const WCHAR *content, *defaultValue;
        bool ok;
        uint32_t expectedDefault;
        std::vector<uint32_t> values;
    } cases[] = {
        {HMI_W("color,monochrome"), HMI_W("monochrome"), true, 1, {0, 1}},
        {HMI_W(",color,,xyz,monochrome,"), nullptr, true, 4, {0, 1}},
        {HMI_W("color,color"), HMI_W("all"), true, 3, {0, 0}},
        {HMI_W("color, monochrome"), nullptr, true, 4, {0}},
        {HMI_W("color,monochrome,xyz"), nullptr, false, 4, {}},
        {HMI_W("monochrome"), HMI_W("Color"), true, 4, {1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Ascii(c.content));
        auto element = Element(c.content, c.defaultValue);
        _tagHMIAvailableColorMode list;
        std::memset(&list, 0xCD, sizeof list);
        EXPECT_EQ(ReadTagListWithDefault(element.get(), HMIColorModeConverter, &list), c.ok);
        EXPECT_EQ(static_cast<uint32_t>(list.defaultValue), c.expectedDefault);
        ASSERT_EQ(list.count, c.values.size());
        for (size_t i = 0; i < c.values.size(); ++i) EXPECT_EQ(static_cast<uint32_t>(list.values[i]), c.values[i]);
    }
}

TEST_F(TagListReaderTest, PrintArea) {
    const struct {
        const WCHAR* content;  // null: no element
        uint32_t constrained;
        uint64_t values[4];
    } cases[] = {
        {nullptr, 0, {0, 0, 0, 0}},
        {HMI_W("unconstrained"), 0, {0, 0, 0, 0}},
        {HMI_W("Unconstrained"), 1, {0, 0, 0, 0}},
        {HMI_W("10,0,20"), 1, {10, 20, 0, 0}},  // zero is the numeric invalid value: dropped
        {HMI_W("4294967295"), 1, {4294967295u, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Ascii(c.content));
        auto element = c.content ? Element(c.content) : nullptr;
        _tagHMIPrintArea area{};
        EXPECT_TRUE(ReadPrintArea(element.get(), &area));
        EXPECT_EQ(area.constrained, c.constrained);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(area.values[i], c.values[i]) << "slot " << i;
    }
}

}  // namespace
