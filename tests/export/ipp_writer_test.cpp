// The IPP writer on hand-built models: media-type keywords, the quality mapping and the strings files.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>

#include "ipp_keywords.h"
#include "ipp_writer.h"

namespace exporttest {
namespace {

using Texts = std::vector<std::string>;

mediaexport::PrinterModel ModelOf(const Texts& ids) {
    mediaexport::PrinterModel model;
    for (const std::string& id : ids) model.media.emplace_back().id = id;
    return model;
}

TEST(IppKeywords, MediaTypesAreValidDistinctAndStable) {
    const Texts ids = {"PlainPaper", "PhotoMatte", "PhotoGlossyPro", "CDLabel", "Hagaki2Sided", "fine_art.Paper  x",
                       "Papier Glacé", "日本語", "3DPaper", "Plain", "FineArt", "fine-art", std::string(90, 'a') + "B"};
    const std::string hash = "-[0-9a-f]{8}";
    const Texts expected = {"stationery", "photographic-matte", "photo-glossy-pro", "cd-label", "hagaki2-sided",
                            "fine-art-paper-x", "papier-glac", "media" + hash, "media-3-d-paper" + hash,
                            "stationery" + hash, "fine-art", "fine-art" + hash, "a{64}"};
    const Texts types = mediaexport::IppMediaTypes(ModelOf(ids));
    ASSERT_EQ(types.size(), ids.size());
    for (size_t i = 0; i < ids.size(); ++i) {
        EXPECT_TRUE(std::regex_match(types[i], std::regex(expected[i]))) << ids[i] << ": " << types[i];
        EXPECT_TRUE(mediaexport::IsIppKeyword(types[i])) << types[i];
    }
    EXPECT_EQ(std::set<std::string>(types.begin(), types.end()).size(), types.size());
    // A medium added after changes none of the earlier keywords; an id that spells an earlier medium's hashed
    // keyword gets one of its own.
    Texts more = ids;
    more.push_back(types[9]);
    const Texts moreTypes = mediaexport::IppMediaTypes(ModelOf(more));
    EXPECT_TRUE(std::equal(types.begin(), types.end(), moreTypes.begin()));
    EXPECT_TRUE(std::regex_match(moreTypes.back(), std::regex(types[9] + hash))) << moreTypes.back();
}

TEST(IppKeywords, QualityLevelsMapToIppPrintQuality) {
    const int expected[] = {5, 5, 4, 3, 3};  // high, normal, draft
    for (int level = HMI_PRINTQUALITY_1; level <= HMI_PRINTQUALITY_5; ++level) {
        EXPECT_EQ(mediaexport::IppPrintQuality(level), expected[level - HMI_PRINTQUALITY_1]) << level;
    }
    EXPECT_EQ(mediaexport::IppPrintQuality(HMI_PRINTQUALITY_ALL), 0);
}

TEST(IppWriter, StringsInTheLanguageOrItsFallback) {
    mediaexport::PrinterModel model = ModelOf({"PhotoGlossyPro", "Plain Paper!"});
    model.media[0].names = {{"en", "Glossy \"Pro\""}, {"de", "Glänzend\\Pro\nneu"}};
    model.media[1].names = {{"en", "Plain"}};
    std::ostringstream de, en;
    mediaexport::WriteIppStrings(model, "de", "en", de);
    mediaexport::WriteIppStrings(model, "en", "en", en);
    std::istringstream lines(de.str());
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(std::regex_match(line, std::regex(R"("[a-z0-9.-]+" = "([^"\\]|\\.)*";)"))) << line;
    }
    for (const char* line : {"\"media-type.photo-glossy-pro\" = \"Glänzend\\\\Pro\\nneu\";\n", "\"media-type.plain-paper\" = \"Plain\";\n",
                             "\"media-type\" = \"Papiersorte\";\n", "\"xrvhmi-cartridge.bkcolor\" = \"Schwarz und Farbe\";\n"}) {
        EXPECT_NE(de.str().find(line), std::string::npos) << line << de.str();
    }
    EXPECT_NE(en.str().find("\"media-type.photo-glossy-pro\" = \"Glossy \\\"Pro\\\"\";\n"), std::string::npos) << en.str();
}

}  // namespace
}  // namespace exporttest
