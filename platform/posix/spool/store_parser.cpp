#include "store_parser.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "unicode.h"

namespace hmispool {

namespace {

constexpr uint64_t kMaxValueBytes = 0xFFFFFFFFu;

bool IsSpace(char16_t c) { return c == u' ' || c == u'\t'; }

std::u16string_view TrimLeft(std::u16string_view s) {
    while (!s.empty() && IsSpace(s.front())) s.remove_prefix(1);
    return s;
}

std::u16string_view TrimRight(std::u16string_view s) {
    while (!s.empty() && IsSpace(s.back())) s.remove_suffix(1);
    return s;
}

int HexDigit(char16_t c) {
    if (c >= u'0' && c <= u'9') return c - u'0';
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    return -1;
}

// Reads 1 to maxDigits hex digits at the start of s; false when there are none or too many.
bool ReadHex(std::u16string_view& s, size_t maxDigits, uint32_t& number) {
    size_t n = 0;
    number = 0;
    while (n < s.size() && HexDigit(s[n]) >= 0) {
        if (++n > maxDigits) return false;
        number = number << 4 | static_cast<uint32_t>(HexDigit(s[n - 1]));
    }
    s.remove_prefix(n);
    return n > 0;
}

bool StartsWithFolded(std::u16string_view s, std::u16string_view upperPrefix) {
    return s.size() >= upperPrefix.size() && Folded(s.substr(0, upperPrefix.size())) == upperPrefix;
}

size_t LineOfUnit(std::u16string_view text, size_t offset) {
    return 1 + static_cast<size_t>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset), u'\n'));
}

// The whole file as UTF-16 text, or the line of the first undecodable character.
bool Decode(std::string_view bytes, std::u16string& text, ParseError& error) {
    if (bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFF && static_cast<unsigned char>(bytes[1]) == 0xFE) {
        bytes.remove_prefix(2);
        text.resize(bytes.size() / 2);
        for (size_t i = 0; i < text.size(); ++i) {
            text[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                            static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
        }
        if (bytes.size() % 2 != 0) {
            error = {LineOfUnit(text, text.size()), "UTF-16 text ends in the middle of a character"};
            return false;
        }
        size_t bad = FindUnpairedSurrogate(text);
        if (bad != kAllValid) {
            error = {LineOfUnit(text, bad), "invalid UTF-16 (unpaired surrogate)"};
            return false;
        }
        return true;
    }
    if (bytes.size() >= 3 && bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
    text.reserve(bytes.size());  // a byte gives at most one unit
    size_t bad = AppendUtf16FromUtf8(bytes, text);
    if (bad != kAllValid) {
        error = {1 + static_cast<size_t>(std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(bad), '\n')),
                 "invalid UTF-8 (a store file is UTF-8, or UTF-16LE with a byte-order mark)"};
        return false;
    }
    return true;
}

class Parser {
public:
    Parser(std::u16string_view text, PrinterStore& store, ParseError& error)
        : text_(text), store_(store), error_(error) {}

    bool Run() {
        std::u16string_view line;
        NextLine(line);
        line = TrimRight(line);
        if (line != u"Windows Registry Editor Version 5.00" && line != u"REGEDIT4")
            return Fail("expected the header 'Windows Registry Editor Version 5.00' or 'REGEDIT4'");
        while (NextLine(line)) {
            line = TrimLeft(line);
            if (line.empty() || line.front() == u';') continue;
            if (line.front() == u'[') {
                if (!KeyLine(TrimRight(line))) return false;
            } else if (line.front() == u'"' || line.front() == u'@') {
                if (!ValueLine(line)) return false;
            } else {
                return Fail("expected a [key] line, a value line or a comment");
            }
        }
        return true;
    }

private:
    // Lines without their LF or CRLF; an empty text is one empty line, a final line break ends the text.
    bool NextLine(std::u16string_view& line) {
        if (position_ > text_.size() || (position_ == text_.size() && line_ > 0)) return false;
        size_t end = text_.find(u'\n', position_);
        if (end == std::u16string_view::npos) end = text_.size();
        line = text_.substr(position_, end - position_);
        if (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
        position_ = end + 1;
        ++line_;
        return true;
    }

    bool Fail(const char* message) {
        error_ = {line_, message};
        return false;
    }

    bool KeyLine(std::u16string_view line) {
        if (line.size() < 2 || line.back() != u']') return Fail("expected ']' at the end of the key line");
        std::u16string_view raw = line.substr(1, line.size() - 2);
        bool deletion = !raw.empty() && raw.front() == u'-';
        if (deletion) raw.remove_prefix(1);
        if (StartsWithFolded(raw, u"HKEY_")) {
            // An export from a real registry: the printer's own key becomes the root.
            static constexpr std::u16string_view kPrinters = u"\\PRINTERS\\";
            size_t at = Folded(raw).find(kPrinters);
            if (at == std::u16string::npos) return Fail("absolute key path outside a printer's key");
            raw.remove_prefix(at + kPrinters.size());
            size_t nameEnd = raw.find(u'\\');
            raw = nameEnd == std::u16string_view::npos ? std::u16string_view() : raw.substr(nameEnd + 1);
        }
        if (raw.find(u'\0') != std::u16string_view::npos) return Fail("NUL character in a key name");
        std::u16string path;
        if (!NormalizeKeyPath(raw, path)) return Fail("key path starts with '\\'");
        if (KeyDepth(path) > kMaxKeyDepth) return Fail("key path deeper than 512 levels");
        key_ = nullptr;
        if (deletion) {
            store_.Delete(path);
        } else {
            key_ = &store_.Create(path);
        }
        return true;
    }

    // A quoted string at the start of s with \\ and \" escapes; s is left after the closing quote.
    bool Quoted(std::u16string_view& s, std::u16string& out) {
        for (size_t i = 1; i < s.size(); ++i) {
            if (s[i] == u'"') {
                s.remove_prefix(i + 1);
                return true;
            }
            if (s[i] == u'\\') {
                if (++i == s.size() || (s[i] != u'\\' && s[i] != u'"'))
                    return Fail("unknown escape in a string (only \\\\ and \\\" are allowed)");
            }
            out.push_back(s[i]);
        }
        return Fail("unterminated string");
    }

    bool ValueLine(std::u16string_view line) {
        if (!key_) return Fail("value outside a key section");
        std::u16string name;
        if (line.front() == u'@') {
            line.remove_prefix(1);
        } else if (!Quoted(line, name)) {
            return false;
        }
        if (name.find(u'\0') != std::u16string::npos) return Fail("NUL character in a value name");
        line = TrimLeft(line);
        if (line.empty() || line.front() != u'=') return Fail("expected '=' after value name");
        line = TrimLeft(line.substr(1));
        std::u16string_view data = TrimRight(line);
        if (data == u"-") {
            key_->Remove(name);
            return true;
        }
        if (!data.empty() && data.front() == u'"') return TextValue(data, name);
        if (StartsWithFolded(data, u"DWORD:")) return DwordValue(data.substr(6), name);
        if (StartsWithFolded(data, u"HEX:")) return HexValue(data.substr(4), REG_BINARY, name);
        if (StartsWithFolded(data, u"HEX(")) {
            data.remove_prefix(4);
            uint32_t type;
            if (!ReadHex(data, 8, type) || data.size() < 2 || data.substr(0, 2) != u"):")
                return Fail("expected hex(N): with N of 1 to 8 hex digits");
            return HexValue(data.substr(2), type, name);
        }
        return Fail("expected \"text\", dword:, hex:, hex(N): or - after '='");
    }

    bool TextValue(std::u16string_view data, const std::u16string& name) {
        std::u16string text;
        text.reserve(data.size());
        if (!Quoted(data, text)) return false;
        if (!data.empty()) return Fail("unexpected text after the closing quote");
        if ((static_cast<uint64_t>(text.size()) + 1) * 2 > kMaxValueBytes) return Fail("value too large");
        std::vector<BYTE> bytes;
        bytes.reserve((text.size() + 1) * 2);
        for (char16_t c : text) {
            bytes.push_back(static_cast<BYTE>(c & 0xFF));
            bytes.push_back(static_cast<BYTE>(c >> 8));
        }
        bytes.insert(bytes.end(), 2, 0);
        key_->Set(name, REG_SZ, std::move(bytes));
        return true;
    }

    bool DwordValue(std::u16string_view data, const std::u16string& name) {
        uint32_t number;
        if (!ReadHex(data, 8, number) || !data.empty()) return Fail("expected dword: with 1 to 8 hex digits");
        key_->Set(name, REG_DWORD, {static_cast<BYTE>(number), static_cast<BYTE>(number >> 8),
                                    static_cast<BYTE>(number >> 16), static_cast<BYTE>(number >> 24)});
        return true;
    }

    // Comma-separated bytes; a trailing backslash continues the list on the next line.
    bool HexValue(std::u16string_view data, DWORD type, const std::u16string& name) {
        std::vector<BYTE> bytes;
        bytes.reserve(data.size() / 3 + 1);  // "aa," per byte on the first line
        for (;;) {
            data = TrimRight(TrimLeft(data));
            bool continued = !data.empty() && data.back() == u'\\';
            if (continued) data = TrimRight(data.substr(0, data.size() - 1));
            while (!data.empty()) {
                uint32_t byte;
                if (!ReadHex(data, 2, byte)) return Fail("bad hex byte (expected 1 or 2 hex digits)");
                if (bytes.size() >= kMaxValueBytes) return Fail("value too large");
                bytes.push_back(static_cast<BYTE>(byte));
                data = TrimLeft(data);
                if (data.empty()) break;
                if (data.front() != u',') return Fail("expected ',' between hex bytes");
                data = TrimLeft(data.substr(1));
                if (data.empty() && !continued) return Fail("hex list ends with ','");
            }
            if (!continued) break;
            if (!NextLine(data)) return Fail("file ends inside a continued hex list");
        }
        key_->Set(name, type, std::move(bytes));
        return true;
    }

    std::u16string_view text_;
    size_t position_ = 0;
    size_t line_ = 0;
    PrinterStore& store_;
    ParseError& error_;
    StoreKey* key_ = nullptr;
};

}  // namespace

bool ParseStore(std::string bytes, PrinterStore& store, ParseError& error) {
    std::u16string text;
    if (!Decode(bytes, text, error)) return false;
    std::string().swap(bytes);  // not needed while the text is parsed
    return Parser(text, store, error).Run();
}

}  // namespace hmispool
