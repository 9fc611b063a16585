#include "export/random_printer.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace exporttest {
namespace {

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

const Words kColorWords = {"color", "monochrome"};
const Words kBorderlessWords = {"ON", "OFF"};
const Words kPurposeWords = {"photo", "proof", "cad"};
const Words kQualityWords = {"1", "2", "3", "4", "5"};
const Words kDuplexWords = {"OFF", "manual", "auto"};
const Words kCartridgeWords = {"color", "bk", "photo", "bkcolor", "photocolor", "auto"};
const Words kInputBinWords = {"AUTO", "MANUAL03", "asf", "manual", "DISCTRAY"};
const Words kThreePositions = {"fine", "normal", "draft", "all"};
const Words kLanguages = {"en", "de", "fr", "ja"};
const Words kPaperSizes = {
    "iso_a5_148x210mm",       "iso_a4_210x297mm",       "iso_a3_297x420mm",       "iso_a2_420x594mm",
    "jis_b5_182x257mm",       "jis_b4_257x364mm",       "iso_b3_353x500mm",       "na_letter_8.5x11in",
    "na_legal_8.5x14in",      "na_ledger_11x17in",      "jpn_hagaki_100x148mm",   "custom_tolva_200x148mm",
    "custom_tolva_329x483mm", "custom_tolva_89x127mm",  "custom_tolva_127x178mm", "na_index-4x6_4x6in",
    "custom_tolva_4x8in",     "na_5x7_5x7in",           "custom_tolva_17x22in",   "custom_tolva_101x180mm",
    "custom_tolva_55x91mm",   "custom_tolva_54x86mm",   "custom_tolva_98x190mm",  "custom_tolva_203x254mm",
    "custom_tolva_254x304mm", "custom_tolva_355x431mm"};
// The quality variants: list element, node element.
const char* const kVariantLists[] = {"availableprintquality_rgb", "availableprintquality_cmyk_4DLUT",
                                     "availableprintquality_cmyk_1DLUT"};
const char* const kVariantNodes[] = {"printquality_rgb", "printquality_cmyk_4DLUT", "printquality_cmyk_1DLUT"};

// std::uniform_int_distribution differs between standard libraries; this does not.
class Random {
public:
    explicit Random(uint32_t seed) : engine_(seed) {}
    uint32_t Below(uint32_t n) { return n ? static_cast<uint32_t>(engine_() % n) : 0; }
    bool Percent(uint32_t p) { return Below(100) < p; }
    const std::string& Pick(const Words& words) { return words[Below(static_cast<uint32_t>(words.size()))]; }
    template <typename T>
    void Shuffle(std::vector<T>& v) {
        for (size_t i = v.size(); i > 1; --i) std::swap(v[i - 1], v[Below(static_cast<uint32_t>(i))]);
    }
    // count distinct words in random order.
    Words Subset(const Words& words, size_t count) {
        Words all = words;
        Shuffle(all);
        all.resize(std::min(count, all.size()));
        return all;
    }
    std::string Hex(size_t digits) {
        static const char kDigits[] = "0123456789ABCDEF";
        std::string out;
        for (size_t i = 0; i < digits; ++i) out += kDigits[Below(16)];
        return out;
    }

private:
    std::mt19937 engine_;
};

std::string Join(const Words& words) {
    std::string out;
    for (const std::string& w : words) out += (out.empty() ? "" : ",") + w;
    return out;
}

bool Contains(const Words& words, const std::string& word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

std::string Indent(int depth) { return std::string(static_cast<size_t>(depth) * 2, ' '); }

// How a medium is meant to turn out.
enum class Kind { kNormal, kInvalid, kInvisible, kRejected, kNoSize, kNoCombination };
enum class Rejection { kThreePosition, kOverflow, kNotWellFormed, kMissingDocument, kPurposeType };
enum class Borderless { kAny, kOnlyOff, kOnlyOn };

class MediumWriter {
public:
    MediumWriter(Random& random, std::set<std::string>& features, bool ensurePath, Borderless borderless)
        : r_(random), features_(features), ensurePath_(ensurePath), borderless_(borderless) {}

    // Corruptions placed in the first purpose node written.
    bool missingThreePosition = false;
    bool purposeWithoutType = false;
    // Quality lists left empty throughout: the medium offers no complete combination.
    bool noQualities = false;

    // A list element: tokens drawn from words (at most capacity, "all" among them now and then) and a
    // default that is usually one of them. ensure: non-empty, its first token concrete.
    std::string List(const std::string& name, const Words& words, size_t capacity, int depth, bool ensure,
                     Words* tokens, Words forced = {}) {
        tokens->clear();
        if (!ensure && forced.empty() && r_.Percent(5)) {
            features_.insert("list-missing");
            return "";
        }
        if (!forced.empty()) {
            *tokens = forced;
        } else {
            size_t count = r_.Percent(8) && !ensure ? 0 : 1 + r_.Below(static_cast<uint32_t>(words.size()));
            *tokens = r_.Subset(words, std::min(count, capacity));
            if (tokens->size() < capacity && r_.Percent(12)) {
                const size_t at = ensure ? 1 + r_.Below(static_cast<uint32_t>(tokens->size()))
                                         : r_.Below(static_cast<uint32_t>(tokens->size() + 1));
                tokens->insert(tokens->begin() + static_cast<long>(at), "all");
                features_.insert("all-in-list");
            }
        }
        std::string attribute;
        const uint32_t roll = r_.Below(100);
        if (roll < 78 && !tokens->empty()) {
            attribute = r_.Pick(*tokens);
        } else if (roll < 90) {
            Words others = {"all"};
            for (const std::string& w : words) {
                if (!Contains(*tokens, w)) others.push_back(w);
            }
            attribute = r_.Pick(others);
            features_.insert("default-not-in-list");
        } else if (roll < 95) {
            attribute = "bogus";
            features_.insert("default-not-in-list");
        }
        std::string xml = Indent(depth) + "<" + name;
        if (!attribute.empty()) xml += " default=\"" + attribute + "\"";
        return xml + ">" + Join(*tokens) + "</" + name + ">\n";
    }

    // The node types written below a list: most listed values get a node, some unlisted ones too, and
    // now and then an "all" node; in random order, a duplicate type now and then (the first counts).
    Words NodeTypes(const Words& words, const Words& listed, bool ensure, const std::string& level) {
        Words types;
        for (const std::string& w : words) {
            const bool inList = Contains(listed, w);
            if (r_.Percent(inList ? 78 : 15)) {
                types.push_back(w);
                if (!inList) features_.insert("node-not-in-list");
            } else if (inList) {
                features_.insert("listed-node-missing");
            }
        }
        if (r_.Percent(25)) {
            types.push_back("all");
            features_.insert("all-node-" + level);
        }
        r_.Shuffle(types);
        if (ensure && !listed.empty() && listed.front() != "all" && !Contains(types, listed.front())) {
            types.insert(types.begin(), listed.front());
        }
        if (!types.empty() && r_.Percent(4)) {
            types.push_back(types.front());
            features_.insert("duplicate-node");
        }
        return types;
    }

    std::string Document(Kind kind, Rejection rejection) {
        std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<medium>\n";
        xml += "  <operationflag>" + r_.Hex(16) + "</operationflag>\n";
        xml += "  <format_version>1.00</format_version>\n";
        char category[8];
        std::snprintf(category, sizeof category, "%02u", 1 + r_.Below(14));
        xml += std::string("  <medium_category>") + category + "</medium_category>\n";
        xml += PaperSizes(kind == Kind::kNoSize);
        xml += "  <printarea>" + std::string(r_.Percent(50) ? "unconstrained" : "50,50,50,50") + "</printarea>\n";
        xml += "  <locale>WW,US</locale>\n  <bk_ink_type>PBk</bk_ink_type>\n";
        xml += InputBins();
        Words colors;
        if (kind == Kind::kRejected && rejection == Rejection::kOverflow) {
            xml += "  <availableprintcolormode default=\"color\">color,monochrome,all</availableprintcolormode>\n";
            colors = {"color", "monochrome"};
            features_.insert("list-overflow");
        } else if (kind == Kind::kNoCombination && r_.Percent(50)) {
            xml += List("availableprintcolormode", kColorWords, 2, 1, false, &colors, {"all"});
        } else {
            xml += List("availableprintcolormode", kColorWords, 2, 1, ensurePath_, &colors);
        }
        for (const std::string& type : NodeTypes(kColorWords, colors, ensurePath_, "color")) {
            xml += "  <printcolormode type=\"" + type + "\">\n" + ColorNode(ensurePath_ && type == colors.front()) +
                   "  </printcolormode>\n";
        }
        xml += "</medium>\n";
        if (kind == Kind::kRejected && rejection == Rejection::kNotWellFormed) {
            xml.resize(xml.size() * 2 / 3);
        }
        return xml;
    }

private:
    std::string PaperSizes(bool none) {
        Words sizes;
        if (none) {
            sizes = kPaperSizes;
            r_.Shuffle(sizes);
            features_.insert("all-sizes-unsupported");
        } else if (!ensurePath_ && r_.Percent(5)) {
            // One size left: now and then 127x178mm, whose name CUPS gives to 5x7in.
            const std::string kept = r_.Percent(50) ? kPaperSizes[14] : r_.Pick(kPaperSizes);
            for (const std::string& size : kPaperSizes) {
                if (size != kept) sizes.push_back(size);
            }
            features_.insert("one-size-supported");
        } else if (r_.Percent(30)) {
            if (r_.Percent(50)) return "";
        } else {
            sizes = r_.Subset(kPaperSizes, 1 + r_.Below(r_.Percent(20) ? 25 : 12));
            features_.insert("some-sizes-unsupported");
            if (Contains(sizes, "iso_a4_210x297mm")) features_.insert("a4-unsupported");
            if (r_.Percent(10)) sizes.push_back("custom_unknown_1x1mm");
        }
        return "  <unsuported_papersize>" + Join(sizes) + "</unsuported_papersize>\n";
    }

    std::string InputBins() {
        const uint32_t roll = r_.Below(100);
        if (roll < 15) return "";
        Words tokens;
        std::string xml;
        if (roll < 25) {
            features_.insert("input-bins-all");
            return "  <availableinputbinid default=\"all\">all</availableinputbinid>\n";
        }
        return List("availableinputbinid", kInputBinWords, 11, 1, false, &tokens);
    }

    std::string ColorNode(bool ensure) {
        Words values;
        std::string xml;
        if (borderless_ == Borderless::kOnlyOff) {
            xml = List("availableborderlessprint", kBorderlessWords, 2, 2, false, &values, {"OFF"});
            features_.insert("only-off");
        } else if (borderless_ == Borderless::kOnlyOn) {
            xml = List("availableborderlessprint", kBorderlessWords, 2, 2, false, &values, {"ON"});
            features_.insert("only-on");
        } else {
            xml = List("availableborderlessprint", kBorderlessWords, 2, 2, ensure, &values);
        }
        for (const std::string& type : NodeTypes(kBorderlessWords, values, ensure, "borderless")) {
            xml += "    <borderlessprint type=\"" + type + "\">\n" +
                   BorderlessNode(ensure && !values.empty() && type == values.front()) + "    </borderlessprint>\n";
        }
        return xml;
    }

    std::string BorderlessNode(bool ensure) {
        Words values;
        std::string xml = List("availableprint_purpose", kPurposeWords, 3, 3, ensure, &values);
        for (const std::string& type : NodeTypes(kPurposeWords, values, ensure, "purpose")) {
            std::string open = "      <print_purpose type=\"" + type + "\">\n";
            if (purposeWithoutType) {
                open = "      <print_purpose>\n";
                purposeWithoutType = false;
            }
            xml += open + PurposeNode(ensure && type == values.front()) + "      </print_purpose>\n";
        }
        return xml;
    }

    std::string Quality(const std::string& element, const std::string& type, bool threePosition,
                        const std::string& trailing = "", const std::string& defaultAttribute = "") {
        std::string xml = "        <" + element + " type=\"" + type + "\"";
        if (threePosition) xml += " threeposition=\"" + r_.Pick(kThreePositions) + "\"";
        if (!defaultAttribute.empty()) xml += " default=\"" + defaultAttribute + "\"";
        xml += ">\n          <operationflag>" + r_.Hex(16) + "</operationflag>\n";
        xml += "          <bit>8</bit>\n          <app_filter_id>F" + r_.Hex(7) + "</app_filter_id>\n";
        xml += "          <availableresolution default=\"600\">300,600</availableresolution>";
        // A value's text is the node's last text child: the list follows the last child directly.
        return xml + (trailing.empty() ? "\n        " : trailing) + "</" + element + ">\n";
    }

    std::string PurposeNode(bool ensure) {
        std::string xml = "        <operationflag>" + r_.Hex(16) + "</operationflag>\n";
        Words tokens;
        if (r_.Percent(10)) {
            xml += "        <availableduplexprint default=\"all\">all</availableduplexprint>\n";
            features_.insert("duplex-all");
        } else {
            xml += List("availableduplexprint", kDuplexWords, 3, 4, false, &tokens);
            if (tokens.size() == 1 && tokens.front() == "auto") features_.insert("duplex-only-auto");
            if (Contains(tokens, "manual") && !Contains(tokens, "OFF")) features_.insert("duplex-manual-no-off");
        }
        if (r_.Percent(10)) {
            xml += "        <availablecartridge default=\"all\">all</availablecartridge>\n";
            features_.insert("cartridge-all");
        } else {
            xml += List("availablecartridge", kCartridgeWords, 7, 4, false, &tokens);
        }
        if (r_.Percent(15)) xml += "        <availableAppPostcardMedia>address,contents</availableAppPostcardMedia>\n";
        std::string nodes;
        for (size_t v = 0; v < 3; ++v) {
            if (noQualities) {
                tokens.clear();
            } else if (v == 0 || r_.Percent(75)) {
                xml += List(kVariantLists[v], kQualityWords, 5, 4, ensure && v == 0, &tokens);
            } else {
                tokens.clear();
            }
            for (size_t n = r_.Below(3); n > 0; --n) {
                const bool all = tokens.empty() || r_.Percent(20);
                if (all) features_.insert("all-node-quality");
                nodes += Quality(kVariantNodes[v], all ? "all" : r_.Pick(tokens), true);
            }
            if (missingThreePosition) {
                nodes += Quality(kVariantNodes[v], tokens.empty() ? "1" : tokens.front(), false);
                missingThreePosition = false;
            }
        }
        // The index list is the text of the first index node.
        if (!noQualities && r_.Percent(50)) {
            tokens = r_.Subset(kQualityWords, r_.Below(6));
            const std::string type = tokens.empty() || r_.Percent(30) ? "all" : r_.Pick(tokens);
            nodes += Quality("printquality_index", type, true, Join(tokens), tokens.empty() ? "" : r_.Pick(tokens));
            features_.insert("index-list");
        }
        return xml + nodes;
    }

    Random& r_;
    std::set<std::string>& features_;
    bool ensurePath_;
    Borderless borderless_;
};

std::string NamesDocument(const std::string& id, const std::string& escapedId, Random& r,
                          std::set<std::string>& features) {
    std::string items, plain;
    for (const std::string& language : kLanguages) {
        if (!r.Percent(80)) {
            features.insert("name-missing");
            continue;
        }
        const std::string name = id + " (" + language + ")";
        std::string text;
        for (const char c : name) text += c == '&' ? std::string("&amp;") : std::string(1, c);
        items += "  <iv:medianame_item language=\"" + language + "\">" + text + "</iv:medianame_item>\n";
        plain += "  <medianame_item language=\"" + language + "\">" + text + "</medianame_item>\n";
    }
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<iv:medianame_list "
           "xmlns:iv=\"http://xrvhmi.example.org/ns/cmd/2008/07/common/\" id=\"" +
           escapedId + "\">\n" + items + plain + "</iv:medianame_list>\n";
}

void WriteFile(const fs::path& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
    if (!out) throw std::runtime_error("cannot write " + path.u8string());
}

// Ids in the forms an export must turn into keywords: plain, spaced, with a '+' that maps to the same
// characters as a space, non-ASCII, longer than a keyword may be.
std::string MediumId(Random& r, uint32_t seed, size_t index, const std::string& previous,
                     std::set<std::string>& features) {
    const std::string number = std::to_string(seed) + "x" + std::to_string(index);
    const uint32_t roll = r.Below(100);
    if (roll < 8 && previous.find(' ') != std::string::npos) {
        std::string id = previous;
        std::replace(id.begin(), id.end(), ' ', '+');
        features.insert("ids-alike");
        return id;
    }
    if (roll < 18) return "Sheet " + number;
    if (roll < 24) {
        features.insert("id-non-ascii");
        return "Papier\xc3\xa9" + number;
    }
    if (roll < 30) {
        features.insert("id-long");
        return "VeryLongMediumIdentifierThatExceedsTheKeywordLimit" + number;
    }
    return "Medium" + number;
}

}  // namespace

const std::set<std::string>& ExpectedFeatures() {
    static const std::set<std::string> features = {
        "all-node-color", "all-node-borderless", "all-node-purpose", "all-node-quality", "all-in-list",
        "only-off", "only-on", "some-sizes-unsupported", "all-sizes-unsupported", "a4-unsupported",
        "invalid", "invisible", "rejected", "name-missing", "names-file-missing", "default-not-in-list",
        "listed-node-missing", "node-not-in-list", "no-combination", "input-bins-all", "duplex-all",
        "cartridge-all", "duplex-only-auto", "duplex-manual-no-off", "index-list", "ids-alike", "id-long",
        "id-non-ascii", "list-overflow", "duplicate-node", "list-missing", "one-size-supported"};
    return features;
}

GeneratedPrinter WriteRandomPrinter(uint32_t seed, const std::string& directory) {
    GeneratedPrinter printer;
    printer.directory = directory;
    Random r(seed * 2654435761u + 17u);
    const fs::path root = fs::u8path(directory);
    fs::remove_all(root);
    fs::create_directories(root / "media");
    fs::create_directories(root / "names");

    const size_t count = 2 + r.Below(5);
    const size_t anchor = r.Below(static_cast<uint32_t>(count));
    std::string entries, previous;
    std::set<std::string> used;
    for (size_t i = 0; i < count; ++i) {
        std::string id = MediumId(r, seed, i, previous, printer.features);
        if (!used.insert(id).second) id += "b";
        previous = id;

        Kind kind = Kind::kNormal;
        if (i != anchor) {
            const uint32_t roll = r.Below(100);
            kind = roll < 6 ? Kind::kInvalid : roll < 12 ? Kind::kInvisible : roll < 22 ? Kind::kRejected
                 : roll < 30 ? Kind::kNoSize : roll < 35 ? Kind::kNoCombination : Kind::kNormal;
        }
        const Rejection rejection = static_cast<Rejection>(r.Below(5));
        const uint32_t shape = r.Below(100);
        const Borderless borderless = shape < 15 ? Borderless::kOnlyOff : shape < 25 ? Borderless::kOnlyOn
                                                                                     : Borderless::kAny;
        MediumWriter writer(r, printer.features, i == anchor || kind == Kind::kRejected, borderless);
        if (kind == Kind::kRejected) {
            printer.features.insert("rejected");
            writer.missingThreePosition = rejection == Rejection::kThreePosition;
            writer.purposeWithoutType = rejection == Rejection::kPurposeType;
        }
        if (kind == Kind::kNoCombination) {
            printer.features.insert("no-combination");
            writer.noQualities = r.Percent(50);
        }
        if (kind == Kind::kInvalid) printer.features.insert("invalid");
        if (kind == Kind::kInvisible) printer.features.insert("invisible");

        const std::string document = writer.Document(kind, rejection);
        if (!(kind == Kind::kRejected && rejection == Rejection::kMissingDocument)) {
            WriteFile(root / "media" / fs::u8path(id + ".xml"), document);
        }
        if (r.Percent(5)) {
            printer.features.insert("names-file-missing");
        } else {
            WriteFile(root / "names" / fs::u8path(id + ".xml"), NamesDocument(id, id, r, printer.features));
        }
        entries += "    <iv:papertype_info id=\"" + id + "\">\n";
        entries += "      <iv:media_number>" + r.Hex(8) + "</iv:media_number>\n";
        entries += std::string("      <iv:valid>") + (kind == Kind::kInvalid ? "OFF" : "ON") + "</iv:valid>\n";
        entries += std::string("      <iv:visible>") + (kind == Kind::kInvisible ? "OFF" : "ON") + "</iv:visible>\n";
        entries += "      <iv:checksum>" + r.Hex(32) + "</iv:checksum>\n";
        entries += "    </iv:papertype_info>\n";
    }
    WriteFile(root / "database.xml",
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<iv:papertype_database xmlns:iv=\"http://xrvhmi.example.org/ns/cmd/2008/07/common/\">\n"
              "  <iv:common_info>\n    <iv:db_format_ver>2.10</iv:db_format_ver>\n"
              "    <iv:product_id>RP" + std::to_string(seed % 10000) + "</iv:product_id>\n"
              "    <iv:pop-db-time>2026-01-01 00:00:00</iv:pop-db-time>\n  </iv:common_info>\n"
              "  <iv:papertype_info_list>\n" + entries + "  </iv:papertype_info_list>\n</iv:papertype_database>\n");
    return printer;
}

uint32_t GeneratedPrinterCount() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return 40;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
    return 40;
#else
    return 200;
#endif
#else
    return 200;
#endif
}

ScratchDirectory::ScratchDirectory(const std::string& name) {
    const fs::path path = fs::temp_directory_path() / ("hmi-export-" + name + "-" + std::to_string(::getpid()));
    fs::remove_all(path);
    fs::create_directories(path);
    path_ = path.u8string();
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    if (!keep_) fs::remove_all(fs::u8path(path_), ignored);
}

void ForEachOnTwoThreads(size_t count, const std::function<void(size_t)>& work) {
    std::thread other([&] {
        for (size_t i = 1; i < count; i += 2) work(i);
    });
    for (size_t i = 0; i < count; i += 2) work(i);
    other.join();
}

std::string ShellQuoted(const std::string& word) {
    std::string out = "'";
    for (const char c : word) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

ExportRun RunCommand(const std::string& command) {
    ExportRun run;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    if (!pipe) return run;
    char buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) run.output.append(buffer, n);
    const int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

std::vector<ExportRun> ExportAll(const std::string& tool, const std::string& kind, const std::string& extension,
                                 const std::vector<std::string>& directories, const std::vector<std::string>& args) {
    // One shell runs them all: xargs keeps two tools busy, each writing its output and status beside
    // its directory.
    std::string extra;
    for (const std::string& arg : args) extra += " " + ShellQuoted(arg);
    const std::string script = "\"$0\" export " + kind + " --from-files \"$1\" -o \"$1." + extension + "\"" + extra +
                               " >\"$1.out\" 2>&1; echo $? >\"$1.status\"";
    std::string list;
    for (const std::string& directory : directories) list += directory + '\0';
    const std::string listPath = directories.empty() ? "" : directories.front() + ".list";
    std::vector<ExportRun> runs(directories.size());
    if (directories.empty()) return runs;
    {
        std::ofstream out(listPath, std::ios::binary);
        out << list;
    }
    RunCommand("xargs -0 -P 2 -n 1 sh -c " + ShellQuoted(script) + " " + ShellQuoted(tool) + " <" +
               ShellQuoted(listPath));
    for (size_t i = 0; i < directories.size(); ++i) {
        std::ifstream status(directories[i] + ".status");
        status >> runs[i].status;
        std::ifstream output(directories[i] + ".out", std::ios::binary);
        runs[i].output.assign(std::istreambuf_iterator<char>(output), std::istreambuf_iterator<char>());
    }
    return runs;
}

}  // namespace exporttest
