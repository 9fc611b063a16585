#include "export/export_oracle.h"

#include <algorithm>
#include <codecvt>
#include <fstream>
#include <locale>
#include <map>
#include <sstream>

namespace exporttest {

const int kInputSlots[5] = {HMI_INPUTBIN_AUTO, HMI_INPUTBIN_MANUAL03, HMI_INPUTBIN_ASF, HMI_INPUTBIN_MANUAL, HMI_INPUTBIN_DISCTRAY};
const int kCartridges[6] = {HMI_CARTRIDGE_COLOR,   HMI_CARTRIDGE_BK,         HMI_CARTRIDGE_PHOTO,
                            HMI_CARTRIDGE_BKCOLOR, HMI_CARTRIDGE_PHOTOCOLOR, HMI_CARTRIDGE_AUTO};

namespace {

using Utf = std::wstring_convert<std::codecvt_utf8_utf16<char16_t>, char16_t>;  // one each time: it keeps state

// Values below concreteBelow and the extra ones are concrete.
template <typename E, size_t N>
List ListOf(const HMITagListWithDefault<E, N>& list, int concreteBelow, const int* extra = nullptr, size_t extras = 0) {
    List out;
    out.defaultValue = static_cast<int>(list.defaultValue);
    for (uint64_t i = 0; i < std::min<uint64_t>(list.count, N); ++i) {
        const int value = static_cast<int>(list.values[i]);
        if (((value >= 0 && value < concreteBelow) || std::count(extra, extra + extras, value)) && !out.Has(value)) {
            out.values.push_back(value);
        }
    }
    return out;
}

// The valid switch of each entry of database.xml: "ON" exactly, as the tool reads it.
std::map<std::string, bool> ValidSwitches(const std::string& path) {
    std::stringstream buffer;
    buffer << std::ifstream(path, std::ios::binary).rdbuf();
    const std::string text = buffer.str(), open = "<iv:papertype_info id=\"";
    std::map<std::string, bool> valid;
    for (size_t at = text.find(open); at != std::string::npos; at = text.find(open, at + 1)) {
        const size_t id = at + open.size(), end = text.find('"', id);
        const std::string entry = text.substr(end, text.find("</iv:papertype_info>", end) - end);
        valid.emplace(text.substr(id, end - id), entry.find("<iv:valid>ON</iv:valid>") != std::string::npos);
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
    for (uint64_t i = 0; i < list->count; ++i) ids.push_back(Utf().to_bytes(list->ids[i]));
    return ids;
}

void ReadCascade(HMIAccess* access, HMIXMLMediaDetail* detail, DWORD variant, Medium* m) {
    for (int c = 0; c < kColors; ++c) {
        HMIXMLMediaColorMode* color = HMIFilterColorMode(access, detail, static_cast<tagHMI_COLORMODE>(c));
        _tagHMIAvailableBorderless borderless;
        if (!color || !HMIGetAvailableBorderless(access, color, &borderless)) continue;
        m->borderless[c] = ListOf(borderless, kBorderless);
        for (int b = 0; b < kBorderless; ++b) {
            HMIXMLMediaBorderlessMode* node = HMIFilterBorderless(access, color, static_cast<_tagHMI_ONOFF>(b));
            _tagHMIAvailablePrintPurpose purposes;
            if (!node || !HMIGetAvailablePrintPurpose(access, node, &purposes)) continue;
            m->purposes[c][b] = ListOf(purposes, kPurposes);
            for (int p = 0; p < kPurposes; ++p) {
                HMIXMLMediaPrintPurpose* purpose = HMIFilterPrintPurpose(access, node, static_cast<tagHMI_PRINTPURPOSE>(p));
                _tagHMIPrintPurposeInfo info;
                _tagHMIAvailablePrintQuality qualities;
                if (purpose && HMIGetPrintPurposeInfo(access, purpose, &info) &&
                    HMIGetAvailablePrintQuality(access, purpose, variant, &qualities)) {
                    m->purpose[c][b][p] = {ListOf(qualities, kQualities), ListOf(info.availableduplexprint, 3),
                                           ListOf(info.availablecartridge, 0, kCartridges, 6)};
                }
            }
        }
    }
}

// The default of a list: its own when offered, else the first offered value.
template <typename Offered>
int Pick(const List& list, Offered offered) {
    if (list.Has(list.defaultValue) && offered(list.defaultValue)) return list.defaultValue;
    const auto first = std::find_if(list.values.begin(), list.values.end(), offered);
    return first == list.values.end() ? -1 : *first;
}

}  // namespace

bool List::Has(int value) const { return std::find(values.begin(), values.end(), value) != values.end(); }

bool Medium::Offered(int color, int borderless, int purpose, int quality) const {
    for (int path = 0; path < kColors * kBorderless * kPurposes; ++path) {
        const int c = path / 6, b = path / 3 % 2, p = path % 3;
        const List& qualities = this->purpose[c][b][p].qualities;
        if ((color < 0 || c == color) && (borderless < 0 || b == borderless) && (purpose < 0 || p == purpose) &&
            colors.Has(c) && this->borderless[c].Has(b) && purposes[c][b].Has(p) &&
            (quality >= 0 ? qualities.Has(quality) : !qualities.values.empty())) {
            return true;
        }
    }
    return false;
}

bool Medium::SidesAllowed(int color, int borderless, int purpose, Sides sides) const {
    const List& list = this->purpose[color][borderless][purpose].duplex;
    const bool automatic = list.Has(HMI_DUPLEX_AUTO);
    return sides != kOneSided ? automatic : list.Has(HMI_DUPLEX_OFF) || list.Has(HMI_DUPLEX_MANUAL) || !automatic;
}

std::vector<const Medium*> Printer::Exported() const {
    std::vector<const Medium*> out;
    for (const Medium& medium : media) {
        if (medium.leftOut.empty()) out.push_back(&medium);
    }
    return out;
}

Printer ReadPrinter(const std::string& directory, DWORD variant, uint32_t namedSizes) {
    Printer printer;
    const std::u16string database = Utf().from_bytes(directory + "/database.xml");
    const std::map<std::string, bool> valid = ValidSwitches(directory + "/database.xml");
    HMIAccess* access = HMIOpen(nullptr);
    for (const std::string& id : access ? MediaIds(access, database) : std::vector<std::string>()) {
        printer.media.emplace_back();
        printer.media.back().id = id;
        Medium& m = printer.media.back();
        m.named = namedSizes;
        const std::u16string wide = Utf().from_bytes(id);
        _tagHMIMediaInfoHeader header;
        _tagHMIMediaInfo info;
        HMIXMLMediaDetail* detail = nullptr;
        if (!valid.count(id) || !valid.at(id)) {
            m.leftOut = "invalid";
        } else if (!HMIGetMediaInfoHeaderFile(access, database.c_str(), wide.c_str(), &header) || !header.visible) {
            m.leftOut = "invisible";
        } else if (!(detail = HMIFilterMediaFile(access, wide.c_str(), Utf().from_bytes(directory + "/media/" + id + ".xml").c_str())) ||
                   !HMIGetMediaInfo(access, detail, &info)) {
            m.leftOut = "rejected";
        } else {
            for (uint64_t i = 0; i < std::min<uint64_t>(info.unsuported_papersize.count, kPaperSizes); ++i) {
                const unsigned size = static_cast<unsigned>(info.unsuported_papersize.values[i]);
                if (size < kPaperSizes) m.unsupported |= 1u << size;
            }
            m.slots = ListOf(info.availableinputbinid, 0, kInputSlots, 5);
            m.colors = ListOf(info.availableprintcolormode, kColors);
            ReadCascade(access, detail, variant, &m);
            if (!m.Offered(-1)) m.leftOut = "no combination";
            else if ((m.named & ~m.unsupported) == 0) m.leftOut = "no paper size";
        }
        if (detail) HMICloseMediaFile(access, detail);
    }
    if (access) HMIClose(access);
    return printer;
}

Choice DefaultsOf(const Printer& printer) {
    const Medium& m = *printer.Exported().front();
    const auto any = [](int) { return true; };
    Choice d;
    d.color = Pick(m.colors, [&](int c) { return m.Offered(c); });
    d.borderless = Pick(m.borderless[d.color], [&](int b) { return m.Offered(d.color, b); });
    d.purpose = Pick(m.purposes[d.color][d.borderless], [&](int p) { return m.Offered(d.color, d.borderless, p); });
    const Purpose& purpose = m.purpose[d.color][d.borderless][d.purpose];
    d.quality = Pick(purpose.qualities, any);
    d.size = HMI_PAPERSIZE_ISO_A4;
    if (!m.Supports(d.size)) for (d.size = 0; !m.Supports(d.size);) ++d.size;
    d.slot = Pick(m.slots, any);
    d.cartridge = Pick(purpose.cartridges, any);
    const int duplex = Pick(purpose.duplex, any);
    const bool oneSided = m.SidesAllowed(d.color, d.borderless, d.purpose, kOneSided);
    d.sides = duplex < 0 ? -1 : duplex == HMI_DUPLEX_AUTO || !oneSided ? kLongEdge : kOneSided;
    return d;
}

}  // namespace exporttest
