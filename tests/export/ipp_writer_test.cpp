// The IPP writer on hand-built models: media-type keywords, the quality mapping, the attributes file
// read back and its constraints applied to jobs, and the strings files.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>

#include "export/ipp_constraints.h"
#include "ipp_keywords.h"
#include "ipp_writer.h"

namespace exporttest {
namespace {

using mediaexport::Medium;
using mediaexport::Node;
using mediaexport::Offer;
using mediaexport::PrinterModel;

Offer O(std::vector<int> values, int defaultValue) {
    Offer offer;
    offer.values = std::move(values);
    offer.defaultValue = defaultValue;
    return offer;
}

Node Tree(Offer below, std::vector<Node> children) {
    Node node;
    node.below = std::move(below);
    node.children = std::move(children);
    return node;
}

Node Purpose(Offer qualities, Offer duplex, Offer cartridges) {
    Node node = Tree(std::move(qualities), {});
    node.duplex = std::move(duplex);
    node.cartridges = std::move(cartridges);
    return node;
}

Medium MediumWith(const std::string& id, std::vector<int> sizes) {
    Medium medium;
    medium.id = id;
    medium.unsupportedSizes = (1u << 26) - 1;
    for (const int size : sizes) medium.unsupportedSizes &= ~(1u << size);
    medium.cascade = Tree(O({HMI_COLORMODE_COLOR}, HMI_COLORMODE_COLOR),
                          {Tree(O({HMI_OFF}, HMI_OFF), {Tree(O({HMI_PRINTPURPOSE_PHOTO}, HMI_PRINTPURPOSE_PHOTO),
                                                             {Purpose(O({HMI_PRINTQUALITY_3}, HMI_PRINTQUALITY_3), {}, {})})})});
    return medium;
}

std::vector<std::string> TypesOf(const std::vector<std::string>& ids) {
    PrinterModel model;
    for (const std::string& id : ids) model.media.push_back(MediumWith(id, {HMI_PAPERSIZE_ISO_A4}));
    return mediaexport::IppMediaTypes(model);
}

TEST(IppKeywords, MediaTypesAreValidDistinctAndStable) {
    const std::vector<std::string> ids = {"PlainPaper", "PhotoMatte", "PhotoGlossyPro", "CDLabel", "Hagaki2Sided",
                                          "fine_art.Paper  x", "Papier Glacé", "日本語", "3DPaper", "Plain",
                                          "FineArt", "fine-art", std::string(90, 'a') + "B"};
    const std::vector<std::string> types = TypesOf(ids);
    ASSERT_EQ(types.size(), ids.size());
    EXPECT_EQ(types[0], "stationery");
    EXPECT_EQ(types[1], "photographic-matte");
    EXPECT_EQ(types[2], "photo-glossy-pro");
    EXPECT_EQ(types[3], "cd-label");
    EXPECT_EQ(types[4], "hagaki2-sided");
    EXPECT_EQ(types[5], "fine-art-paper-x");
    EXPECT_EQ(types[6], "papier-glac");
    const std::string hash = "-[0-9a-f]{8}";
    EXPECT_TRUE(std::regex_match(types[7], std::regex("media" + hash))) << types[7];
    EXPECT_TRUE(std::regex_match(types[8], std::regex("media-3-d-paper" + hash))) << types[8];
    EXPECT_TRUE(std::regex_match(types[9], std::regex("stationery" + hash))) << types[9];  // PlainPaper's
    EXPECT_EQ(types[10], "fine-art");
    EXPECT_TRUE(std::regex_match(types[11], std::regex("fine-art" + hash))) << types[11];
    EXPECT_TRUE(std::regex_match(types[12], std::regex("a{64}"))) << types[12];
    for (const std::string& type : types) EXPECT_TRUE(mediaexport::IsIppKeyword(type)) << type;
    EXPECT_EQ(std::set<std::string>(types.begin(), types.end()).size(), types.size());

    // The same ids give the same keywords; a medium added after changes none of the earlier ones, and
    // an id spelling an earlier medium's hashed keyword gets one of its own.
    EXPECT_EQ(TypesOf(ids), types);
    std::vector<std::string> more = ids;
    more.push_back(types[9]);
    const std::vector<std::string> moreTypes = TypesOf(more);
    EXPECT_TRUE(std::equal(types.begin(), types.end(), moreTypes.begin()));
    EXPECT_TRUE(std::regex_match(moreTypes.back(), std::regex(types[9] + hash))) << moreTypes.back();
}

TEST(IppKeywords, QualityLevelsMapToIppPrintQuality) {
    EXPECT_EQ(mediaexport::IppPrintQuality(HMI_PRINTQUALITY_1), 5);
    EXPECT_EQ(mediaexport::IppPrintQuality(HMI_PRINTQUALITY_2), 5);
    EXPECT_EQ(mediaexport::IppPrintQuality(HMI_PRINTQUALITY_3), 4);
    EXPECT_EQ(mediaexport::IppPrintQuality(HMI_PRINTQUALITY_4), 3);
    EXPECT_EQ(mediaexport::IppPrintQuality(HMI_PRINTQUALITY_5), 3);
    EXPECT_EQ(mediaexport::IppPrintQuality(HMI_PRINTQUALITY_ALL), 0);
}

// Two media whose every value differs: a glossy paper (colour only; bordered proof at level 3, two-sided
// only, borderless photo at levels 1 and 2) and a plain paper (monochrome, bordered CAD at
// level 5, any slot, no duplex limit).
PrinterModel TwoMedia() {
    PrinterModel model;
    model.product = "TQ \"7\"";
    model.defaultPaperSize = HMI_PAPERSIZE_NA_LETTER;  // the glossy paper lacks it: A4
    Medium glossy = MediumWith("PhotoGlossyPro", {HMI_PAPERSIZE_ISO_A4, HMI_PAPERSIZE_NA_INDEX_4X6});
    glossy.names = {{"en", "Glossy \"Pro\""}, {"de", "Glänzend\\Pro\nneu"}};
    glossy.inputSlots = O({HMI_INPUTBIN_MANUAL03, HMI_INPUTBIN_ASF}, HMI_INPUTBIN_ASF);
    const Node proof = Purpose(O({HMI_PRINTQUALITY_3}, HMI_PRINTQUALITY_3), O({HMI_DUPLEX_AUTO}, HMI_DUPLEX_AUTO),
                               O({HMI_CARTRIDGE_PHOTO, HMI_CARTRIDGE_BKCOLOR}, HMI_CARTRIDGE_BKCOLOR));
    const Node photo = Purpose(O({HMI_PRINTQUALITY_1, HMI_PRINTQUALITY_2}, HMI_PRINTQUALITY_2), O({HMI_DUPLEX_OFF}, HMI_DUPLEX_OFF),
                               O({HMI_CARTRIDGE_PHOTOCOLOR}, HMI_CARTRIDGE_PHOTOCOLOR));
    glossy.cascade = Tree(O({HMI_COLORMODE_COLOR}, HMI_COLORMODE_COLOR),
                          {Tree(O({HMI_OFF, HMI_ON}, HMI_ON), {Tree(O({HMI_PRINTPURPOSE_PROOF}, HMI_PRINTPURPOSE_PROOF), {proof}),
                                                              Tree(O({HMI_PRINTPURPOSE_PHOTO}, HMI_PRINTPURPOSE_PHOTO), {photo})})});
    Medium plain = MediumWith("Plain Paper!", {HMI_PAPERSIZE_ISO_A5, HMI_PAPERSIZE_NA_LETTER});
    plain.names = {{"en", "Plain"}};
    const Node cad = Purpose(O({HMI_PRINTQUALITY_5}, HMI_PRINTQUALITY_5), {}, O({HMI_CARTRIDGE_BK}, HMI_CARTRIDGE_BK));
    plain.cascade = Tree(O({HMI_COLORMODE_MONOCHROME}, HMI_COLORMODE_MONOCHROME),
                         {Tree(O({HMI_OFF}, HMI_OFF), {Tree(O({HMI_PRINTPURPOSE_CAD}, HMI_PRINTPURPOSE_CAD), {cad})})});
    model.media = {glossy, plain};
    return model;
}

using Texts = std::vector<std::string>;

// A job's media-col as the file's collections spell it: "type source WIDTHxLENGTH margin".
std::string Entry(const IppValue& col) {
    std::string type, source, size, margin;
    for (const IppAttribute& member : col.members) {
        const std::string& text = member.values.front().text;
        if (member.name == "media-type") type = text;
        if (member.name == "media-source") source = text;
        if (member.name == "media-top-margin") margin = text;
        if (member.name == "media-size") {
            size = member.values.front().members[0].values[0].text + "x" + member.values.front().members[1].values[0].text;
        }
    }
    return type + " " + source + " " + size + " " + margin;
}

std::string Render(const IppAttribute& attribute) {
    std::string text = attribute.name + "=";
    for (const IppValue& value : attribute.values) {
        if (&value != &attribute.values.front()) text += ",";
        if (!value.collection) text += value.text;
        if (!value.collection) continue;
        text += "{";
        for (const IppAttribute& member : value.members) text += (&member == &value.members.front() ? "" : " ") + Render(member);
        text += "}";
    }
    return text;
}

IppJob Job(const std::string& entry, const std::string& color, const std::string& purpose, int quality,
           const std::string& sides, const std::string& cartridge) {
    std::istringstream words(entry);
    std::string type, source, size, margin;
    words >> type >> source >> size >> margin;
    IppJob job;
    job.values = {{"print-color-mode", color}, {"xrvhmi-print-purpose", purpose}, {"print-quality", std::to_string(quality)},
                  {"sides", sides}, {"xrvhmi-cartridge", cartridge}};
    IppJob& media = job.collections["media-col"];
    media.values = {{"media-type", type}, {"media-source", source}};
    for (const char* side : {"top", "bottom", "left", "right"}) media.values[std::string("media-") + side + "-margin"] = margin;
    media.collections["media-size"].values = {{"x-dimension", size.substr(0, size.find('x'))},
                                              {"y-dimension", size.substr(size.find('x') + 1)}};
    return job;
}

TEST(IppWriter, AttributesOfTwoMedia) {
    std::ostringstream out;
    std::vector<std::string> warnings;
    const mediaexport::IppSummary summary = mediaexport::WriteIppAttributes(TwoMedia(), out, &warnings);
    EXPECT_TRUE(warnings.empty());
    std::vector<IppAttribute> attributes;
    std::string error;
    ASSERT_TRUE(ParseIppAttributes(out.str(), &attributes, &error)) << error << "\n" << out.str();
    std::set<std::string> names;
    for (const IppAttribute& attribute : attributes) EXPECT_TRUE(names.insert(attribute.name).second) << attribute.name;
    // ippeveprinter adds these itself and fails a printer that has them twice.
    for (const char* own : {"media-col-supported", "document-format-supported", "job-creation-attributes-supported"}) {
        EXPECT_EQ(names.count(own), 0u) << own;
    }

    EXPECT_EQ(IppTexts(attributes, "printer-make-and-model"), Texts{"TQ \"7\""});
    EXPECT_EQ(IppTexts(attributes, "media-supported"),
              (Texts{"iso_a5_148x210mm", "iso_a4_210x297mm", "na_letter_8.5x11in", "na_index-4x6_4x6in"}));
    EXPECT_EQ(IppTexts(attributes, "media-default"), Texts{"iso_a4_210x297mm"});
    EXPECT_EQ(IppTexts(attributes, "media-type-supported"), (Texts{"photo-glossy-pro", "plain-paper"}));
    EXPECT_EQ(IppTexts(attributes, "media-source-supported"), (Texts{"auto", "rear", "main", "manual", "disc"}));
    EXPECT_EQ(IppTexts(attributes, "media-top-margin-supported"), (Texts{"300", "0"}));
    EXPECT_EQ(IppTexts(attributes, "print-color-mode-supported"), (Texts{"color", "monochrome"}));
    EXPECT_EQ(IppTexts(attributes, "print-color-mode-default"), Texts{"color"});
    EXPECT_EQ(IppTexts(attributes, "print-quality-supported"), (Texts{"3", "4", "5"}));
    EXPECT_EQ(IppTexts(attributes, "print-quality-default"), Texts{"5"});
    EXPECT_EQ(IppTexts(attributes, "sides-supported"), (Texts{"one-sided", "two-sided-long-edge", "two-sided-short-edge"}));
    EXPECT_EQ(IppTexts(attributes, "sides-default"), Texts{"one-sided"});
    EXPECT_EQ(IppTexts(attributes, "xrvhmi-print-purpose-supported"), (Texts{"photo", "proof", "cad"}));
    EXPECT_EQ(IppTexts(attributes, "xrvhmi-print-purpose-default"), Texts{"photo"});
    EXPECT_EQ(IppTexts(attributes, "xrvhmi-cartridge-supported"), (Texts{"bk", "photo", "bkcolor", "photocolor"}));
    EXPECT_EQ(IppTexts(attributes, "xrvhmi-cartridge-default"), Texts{"photocolor"});

    const IppAttribute* media = FindIppAttribute(attributes, "media-col-default");
    ASSERT_NE(media, nullptr);
    EXPECT_EQ(Entry(media->values[0]), "photo-glossy-pro main 21000x29700 0");
    media = FindIppAttribute(attributes, "media-col-database");
    ASSERT_NE(media, nullptr);
    std::set<std::string> entries;
    for (const IppValue& value : media->values) entries.insert(Entry(value));
    std::set<std::string> expected;
    for (const char* size : {"21000x29700", "10160x15240"}) {
        for (const char* source : {"rear", "main"}) {
            for (const char* margin : {"0", "300"}) expected.insert(std::string("photo-glossy-pro ") + source + " " + size + " " + margin);
        }
    }
    for (const char* size : {"14800x21000", "21590x27940"}) {
        for (const char* source : {"auto", "rear", "main", "manual", "disc"}) {
            expected.insert(std::string("plain-paper ") + source + " " + size + " 300");
        }
    }
    EXPECT_EQ(entries, expected);
    EXPECT_EQ(summary.collections, media->values.size());

    const IppAttribute* constraints = FindIppAttribute(attributes, "job-constraints-supported");
    const IppAttribute* resolvers = FindIppAttribute(attributes, "job-resolvers-supported");
    ASSERT_TRUE(constraints && resolvers);
    EXPECT_EQ(summary.constraints, constraints->values.size());
    // What the resolver a job runs into sets.
    const auto resolution = [&](const IppJob& job) -> std::string {
        const std::string name = IppConflict(*constraints, job);
        if (name.empty()) return "";
        for (const IppValue& resolver : resolvers->values) {
            if (resolver.members.empty() || resolver.members[0].values[0].text != name) continue;
            std::string sets;
            for (size_t i = 1; i < resolver.members.size(); ++i) sets += (i > 1 ? " " : "") + Render(resolver.members[i]);
            return sets;
        }
        return "no resolver " + name;
    };
    const std::string glossyA4 = "photo-glossy-pro rear 21000x29700 ";
    const std::string plainA5 = "plain-paper disc 14800x21000 300";
    EXPECT_EQ(resolution(Job(glossyA4 + "300", "color", "proof", 4, "two-sided-short-edge", "photo")), "");
    // No duplex mode listed: one-sided only.
    EXPECT_EQ(resolution(Job(plainA5, "monochrome", "cad", 3, "two-sided-long-edge", "bk")), "sides=one-sided");
    EXPECT_EQ(resolution(Job(glossyA4 + "300", "color", "proof", 5, "one-sided", "photo")),
              "sides=two-sided-long-edge");
    EXPECT_EQ(resolution(Job(glossyA4 + "0", "color", "photo", 4, "one-sided", "photocolor")), "print-quality=5");
    EXPECT_EQ(resolution(Job(glossyA4 + "0", "monochrome", "photo", 5, "one-sided", "photocolor")),
              "print-color-mode=color xrvhmi-print-purpose=photo sides=one-sided xrvhmi-cartridge=photocolor "
              "print-quality=5");
    EXPECT_EQ(resolution(Job(glossyA4 + "0", "color", "proof", 4, "one-sided", "photo")), "sides=two-sided-long-edge");
    EXPECT_EQ(resolution(Job(glossyA4 + "0", "color", "photo", 5, "two-sided-long-edge", "photocolor")),
              "sides=one-sided");
    EXPECT_EQ(resolution(Job(glossyA4 + "0", "color", "photo", 5, "one-sided", "bk")), "xrvhmi-cartridge=photocolor");
    EXPECT_EQ(resolution(Job(glossyA4 + "300", "color", "proof", 4, "two-sided-long-edge", "photocolor")),
              "xrvhmi-cartridge=bkcolor");
    EXPECT_EQ(resolution(Job(glossyA4 + "300", "color", "proof", 4, "one-sided", "photo")),
              "sides=two-sided-long-edge");
    EXPECT_EQ(resolution(Job("photo-glossy-pro disc 21000x29700 0", "color", "photo", 5, "one-sided", "photocolor")),
              "media-col={media-source=main}");
    EXPECT_EQ(resolution(Job("photo-glossy-pro rear 21590x27940 0", "color", "photo", 5, "one-sided", "photocolor")),
              "media-col={media-size={x-dimension=21000 y-dimension=29700} media-bottom-margin=0 "
              "media-left-margin=0 media-right-margin=0 media-top-margin=0} print-color-mode=color "
              "xrvhmi-print-purpose=photo sides=one-sided xrvhmi-cartridge=photocolor print-quality=5");
    EXPECT_EQ(resolution(Job("plain-paper disc 21000x29700 300", "monochrome", "cad", 3, "one-sided", "bk")),
              "media-col={media-size={x-dimension=21590 y-dimension=27940} media-bottom-margin=300 "
              "media-left-margin=300 media-right-margin=300 media-top-margin=300} print-color-mode=monochrome "
              "xrvhmi-print-purpose=cad sides=one-sided xrvhmi-cartridge=bk print-quality=3");
    EXPECT_EQ(resolution(Job("plain-paper disc 14800x21000 0", "monochrome", "cad", 3, "one-sided", "bk")),
              "media-col={media-bottom-margin=300 media-left-margin=300 media-right-margin=300 "
              "media-top-margin=300} xrvhmi-print-purpose=cad sides=one-sided xrvhmi-cartridge=bk print-quality=3");
    EXPECT_EQ(resolution(Job(plainA5, "monochrome", "photo", 3, "one-sided", "bk")),
              "xrvhmi-print-purpose=cad sides=one-sided xrvhmi-cartridge=bk print-quality=3");
    EXPECT_EQ(resolution(Job(plainA5, "color", "cad", 3, "one-sided", "bk")),
              "print-color-mode=monochrome xrvhmi-print-purpose=cad sides=one-sided xrvhmi-cartridge=bk "
              "print-quality=3");
}

TEST(IppWriter, ListsThatPlaceNoLimitOfferEveryValue) {
    PrinterModel model;
    model.media = {MediumWith("Plain", {HMI_PAPERSIZE_ISO_A4})};
    std::ostringstream out;
    std::vector<std::string> warnings;
    mediaexport::WriteIppAttributes(model, out, &warnings);
    std::vector<IppAttribute> attributes;
    std::string error;
    ASSERT_TRUE(ParseIppAttributes(out.str(), &attributes, &error)) << error;
    EXPECT_EQ(IppTexts(attributes, "xrvhmi-cartridge-supported"), (Texts{"color", "bk", "photo", "bkcolor", "photocolor", "auto"}));
    EXPECT_EQ(IppTexts(attributes, "xrvhmi-cartridge-default"), Texts{"color"});
    EXPECT_EQ(IppTexts(attributes, "media-source-supported"), (Texts{"auto", "rear", "main", "manual", "disc"}));
    EXPECT_EQ(IppTexts(attributes, "sides-supported"), Texts{"one-sided"});
}

TEST(IppWriter, StringsInTheLanguageOrItsFallback) {
    const PrinterModel model = TwoMedia();
    std::ostringstream de, en;
    mediaexport::WriteIppStrings(model, "de", "en", de);
    mediaexport::WriteIppStrings(model, "en", "en", en);
    std::istringstream lines(de.str());
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(std::regex_match(line, std::regex(R"("[a-z0-9.-]+" = "([^"\\]|\\.)*";)"))) << line;
    }
    for (const char* line : {"\"media-type.photo-glossy-pro\" = \"Glänzend\\\\Pro\\nneu\";\n",
                             "\"media-type.plain-paper\" = \"Plain\";\n", "\"media-type\" = \"Papiersorte\";\n",
"\"xrvhmi-print-purpose\" = \"Druckzweck\";\n",
                             "\"xrvhmi-cartridge.bkcolor\" = \"Schwarz und Farbe\";\n", "\"xrvhmi-cartridge\" = \"Tintenpatrone\";\n"}) {
        EXPECT_NE(de.str().find(line), std::string::npos) << line << de.str();
    }
    EXPECT_NE(en.str().find("\"media-type.photo-glossy-pro\" = \"Glossy \\\"Pro\\\"\";\n"), std::string::npos) << en.str();
}

}  // namespace
}  // namespace exporttest
