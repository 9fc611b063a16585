#include "ppd_text.h"

#include <cstdio>

namespace mediaexport {
namespace {

constexpr size_t kMaxTextBytes = 80;

// The length of the UTF-8 sequence that starts with lead, or 0 when lead cannot start one.
size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

std::string Hex(const std::string& bytes) {
    std::string out = "<";
    char digits[3];
    for (const char c : bytes) {
        std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned char>(c));
        out += digits;
    }
    return out + ">";
}

bool KeywordCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.' || c == '_' ||
           c == '-';
}

}  // namespace

uint32_t TextHash(const std::string& text) {
    uint32_t hash = 2166136261u;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash;
}

std::string PpdTranslation(const std::string& utf8) {
    std::string out;
    size_t decoded = 0;
    for (size_t i = 0; i < utf8.size();) {
        const unsigned char lead = static_cast<unsigned char>(utf8[i]);
        size_t length = SequenceLength(lead);
        bool valid = length != 0 && i + length <= utf8.size();
        for (size_t k = 1; valid && k < length; ++k) valid = (static_cast<unsigned char>(utf8[i + k]) & 0xC0u) == 0x80u;
        std::string character = valid ? utf8.substr(i, length) : "?";
        i += valid ? length : 1;
        if (decoded + character.size() > kMaxTextBytes) break;
        decoded += character.size();
        const unsigned char first = static_cast<unsigned char>(character[0]);
        const bool plain = first >= 0x80 || (first >= 0x20 && first != ':' && first != '<' && first != '>' &&
                                             first != 0x7F);
        out += plain ? character : Hex(character);
    }
    return out;
}

bool IsAscii(const std::string& text) {
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= 0x80) return false;
    }
    return true;
}

std::string PpdMediaKeyword(const std::string& id) {
    bool plain = !id.empty() && id.size() <= 40;
    for (const char c : id) plain = plain && KeywordCharacter(c);
    if (plain) return id;
    std::string keyword;
    for (const char c : id) {
        if (keyword.size() == 31) break;
        keyword += KeywordCharacter(c) ? c : '_';
    }
    char hash[16];
    std::snprintf(hash, sizeof hash, "_%08X", static_cast<unsigned>(TextHash(id)));
    return keyword + hash;
}

std::string PpdQuotedAscii(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c >= 0x20 && c < 0x7F && c != '"') out += c;
    }
    return out;
}

}  // namespace mediaexport
