#include "store_writer.h"

#include <cstdio>

#include "unicode.h"

namespace hmispool {

namespace {

constexpr size_t kHexLineWidth = 77;

bool AppendQuoted(std::u16string_view text, std::string& out) {
    std::u16string escaped;
    escaped.reserve(text.size() + 2);
    escaped.push_back(u'"');
    for (char16_t c : text) {
        if (c == u'\\' || c == u'"') escaped.push_back(u'\\');
        escaped.push_back(c);
    }
    escaped.push_back(u'"');
    return AppendUtf8FromUtf16(escaped, out);
}

// The text of REG_SZ data that is terminated once, at its end, and fits on one line.
bool AsSingleLineText(const StoredValue& value, std::u16string& text) {
    const std::vector<BYTE>& data = value.data;
    if (value.type != REG_SZ || data.size() < 2 || data.size() % 2 != 0) return false;
    text.clear();
    for (size_t i = 0; i + 2 < data.size(); i += 2) {
        char16_t c = static_cast<char16_t>(data[i] | data[i + 1] << 8);
        if (c == 0) return false;
        text.push_back(c);
    }
    return data[data.size() - 2] == 0 && data.back() == 0 && IsWritableName(text);
}

void AppendHex(const StoredValue& value, size_t lineStart, std::string& out) {
    char buffer[32];
    if (value.type == REG_BINARY) {
        out += "hex:";
    } else {
        std::snprintf(buffer, sizeof buffer, "hex(%x):", static_cast<unsigned>(value.type));
        out += buffer;
    }
    for (size_t i = 0; i < value.data.size(); ++i) {
        std::snprintf(buffer, sizeof buffer, "%02x", value.data[i]);
        out += buffer;
        if (i + 1 == value.data.size()) break;
        out += ',';
        if (out.size() - lineStart >= kHexLineWidth) {
            out += "\\\n";
            lineStart = out.size();
            out += "  ";
        }
    }
}

bool AppendValue(const StoredValue& value, std::string& out) {
    size_t lineStart = out.size();
    if (value.name.empty()) {
        out += '@';
    } else if (!AppendQuoted(value.name, out)) {
        return false;
    }
    out += '=';
    std::u16string text;
    if (AsSingleLineText(value, text)) {
        AppendQuoted(text, out);
    } else if (value.type == REG_DWORD && value.data.size() == 4) {
        char buffer[16];
        unsigned number = value.data[0] | value.data[1] << 8 | value.data[2] << 16 | static_cast<unsigned>(value.data[3]) << 24;
        std::snprintf(buffer, sizeof buffer, "dword:%08x", number);
        out += buffer;
    } else {
        AppendHex(value, lineStart, out);
    }
    out += '\n';
    return true;
}

}  // namespace

bool IsWritableName(std::u16string_view name) {
    return name.find_first_of(u"\r\n") == std::u16string_view::npos && FindUnpairedSurrogate(name) == kAllValid;
}

bool FormatStore(const PrinterStore& store, std::string& out) {
    out = "Windows Registry Editor Version 5.00\n";
    for (const auto& entry : store.keys()) {
        const StoreKey& key = entry.second;
        if (key.path().empty() && key.values().empty()) continue;
        out += "\n[";
        const std::u16string& path = key.path();
        if (!path.empty() && (path.front() == u'-' || Folded(path.substr(0, 5)) == u"HKEY_"))
            out += "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Printer\\";
        if (!AppendUtf8FromUtf16(path, out)) return false;
        out += "]\n";
        for (const StoredValue& value : key.values()) {
            if (!AppendValue(value, out)) return false;
        }
    }
    return true;
}

}  // namespace hmispool
