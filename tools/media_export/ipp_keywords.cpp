#include "ipp_keywords.h"

#include <cstdio>
#include <set>

#include "ipp_writer.h"
#include "ppd_text.h"

namespace mediaexport {
namespace {

struct Word {
    int value;
    const char* keyword;
};

const Word kColorModes[] = {{HMI_COLORMODE_COLOR, "color"}, {HMI_COLORMODE_MONOCHROME, "monochrome"}};
const Word kMediaSources[] = {{HMI_INPUTBIN_AUTO, "auto"}, {HMI_INPUTBIN_MANUAL03, "rear"}, {HMI_INPUTBIN_ASF, "main"},
                              {HMI_INPUTBIN_MANUAL, "manual"}, {HMI_INPUTBIN_DISCTRAY, "disc"}};
const Word kPurposes[] = {{HMI_PRINTPURPOSE_PHOTO, "photo"}, {HMI_PRINTPURPOSE_PROOF, "proof"},
                          {HMI_PRINTPURPOSE_CAD, "cad"}};
const Word kCartridges[] = {{HMI_CARTRIDGE_COLOR, "color"},         {HMI_CARTRIDGE_BK, "bk"},
                            {HMI_CARTRIDGE_PHOTO, "photo"},         {HMI_CARTRIDGE_BKCOLOR, "bkcolor"},
                            {HMI_CARTRIDGE_PHOTOCOLOR, "photocolor"}, {HMI_CARTRIDGE_AUTO, "auto"}};

template <size_t N>
const char* KeywordOf(const Word (&words)[N], int value) {
    for (const Word& word : words) {
        if (word.value == value) return word.keyword;
    }
    return nullptr;
}

// Ids that name a PWG media type outright; matched whole and case by case.
const struct {
    const char* id;
    const char* keyword;
} kPwgTypes[] = {
    {"Plain", "stationery"},
    {"PlainPaper", "stationery"},
    {"RecycledPaper", "stationery-recycled"},
    {"RecycledPlain", "stationery-recycled"},
    {"Photo", "photographic"},
    {"PhotoPaper", "photographic"},
    {"Glossy", "photographic-glossy"},
    {"PhotoGlossy", "photographic-glossy"},
    {"PhotoHighGloss", "photographic-high-gloss"},
    {"PhotoMatte", "photographic-matte"},
    {"PhotoSatin", "photographic-satin"},
    {"PhotoSemiGloss", "photographic-semi-gloss"},
    {"Transparency", "transparency"},
    {"TransparencyFilm", "transparency"},
    {"Envelope", "envelope"},
    {"EnvelopePlain", "envelope"},
    {"Labels", "labels"},
    {"Cardstock", "cardstock"},
    {"PrintableDisc", "disc"},
    {"PrintableDiscGlossy", "disc-glossy"},
};

constexpr size_t kMaxDerived = 64;

bool Upper(char c) { return c >= 'A' && c <= 'Z'; }
bool Lower(char c) { return c >= 'a' && c <= 'z'; }
bool Digit(char c) { return c >= '0' && c <= '9'; }

std::string Hex8(uint32_t hash) {
    char text[9];
    std::snprintf(text, sizeof text, "%08x", static_cast<unsigned>(hash));
    return text;
}

}  // namespace

const char* IppColorMode(int colorMode) { return KeywordOf(kColorModes, colorMode); }
const char* IppMediaSource(int inputSlot) { return KeywordOf(kMediaSources, inputSlot); }
const char* IppPurpose(int purpose) { return KeywordOf(kPurposes, purpose); }
const char* IppCartridge(int cartridge) { return KeywordOf(kCartridges, cartridge); }

bool IsIppKeyword(const std::string& word) {
    if (word.empty() || word.size() > 255 || !Lower(word[0])) return false;
    for (const char c : word) {
        if (!Lower(c) && !Digit(c) && c != '-' && c != '_' && c != '.') return false;
    }
    return true;
}

std::string PlainMediaType(const std::string& id) {
    for (const auto& type : kPwgTypes) {
        if (id == type.id) return type.keyword;
    }
    std::string out;
    char previous = 0;  // the last ASCII letter or digit of the current word; 0 after a separator
    for (size_t i = 0; i < id.size(); ++i) {
        const char c = id[i];
        if (static_cast<unsigned char>(c) >= 0x80) continue;
        if (!Upper(c) && !Lower(c) && !Digit(c)) {
            previous = 0;
            continue;
        }
        const bool nextLower = i + 1 < id.size() && Lower(id[i + 1]);
        const bool newWord = previous == 0 || (Upper(c) && (!Upper(previous) || nextLower));
        if (newWord && !out.empty()) out += '-';
        out += Upper(c) ? static_cast<char>(c - 'A' + 'a') : c;
        previous = c;
    }
    if (out.size() > kMaxDerived) out.resize(kMaxDerived);
    while (!out.empty() && out.back() == '-') out.pop_back();
    return out;
}

std::vector<std::string> IppMediaTypes(const PrinterModel& model) {
    std::vector<std::string> keywords;
    std::set<std::string> taken;
    for (const Medium& medium : model.media) {
        std::string keyword = PlainMediaType(medium.id);
        if (!IsIppKeyword(keyword) || taken.count(keyword)) {
            const std::string base = IsIppKeyword(keyword) ? keyword : keyword.empty() ? "media" : "media-" + keyword;
            keyword = base + '-' + Hex8(TextHash(medium.id));
            // A clash of hashes, or an id that spells another's hashed keyword: hash again.
            for (unsigned round = 1; taken.count(keyword); ++round) {
                keyword = base + '-' + Hex8(TextHash(medium.id + '#' + std::to_string(round)));
            }
        }
        taken.insert(keyword);
        keywords.push_back(keyword);
    }
    return keywords;
}

int IppPrintQuality(int level) {
    switch (level) {
    case HMI_PRINTQUALITY_1:
    case HMI_PRINTQUALITY_2: return 5;
    case HMI_PRINTQUALITY_3: return 4;
    case HMI_PRINTQUALITY_4:
    case HMI_PRINTQUALITY_5: return 3;
    default: return 0;
    }
}

}  // namespace mediaexport
