#include "export/random_printer.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

namespace exporttest {
namespace {

using Words = std::vector<std::string>;

const Words kQualities = {"1", "2", "3", "4", "5"};
const Words kPaperSizes = {
    "iso_a5_148x210mm",       "iso_a4_210x297mm",       "iso_a3_297x420mm",       "iso_a2_420x594mm",
    "jis_b5_182x257mm",       "jis_b4_257x364mm",       "iso_b3_353x500mm",       "na_letter_8.5x11in",
    "na_legal_8.5x14in",      "na_ledger_11x17in",      "jpn_hagaki_100x148mm",   "custom_tolva_200x148mm",
    "custom_tolva_329x483mm", "custom_tolva_89x127mm",  "custom_tolva_127x178mm", "na_index-4x6_4x6in",
    "custom_tolva_4x8in",     "na_5x7_5x7in",           "custom_tolva_17x22in",   "custom_tolva_101x180mm",
    "custom_tolva_55x91mm",   "custom_tolva_54x86mm",   "custom_tolva_98x190mm",  "custom_tolva_203x254mm",
    "custom_tolva_254x304mm", "custom_tolva_355x431mm"};
// The cascade's levels above the qualities: name, list element, node element, values.
const char* const kLevels[][3] = {{"color", "availableprintcolormode", "printcolormode"},
                                  {"borderless", "availableborderlessprint", "borderlessprint"},
                                  {"purpose", "availableprint_purpose", "print_purpose"}};
const Words kLevelWords[] = {{"color", "monochrome"}, {"ON", "OFF"}, {"photo", "proof", "cad"}};

// How a medium is meant to turn out, and how often: the last five are documents the library rejects.
enum Kind { kNormal, kInvalid, kInvisible, kNoSize, kNoCombination, kNoThreePosition, kOverflow, kCut, kNoDocument, kNoType };
const uint32_t kKindPercent[] = {65, 6, 6, 8, 5, 2, 2, 2, 2, 2};
const char* const kKindFeatures[] = {"", "invalid", "invisible", "", "no-combination", "rejected"};

bool Contains(const Words& words, const std::string& word) { return std::find(words.begin(), words.end(), word) != words.end(); }

std::string Join(const Words& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ",") + word;
    return text;
}

std::string Element(const std::string& name, const Words& words, const std::string& attributes = "") {
    return "<" + name + attributes + ">" + Join(words) + "</" + name + ">\n";
}

// The draws of one printer (std::uniform_int_distribution differs between standard libraries, this does not).
class Generator {
public:
    Generator(uint32_t seed, std::set<std::string>& features) : engine_(seed * 2654435761u + 17u), features_(features) {}

    uint32_t Below(size_t n) { return n ? static_cast<uint32_t>(engine_() % n) : 0; }
    bool Percent(uint32_t p) { return Below(100) < p; }
    const std::string& Pick(const Words& words) { return words[Below(words.size())]; }
    bool Note(bool happens, const std::string& feature) {
        if (happens) features_.insert(feature);
        return happens;
    }
    Words Subset(Words words, size_t count) {
        for (size_t i = words.size(); i > 1; --i) std::swap(words[i - 1], words[Below(i)]);
        words.resize(std::min(count, words.size()));
        return words;
    }

    // Ids in the forms an export must turn into keywords: plain, spaced, with a '+' that maps to the same
    // characters as a space, non-ASCII, longer than a keyword may be.
    std::string Id(const std::string& number, std::string previous) {
        const uint32_t roll = Below(100);
        if (roll < 8 && Note(previous.find(' ') != std::string::npos, "ids-alike")) {
            std::replace(previous.begin(), previous.end(), ' ', '+');
            return previous;
        }
        if (roll < 18) return "Sheet " + number;
        if (Note(roll < 24, "id-non-ascii")) return "Papier\xc3\xa9" + number;
        if (Note(roll < 30, "id-long")) return "VeryLongMediumIdentifierThatExceedsTheKeywordLimit" + number;
        return "Medium" + number;
    }

    std::string Names(const std::string& id) {
        std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<iv:medianame_list xmlns:iv=\"http://xrvhmi.example.org/"
                          "ns/cmd/2008/07/common/\" id=\"" + id + "\">\n";
        for (const std::string language : {"en", "de", "fr", "ja"}) {
            if (!Note(!Percent(80), "name-missing")) xml += Element("iv:medianame_item", {id + " " + language}, " language=\"" + language + "\"");
        }
        return xml + "</iv:medianame_list>\n";
    }

    // ensure: a complete path along the first listed values; onlyBorderless: the one borderless value listed.
    std::string Document(Kind kind, bool ensure, int onlyBorderless) {
        kind_ = kind;
        onlyBorderless_ = onlyBorderless;
        noQualities_ = kind == kNoCombination && Percent(50);
        noThreePosition_ = kind == kNoThreePosition;
        noType_ = kind == kNoType;
        std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<medium>\n<operationflag>0000218008001000</operationflag>\n"
                          "<format_version>1.00</format_version>\n<medium_category>01</medium_category>\n";
        xml += PaperSizes(kind == kNoSize, ensure);
        xml += "<printarea>50,50,50,50</printarea>\n<locale>WW,US</locale>\n<bk_ink_type>PBk</bk_ink_type>\n";
        xml += List("availableinputbinid", {"AUTO", "MANUAL03", "asf", "manual", "DISCTRAY"}, 11, false, nullptr,
                    Note(Percent(12), "input-bins-all") ? Words{"all"} : Words{});
        xml += Cascade(0, ensure) + "</medium>\n";
        if (kind == kCut) xml.resize(xml.size() * 2 / 3);
        return xml;
    }

private:
    // A list element: tokens drawn from words (at most capacity, "all" among them now and then) and a
    // default that is usually one of them. ensure: non-empty, its first token concrete. forced: these tokens.
    std::string List(const std::string& name, const Words& words, size_t capacity, bool ensure, Words* tokens,
                     const Words& forced = {}) {
        Words unused;
        if (!tokens) tokens = &unused;
        *tokens = forced;
        if (forced.empty()) {
            if (!ensure && Note(Percent(5), "list-missing")) return "";
            *tokens = Subset(words, Percent(8) && !ensure ? 0 : std::min<size_t>(capacity, 1 + Below(words.size())));
            if (tokens->size() < capacity && Note(Percent(12), "all-in-list")) {
                tokens->insert(tokens->begin() + (ensure ? 1 + Below(tokens->size()) : Below(tokens->size() + 1)), "all");
            }
        }
        Words others = {"all"};
        std::copy_if(words.begin(), words.end(), std::back_inserter(others), [&](const std::string& w) { return !Contains(*tokens, w); });
        const uint32_t roll = Below(100);
        const std::string value = roll < 78 && !tokens->empty() ? Pick(*tokens) : roll < 90 ? Pick(others) : roll < 95 ? "bogus" : "";
        Note(!value.empty() && !Contains(*tokens, value), "default-not-in-list");
        return Element(name, *tokens, value.empty() ? "" : " default=\"" + value + "\"");
    }

    // The node types below a list: most listed values get a node, some unlisted ones too, and now and then
    // an "all" node; in random order, a duplicate type now and then (the first counts).
    Words NodeTypes(size_t depth, const Words& listed, bool ensure) {
        Words types;
        for (const std::string& word : kLevelWords[depth]) {
            const bool inList = Contains(listed, word);
            if (Percent(inList ? 78 : 15)) types.push_back(word);
            Note(inList != Contains(types, word), inList ? "listed-node-missing" : "node-not-in-list");
        }
        if (Note(Percent(25), std::string("all-node-") + kLevels[depth][0])) types.push_back("all");
        types = Subset(types, types.size());
        if (ensure && !listed.empty() && listed[0] != "all" && !Contains(types, listed[0])) types.insert(types.begin(), listed[0]);
        if (!types.empty() && Note(Percent(4), "duplicate-node")) types.push_back(types[0]);
        return types;
    }

    std::string Cascade(size_t depth, bool ensure) {
        const Words& words = kLevelWords[depth];
        Words listed, forced;
        if (depth == 0 && Note(kind_ == kOverflow, "list-overflow")) forced = {"color", "monochrome", "all"};  // one too many
        if (depth == 0 && kind_ == kNoCombination && Percent(50)) forced = {"all"};
        if (depth == 1 && onlyBorderless_ >= 0 && Note(true, onlyBorderless_ ? "only-off" : "only-on")) forced = {words[onlyBorderless_]};
        std::string xml = List(kLevels[depth][1], words, words.size(), ensure, &listed, forced);
        for (const std::string& type : NodeTypes(depth, listed, ensure)) {
            const bool on = ensure && !listed.empty() && type == listed[0];
            const std::string node = kLevels[depth][2], attribute = depth == 2 && noType_ ? "" : " type=\"" + type + "\"";
            noType_ &= depth != 2;
            xml += "<" + node + attribute + ">\n" + (depth == 2 ? Purpose(on) : Cascade(depth + 1, on)) + "</" + node + ">\n";
        }
        return xml;
    }

    std::string PaperSizes(bool none, bool ensure) {
        Words sizes;
        if (Note(none, "all-sizes-unsupported")) {
            sizes = Subset(kPaperSizes, kPaperSizes.size());
        } else if (!ensure && Note(Percent(5), "one-size-supported")) {
            // One size left: now and then 127x178mm, whose name CUPS gives to 5x7in.
            const std::string kept = Percent(50) ? kPaperSizes[14] : Pick(kPaperSizes);
            std::copy_if(kPaperSizes.begin(), kPaperSizes.end(), std::back_inserter(sizes), [&](const std::string& s) { return s != kept; });
        } else if (Percent(30)) {
            if (Percent(50)) return "";
        } else {
            sizes = Subset(kPaperSizes, 1 + Below(Percent(20) ? 25 : 12));
            Note(Note(true, "some-sizes-unsupported") && Contains(sizes, "iso_a4_210x297mm"), "a4-unsupported");
            if (Percent(10)) sizes.push_back("custom_unknown_1x1mm");
        }
        return Element("unsuported_papersize", sizes);
    }

    // A quality node; the index variant's list is the text of its first node, after the last child.
    std::string Quality(const std::string& element, const std::string& type, const Words& list = {}, const std::string& value = "") {
        std::string xml = "<" + element + " type=\"" + type + "\"";
        if (!noThreePosition_) xml += " threeposition=\"" + Pick({"fine", "normal", "draft", "all"}) + "\"";
        if (!value.empty()) xml += " default=\"" + value + "\"";
        noThreePosition_ = false;
        xml += ">\n<operationflag>0000001104000081</operationflag>\n<bit>8</bit>\n<app_filter_id>F350C24E</app_filter_id>\n";
        return xml + "<availableresolution default=\"600\">300,600</availableresolution>" + (list.empty() ? "\n" : Join(list)) +
               "</" + element + ">\n";
    }

    std::string Purpose(bool ensure) {
        std::string xml = "<operationflag>0080000080000600</operationflag>\n", nodes;
        Words tokens;
        xml += List("availableduplexprint", {"OFF", "manual", "auto"}, 3, false, &tokens,
                    Note(Percent(10), "duplex-all") ? Words{"all"} : Words{});
        Note(tokens == Words{"auto"}, "duplex-only-auto");
        Note(Contains(tokens, "manual") && !Contains(tokens, "OFF"), "duplex-manual-no-off");
        xml += List("availablecartridge", {"color", "bk", "photo", "bkcolor", "photocolor", "auto"}, 7, false, nullptr,
                    Note(Percent(12), "cartridge-all") ? Words{"all"} : Words{});
        for (const std::string variant : {"rgb", "cmyk_4DLUT", "cmyk_1DLUT"}) {
            tokens.clear();
            if (!noQualities_ && (variant == "rgb" || Percent(75))) {
                xml += List("availableprintquality_" + variant, kQualities, 5, ensure && variant == "rgb", &tokens);
            }
            for (uint32_t n = Below(3) + noThreePosition_; n > 0; --n) {
                const bool all = Note(tokens.empty() || Percent(20), "all-node-quality");
                nodes += Quality("printquality_" + variant, all ? "all" : Pick(tokens));
            }
        }
        if (!noQualities_ && Note(Percent(50), "index-list")) {
            tokens = Subset(kQualities, Below(6));
            const std::string type = tokens.empty() || Percent(30) ? "all" : Pick(tokens);
            nodes += Quality("printquality_index", type, tokens, tokens.empty() ? "" : Pick(tokens));
        }
        return xml + nodes;
    }

    std::mt19937 engine_;
    std::set<std::string>& features_;
    Kind kind_ = kNormal;
    int onlyBorderless_ = -1;
    bool noQualities_ = false, noThreePosition_ = false, noType_ = false;
};

void Write(const std::filesystem::path& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

}  // namespace

const std::set<std::string>& ExpectedFeatures() {
    static const std::set<std::string> features = {
        "all-node-color", "all-node-borderless", "all-node-purpose", "all-node-quality", "all-in-list", "only-off", "only-on",
        "some-sizes-unsupported", "all-sizes-unsupported", "a4-unsupported", "one-size-supported", "invalid", "invisible",
        "rejected", "list-overflow", "no-combination", "no-medium-exported", "name-missing", "names-file-missing",
        "default-not-in-list", "listed-node-missing", "node-not-in-list", "duplicate-node", "list-missing", "input-bins-all",
        "duplex-all", "cartridge-all", "duplex-only-auto", "duplex-manual-no-off", "index-list", "ids-alike", "id-long", "id-non-ascii"};
    return features;
}

std::set<std::string> WriteRandomPrinter(uint32_t seed, const std::string& directory) {
    std::set<std::string> features;
    Generator g(seed, features);
    const std::filesystem::path root = std::filesystem::u8path(directory);
    std::filesystem::remove_all(root);
    for (const char* folder : {"media", "names"}) std::filesystem::create_directories(root / folder);
    // A medium the exports keep, but in every fiftieth printer none.
    const bool none = g.Note(seed % 50 == 0, "no-medium-exported");
    const size_t count = 2 + g.Below(5), kept = none ? count : g.Below(count);
    std::string entries, id;
    for (size_t i = 0; i < count; ++i) {
        char number[16];
        std::snprintf(number, sizeof number, "%04u%04zu", seed, i);
        id = g.Id(number, id);
        uint32_t roll = g.Below(100), drawn = 0;
        while (roll >= kKindPercent[drawn]) roll -= kKindPercent[drawn++];
        const Kind kind = static_cast<Kind>(i == kept ? kNormal : none ? kInvalid + g.Below(3) : drawn);
        g.Note(*kKindFeatures[std::min<int>(kind, 5)], kKindFeatures[std::min<int>(kind, 5)]);
        const uint32_t shape = g.Below(100);
        const std::string document = g.Document(kind, i == kept || kind >= kNoThreePosition, shape < 15 ? 1 : shape < 25 ? 0 : -1);
        if (kind != kNoDocument) Write(root / "media" / std::filesystem::u8path(id + ".xml"), document);
        if (!g.Note(g.Percent(5), "names-file-missing")) Write(root / "names" / std::filesystem::u8path(id + ".xml"), g.Names(id));
        entries += "<iv:papertype_info id=\"" + id + "\">\n<iv:media_number>" + number + "</iv:media_number>\n" +
                   Element("iv:valid", {kind == kInvalid ? "OFF" : "ON"}) + Element("iv:visible", {kind == kInvisible ? "OFF" : "ON"}) +
                   "<iv:checksum>b166605c3dce7ccf50484bdb2ef858db</iv:checksum>\n</iv:papertype_info>\n";
    }
    Write(root / "database.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<iv:papertype_database xmlns:iv=\"http://"
                                 "xrvhmi.example.org/ns/cmd/2008/07/common/\">\n<iv:common_info>\n<iv:db_format_ver>2.10"
                                 "</iv:db_format_ver>\n<iv:product_id>RP\"" + std::to_string(seed) + "</iv:product_id>\n"
                                 "<iv:pop-db-time>2026-01-01 00:00:00</iv:pop-db-time>\n</iv:common_info>\n"
                                 "<iv:papertype_info_list>\n" + entries + "</iv:papertype_info_list>\n</iv:papertype_database>\n");
    return features;
}

}  // namespace exporttest
