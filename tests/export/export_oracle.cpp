#include "export/export_oracle.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

namespace exporttest {

const int kInputSlots[5] = {HMI_INPUTBIN_AUTO, HMI_INPUTBIN_MANUAL03, HMI_INPUTBIN_ASF, HMI_INPUTBIN_MANUAL,
                            HMI_INPUTBIN_DISCTRAY};
const int kCartridges[6] = {HMI_CARTRIDGE_COLOR,   HMI_CARTRIDGE_BK,         HMI_CARTRIDGE_PHOTO,
                            HMI_CARTRIDGE_BKCOLOR, HMI_CARTRIDGE_PHOTOCOLOR, HMI_CARTRIDGE_AUTO};

namespace {

template <typename E, size_t N>
List ListOf(const HMITagListWithDefault<E, N>& list, int concreteBelow, std::vector<int> extra = {}) {
    List out;
    out.defaultValue = static_cast<int>(list.defaultValue);
    for (uint64_t i = 0; i < std::min<uint64_t>(list.count, N); ++i) {
        const int value = static_cast<int>(list.values[i]);
        const bool concrete = (value >= 0 && value < concreteBelow) ||
                              std::find(extra.begin(), extra.end(), value) != extra.end();
        if (concrete && !out.Has(value)) out.values.push_back(value);
    }
    return out;
}

// The valid switch of each entry of database.xml: "ON" exactly, as the tool reads it.
std::map<std::string, bool> ValidSwitches(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream buffer;
    buffer << in.rdbuf();
    const std::string text = buffer.str();
    std::map<std::string, bool> valid;
    const std::string open = "<iv:papertype_info id=\"", close = "</iv:papertype_info>";
    for (size_t at = text.find(open); at != std::string::npos; at = text.find(open, at + 1)) {
        const size_t idStart = at + open.size(), idEnd = text.find('"', idStart);
        const size_t end = text.find(close, idEnd);
        const std::string entry = text.substr(idEnd, end - idEnd);
        valid.emplace(text.substr(idStart, idEnd - idStart), entry.find("<iv:valid>ON</iv:valid>") != std::string::npos);
    }
    return valid;
}

std::vector<std::string> MediaIds(HMIAccess* access, const std::u16string& database) {
    size_t required = 0;
    HMIGetAvailableMediaFile(access, database.c_str(), nullptr, 0, &required);
    std::vector<uint64_t> block(required / 8 + 1);
    auto* list = reinterpret_cast<_tagHMIAvailableMedia*>(block.data());
    std::vector<std::string> ids;
    if (!HMIGetAvailableMediaFile(access, database.c_str(), list, block.size() * 8, &required)) return ids;
    for (uint64_t i = 0; i < list->count; ++i) ids.push_back(Narrow(list->ids[i]));
    return ids;
}

void ReadCascade(HMIAccess* access, HMIXMLMediaDetail* detail, DWORD variant, Medium* medium) {
    for (int c = 0; c < kColors; ++c) {
        HMIXMLMediaColorMode* color = HMIFilterColorMode(access, detail, static_cast<tagHMI_COLORMODE>(c));
        _tagHMIAvailableBorderless borderless;
        if (!color || !HMIGetAvailableBorderless(access, color, &borderless)) continue;
        medium->borderless[c] = ListOf(borderless, kBorderless);
        for (int b = 0; b < kBorderless; ++b) {
            HMIXMLMediaBorderlessMode* node = HMIFilterBorderless(access, color, static_cast<_tagHMI_ONOFF>(b));
            _tagHMIAvailablePrintPurpose purposes;
            if (!node || !HMIGetAvailablePrintPurpose(access, node, &purposes)) continue;
            medium->purposes[c][b] = ListOf(purposes, kPurposes);
            for (int p = 0; p < kPurposes; ++p) {
                HMIXMLMediaPrintPurpose* purpose =
                    HMIFilterPrintPurpose(access, node, static_cast<tagHMI_PRINTPURPOSE>(p));
                _tagHMIPrintPurposeInfo info;
                _tagHMIAvailablePrintQuality qualities;
                if (!purpose || !HMIGetPrintPurposeInfo(access, purpose, &info) ||
                    !HMIGetAvailablePrintQuality(access, purpose, variant, &qualities)) {
                    continue;
                }
                Purpose& out = medium->purpose[c][b][p];
                out.present = true;
                out.qualities = ListOf(qualities, kQualities);
                out.duplex = ListOf(info.availableduplexprint, 3);
                out.cartridges = ListOf(info.availablecartridge, 0, {std::begin(kCartridges), std::end(kCartridges)});
            }
        }
    }
}

// The default of a list whose values are kept by offered: its own when offered, else the first offered.
template <typename Offered>
int Pick(const List& list, Offered offered) {
    if (list.Has(list.defaultValue) && offered(list.defaultValue)) return list.defaultValue;
    for (const int value : list.values) {
        if (offered(value)) return value;
    }
    return -1;
}

}  // namespace

bool List::Has(int value) const { return std::find(values.begin(), values.end(), value) != values.end(); }

bool Medium::Offered(int color, int borderless, int purpose, int quality) const {
    for (int c = 0; c < kColors; ++c) {
        if ((color >= 0 && c != color) || !colors.Has(c)) continue;
        for (int b = 0; b < kBorderless; ++b) {
            if ((borderless >= 0 && b != borderless) || !this->borderless[c].Has(b)) continue;
            for (int p = 0; p < kPurposes; ++p) {
                if ((purpose >= 0 && p != purpose) || !purposes[c][b].Has(p)) continue;
                const List& qualities = this->purpose[c][b][p].qualities;
                if (quality >= 0 ? qualities.Has(quality) : !qualities.values.empty()) return true;
            }
        }
    }
    return false;
}

// A list that names no concrete value places no limit: only "all" (or nothing) is listed.
bool Medium::SlotAllowed(int slot) const { return slots.values.empty() || slots.Has(slot); }

bool Medium::CartridgeAllowed(int color, int borderless, int purpose, int cartridge) const {
    const List& list = this->purpose[color][borderless][purpose].cartridges;
    return list.values.empty() || list.Has(cartridge);
}

bool Medium::SidesAllowed(int color, int borderless, int purpose, Sides sides) const {
    const List& list = this->purpose[color][borderless][purpose].duplex;
    const bool automatic = list.Has(HMI_DUPLEX_AUTO);
    if (sides != kOneSided) return automatic;
    return list.Has(HMI_DUPLEX_OFF) || list.Has(HMI_DUPLEX_MANUAL) || !automatic;
}

std::vector<const Medium*> Printer::Exported() const {
    std::vector<const Medium*> out;
    for (const Medium& medium : media) {
        if (medium.exported()) out.push_back(&medium);
    }
    return out;
}

Printer ReadPrinter(const std::string& directory, DWORD variant, uint32_t namedSizes) {
    Printer printer;
    const std::string databasePath = directory + "/database.xml";
    const std::u16string database = Widen(databasePath);
    const std::map<std::string, bool> valid = ValidSwitches(databasePath);
    HMIAccess* access = HMIOpen(nullptr);
    if (!access) return printer;
    for (const std::string& id : MediaIds(access, database)) {
        Medium medium;
        medium.id = id;
        medium.named = namedSizes;
        printer.media.push_back(medium);
        Medium& m = printer.media.back();
        _tagHMIMediaInfoHeader header;
        const auto validity = valid.find(id);
        if (validity == valid.end() || !validity->second) {
            m.leftOut = "invalid";
            continue;
        }
        if (!HMIGetMediaInfoHeaderFile(access, database.c_str(), Widen(id).c_str(), &header) || !header.visible) {
            m.leftOut = "invisible";
            continue;
        }
        HMIXMLMediaDetail* detail =
            HMIFilterMediaFile(access, Widen(id).c_str(), Widen(directory + "/media/" + id + ".xml").c_str());
        _tagHMIMediaInfo info;
        if (!detail || !HMIGetMediaInfo(access, detail, &info)) {
            if (detail) HMICloseMediaFile(access, detail);
            m.leftOut = "rejected";
            continue;
        }
        for (uint64_t i = 0; i < std::min<uint64_t>(info.unsuported_papersize.count, kPaperSizes); ++i) {
            const unsigned size = static_cast<unsigned>(info.unsuported_papersize.values[i]);
            if (size < kPaperSizes) m.unsupported |= 1u << size;
        }
        m.slots = ListOf(info.availableinputbinid, 0, {std::begin(kInputSlots), std::end(kInputSlots)});
        m.colors = ListOf(info.availableprintcolormode, kColors);
        ReadCascade(access, detail, variant, &m);
        HMICloseMediaFile(access, detail);
        if (!m.Offered(-1)) {
            m.leftOut = "no combination";
        } else if ((m.named & ~m.unsupported) == 0) {
            m.leftOut = "no paper size";
        }
    }
    HMIClose(access);
    return printer;
}

Defaults DefaultsOf(const Printer& printer) {
    Defaults d;
    const std::vector<const Medium*> exported = printer.Exported();
    if (exported.empty()) return d;
    const Medium& m = *exported.front();
    d.medium = &m;
    d.color = Pick(m.colors, [&](int c) { return m.Offered(c); });
    d.borderless = Pick(m.borderless[d.color], [&](int b) { return m.Offered(d.color, b); });
    d.purpose = Pick(m.purposes[d.color][d.borderless], [&](int p) { return m.Offered(d.color, d.borderless, p); });
    const Purpose& purpose = m.purpose[d.color][d.borderless][d.purpose];
    d.quality = Pick(purpose.qualities, [](int) { return true; });
    d.paperSize = HMI_PAPERSIZE_ISO_A4;
    if (!m.Supports(d.paperSize)) {
        d.paperSize = 0;
        while (!m.Supports(d.paperSize)) ++d.paperSize;
    }
    const auto any = [](int) { return true; };
    d.slot = Pick(m.slots, any);
    d.cartridge = Pick(purpose.cartridges, any);
    const int duplex = Pick(purpose.duplex, any);
    if (duplex >= 0) {
        const bool oneSided = m.SidesAllowed(d.color, d.borderless, d.purpose, kOneSided);
        d.sides = duplex == HMI_DUPLEX_AUTO || !oneSided ? kLongEdge : kOneSided;
    }
    return d;
}

std::u16string Widen(const std::string& text) {
    std::u16string out;
    for (size_t i = 0; i < text.size();) {
        const unsigned char lead = static_cast<unsigned char>(text[i]);
        const int extra = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        uint32_t code = extra == 0 ? lead : lead & (0x3F >> extra);
        for (int k = 1; k <= extra && i + k < text.size(); ++k) code = code << 6 | (text[i + k] & 0x3F);
        i += static_cast<size_t>(extra) + 1;
        if (code >= 0x10000) {
            out += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
            out += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
        } else {
            out += static_cast<char16_t>(code);
        }
    }
    return out;
}

std::string Narrow(const WCHAR* text) {
    std::string out;
    for (; *text; ++text) {
        uint32_t code = *text;
        if (code >= 0xD800 && code < 0xDC00 && text[1] >= 0xDC00 && text[1] < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10) + (*++text - 0xDC00);
        }
        if (code < 0x80) {
            out += static_cast<char>(code);
        } else if (code < 0x800) {
            out += static_cast<char>(0xC0 | code >> 6);
            out += static_cast<char>(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            out += static_cast<char>(0xE0 | code >> 12);
            out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
            out += static_cast<char>(0x80 | (code & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | code >> 18);
            out += static_cast<char>(0x80 | (code >> 12 & 0x3F));
            out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
            out += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return out;
}

}  // namespace exporttest
