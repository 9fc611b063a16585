// PPD keywords, translation strings and paper sizes as the exported PPD spells them.
#include <cups/cups.h>
#include <cups/pwg.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <set>
#include <string>

#include "paper_sizes.h"
#include "ppd_text.h"
#include "ppd_writer.h"

namespace mediaexport {
namespace {

TEST(PpdMediaKeyword, KeepsPlainIdsAndDerivesDistinctKeywordsFromOthers) {
    EXPECT_EQ(PpdMediaKeyword("PhotoGlossyPro"), "PhotoGlossyPro");
    EXPECT_EQ(PpdMediaKeyword("a.b_c-9"), "a.b_c-9");
    const std::string forty(40, 'x');
    EXPECT_EQ(PpdMediaKeyword(forty), forty);

    const std::string spaced = PpdMediaKeyword("Photo Glossy");
    const std::string underscored = PpdMediaKeyword("Photo_Glossy?");
    EXPECT_EQ(spaced.substr(0, 13), "Photo_Glossy_");
    EXPECT_EQ(spaced.size(), 12u + 9u);
    EXPECT_NE(spaced, underscored);
    EXPECT_NE(PpdMediaKeyword(forty + "y"), PpdMediaKeyword(forty + "z"));  // cut to 31, told apart by the hash
    EXPECT_EQ(PpdMediaKeyword(forty + "y").size(), 40u);
    for (const std::string& id : {std::string("Ünïcode"), std::string("a:b/c\"d"), std::string()}) {
        const std::string keyword = PpdMediaKeyword(id);
        ASSERT_FALSE(keyword.empty());
        for (const char c : keyword) EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-' || c == '.') << id;
    }
}

TEST(PpdTranslation, EscapesSeparatorsAndCutsWholeCharactersAtEightyBytes) {
    EXPECT_EQ(PpdTranslation("A4: <x>"), "A4<3A> <3C>x<3E>");
    EXPECT_EQ(PpdTranslation("tab\there"), "tab<09>here");
    EXPECT_EQ(PpdTranslation("普通紙"), "普通紙");
    EXPECT_EQ(PpdTranslation("bad\xC3"), "bad?");  // a cut sequence is no character
    EXPECT_EQ(PpdTranslation("\xFF" "x"), "?x");
    EXPECT_EQ(PpdTranslation("\xC3\x28"), "?(");  // a lead byte without its continuation

    const std::string longText = std::string(79, 'a') + "é";  // 81 bytes: the two-byte character does not fit
    EXPECT_EQ(PpdTranslation(longText), std::string(79, 'a'));
    EXPECT_EQ(PpdTranslation(std::string(100, 'b')), std::string(80, 'b'));
    EXPECT_EQ(PpdTranslation(std::string(79, 'c') + ":"), std::string(79, 'c') + "<3A>");
}

// The sizes' PWG names stand for their dimensions in libcups's table, and their PPD names (cupstestppd
// tells whether each is the one it expects) for the same dimensions, either way round.
TEST(PaperSizes, MatchLibcupsNamesAndDimensions) {
    constexpr int kTolerance = 100;  // hundredths of mm: 89x127mm is 3.5x5in
    std::set<std::string> names;
    for (int size = 0; size < kPaperSizeCount; ++size) {
        const PaperSize* paper = PaperSizeOf(size);
        if (!paper) continue;
        const Dimensions d = DimensionsOf(*paper);
        const pwg_media_t* byName = pwgMediaForPWG(paper->pwg);
        ASSERT_NE(byName, nullptr) << paper->pwg;
        EXPECT_NEAR(HundredthsOfMm(d.width), byName->width, 1) << paper->pwg;
        EXPECT_NEAR(HundredthsOfMm(d.length), byName->length, 1) << paper->pwg;
        EXPECT_TRUE(names.insert(paper->ppd).second) << paper->ppd;
        EXPECT_EQ(FullbleedName(*paper), std::string(paper->ppd) + ".Fullbleed");
        const pwg_media_t* byPpdName = pwgMediaForPPD(paper->ppd);  // none for DoublePostcard, cupstestppd's own
        const auto near = [&](int a, int b) { return std::abs(a - b) <= kTolerance; };
        EXPECT_TRUE(!byPpdName || (near(byPpdName->width, byName->width) && near(byPpdName->length, byName->length)) ||
                    (near(byPpdName->width, byName->length) && near(byPpdName->length, byName->width))) << paper->ppd;
    }
    EXPECT_EQ(names.size(), 25u);
    EXPECT_EQ(PaperSizeOf(HMI_PAPERSIZE_127X178MM), nullptr);  // libcups takes it for 5x7in
    EXPECT_EQ(PaperSizeOf(kPaperSizeCount), nullptr);
    EXPECT_DOUBLE_EQ(DimensionsOf(*PaperSizeOf(HMI_PAPERSIZE_NA_LETTER)).width, 612.0);  // points
}

}  // namespace
}  // namespace mediaexport
