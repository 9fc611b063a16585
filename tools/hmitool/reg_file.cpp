#include "reg_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace hmitool {
namespace {

constexpr size_t kLineWidth = 80;

std::string Quoted(const WString& text) {
    std::string out = "\"";
    for (char c : Narrow(text.c_str(), text.size())) {
        if (c == '\\' || c == '"') out += '\\';
        out += c;
    }
    return out + "\"";
}

std::string ValueName(const WString& name) { return name.empty() ? "@" : Quoted(name); }

std::string HexList(std::string line, const std::vector<uint8_t>& data) {
    std::string out;
    for (size_t i = 0; i < data.size(); ++i) {
        char item[4];
        std::snprintf(item, sizeof item, i + 1 < data.size() ? "%02x," : "%02x", data[i]);
        if (line.size() + std::strlen(item) + 1 > kLineWidth) {
            out += line + "\\\r\n";
            line = "  ";
        }
        line += item;
    }
    return out + line + "\r\n";
}

std::string ValueLine(const StoreValue& value) {
    const std::string name = ValueName(value.name);
    switch (value.type) {
        case kStoreText: {
            const size_t units = value.data.size() / 2;  // the last one is the terminator
            return name + "=" + Quoted(FromUtf16Le(value.data.data(), units ? units - 1 : 0)) + "\r\n";
        }
        case kStoreDword: {
            char number[16];
            std::snprintf(number, sizeof number, "%02x%02x%02x%02x", value.data[3], value.data[2], value.data[1],
                          value.data[0]);
            return name + "=dword:" + number + "\r\n";
        }
        case kStoreBinary:
            break;
    }
    return HexList(name + "=hex:", value.data);
}

}  // namespace

std::string RegFileBytes(const StoreImage& image, const WString& keyPrefix, const std::string& comment) {
    std::string text = "Windows Registry Editor Version 5.00\r\n\r\n";
    if (!comment.empty()) text += "; " + comment + "\r\n\r\n";
    for (const StoreKey& key : image) {
        text += "[" + Narrow((keyPrefix + key.path).c_str()) + "]\r\n";
        for (const StoreValue& value : key.values) text += ValueLine(value);
        text += "\r\n";
    }
    return "\xFF\xFE" + Utf16LeBytes(Widen(text));
}

WString PrinterRegistryKey(const std::string& printerName) {
    return Widen("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\" + printerName + "\\");
}

bool WriteFileReplacing(const std::string& path, const std::string& bytes, std::string* error) {
    namespace fs = std::filesystem;
    const fs::path target = fs::u8path(path);
    fs::path partial = target;
    partial += ".partial";
    errno = 0;
    std::ofstream out(partial, std::ios::binary | std::ios::trunc);
    const bool opened = out.is_open();
    if (opened) out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
    const int reason = errno;
    const bool written = opened && out.good();
    out.close();
    std::error_code code;
    if (written && !out.fail()) {
        fs::rename(partial, target, code);
        if (!code) return true;
    }
    if (opened) fs::remove(partial);
    *error = "cannot write '" + path + "': " + (code ? code.message() : reason ? std::strerror(reason) : "write failed");
    return false;
}

}  // namespace hmitool
