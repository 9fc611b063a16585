#include "model_builder.h"

#include <algorithm>
#include <initializer_list>

namespace mediaexport {
namespace {

// The concrete values of each level's vocabulary ("all" and unknown numbers are never offered).
bool Concrete(std::initializer_list<int> known, int value) {
    return std::find(known.begin(), known.end(), value) != known.end();
}

// The list's concrete values, each once, kept when keep(value) says so; the default when kept, else the
// first value kept.
template <typename E, size_t N, typename Keep>
Offer OfferOf(const HMITagListWithDefault<E, N>& list, std::initializer_list<int> known, Keep keep) {
    Offer offer;
    const uint64_t count = std::min<uint64_t>(list.count, N);
    for (uint64_t i = 0; i < count; ++i) {
        const int value = static_cast<int>(list.values[i]);
        if (Concrete(known, value) && !offer.Has(value) && keep(value)) offer.values.push_back(value);
    }
    const int listDefault = static_cast<int>(list.defaultValue);
    if (!offer.values.empty()) offer.defaultValue = offer.Has(listDefault) ? listDefault : offer.values.front();
    return offer;
}

template <typename E, size_t N>
Offer OfferOf(const HMITagListWithDefault<E, N>& list, std::initializer_list<int> known) {
    return OfferOf(list, known, [](int) { return true; });
}

// A level's offer with a child node per value: a value is kept when its node exists and offers
// something below.
template <typename E, size_t N, typename ChildOf>
void Branch(const HMITagListWithDefault<E, N>& list, std::initializer_list<int> known, Node* parent,
            ChildOf childOf) {
    std::vector<std::pair<int, Node>> kept;
    parent->below = OfferOf(list, known, [&](int value) {
        Node child;
        if (!childOf(static_cast<E>(value), &child) || child.below.empty()) return false;
        kept.emplace_back(value, std::move(child));
        return true;
    });
    for (auto& entry : kept) parent->children.push_back(std::move(entry.second));
}

constexpr std::initializer_list<int> kColorModes = {HMI_COLORMODE_COLOR, HMI_COLORMODE_MONOCHROME};
constexpr std::initializer_list<int> kOnOff = {HMI_OFF, HMI_ON};
constexpr std::initializer_list<int> kPurposes = {HMI_PRINTPURPOSE_PHOTO, HMI_PRINTPURPOSE_PROOF,
                                                  HMI_PRINTPURPOSE_CAD};
constexpr std::initializer_list<int> kQualities = {HMI_PRINTQUALITY_1, HMI_PRINTQUALITY_2, HMI_PRINTQUALITY_3,
                                                   HMI_PRINTQUALITY_4, HMI_PRINTQUALITY_5};
constexpr std::initializer_list<int> kDuplex = {HMI_DUPLEX_OFF, HMI_DUPLEX_MANUAL, HMI_DUPLEX_AUTO};
constexpr std::initializer_list<int> kCartridges = {HMI_CARTRIDGE_COLOR, HMI_CARTRIDGE_BK, HMI_CARTRIDGE_PHOTO,
                                                    HMI_CARTRIDGE_BKCOLOR, HMI_CARTRIDGE_PHOTOCOLOR,
                                                    HMI_CARTRIDGE_AUTO};
constexpr std::initializer_list<int> kInputBins = {HMI_INPUTBIN_AUTO, HMI_INPUTBIN_MANUAL03, HMI_INPUTBIN_ASF,
                                                   HMI_INPUTBIN_MANUAL, HMI_INPUTBIN_DISCTRAY};

const _tagHMIAvailablePrintQuality& QualityList(const _tagHMIPrintPurposeInfo& info, QualityVariant variant) {
    switch (variant) {
    case kCmyk4D: return info.availableprintquality_cmyk_4DLUT;
    case kCmyk1D: return info.availableprintquality_cmyk_1DLUT;
    case kIndex: return info.printquality_index;
    case kRgb: break;
    }
    return info.availableprintquality_rgb;
}

bool PurposeNode(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, QualityVariant variant, Node* node) {
    _tagHMIPrintPurposeInfo info;
    if (!purpose || !HMIGetPrintPurposeInfo(access, purpose, &info)) return false;
    node->below = OfferOf(QualityList(info, variant), kQualities);
    node->duplex = OfferOf(info.availableduplexprint, kDuplex);
    node->cartridges = OfferOf(info.availablecartridge, kCartridges);
    return true;
}

bool BorderlessNode(HMIAccess* access, HMIXMLMediaBorderlessMode* borderless, QualityVariant variant, Node* node) {
    _tagHMIAvailablePrintPurpose list;
    if (!borderless || !HMIGetAvailablePrintPurpose(access, borderless, &list)) return false;
    Branch(list, kPurposes, node, [&](tagHMI_PRINTPURPOSE value, Node* child) {
        return PurposeNode(access, HMIFilterPrintPurpose(access, borderless, value), variant, child);
    });
    return true;
}

bool ColorNode(HMIAccess* access, HMIXMLMediaColorMode* colorMode, QualityVariant variant, Node* node) {
    _tagHMIAvailableBorderless list;
    if (!colorMode || !HMIGetAvailableBorderless(access, colorMode, &list)) return false;
    Branch(list, kOnOff, node, [&](_tagHMI_ONOFF value, Node* child) {
        return BorderlessNode(access, HMIFilterBorderless(access, colorMode, value), variant, child);
    });
    return true;
}

}  // namespace

std::string PrintableText(const std::string& text) {
    std::string out;
    for (const char c : text) out += static_cast<unsigned char>(c) >= 0x20 && c != 0x7f ? c : '?';
    return out;
}

Node WalkMedium(HMIAccess* access, HMIXMLMediaDetail* detail, QualityVariant variant, _tagHMIMediaInfo* info) {
    Node root;
    if (!HMIGetMediaInfo(access, detail, info)) return root;
    Branch(info->availableprintcolormode, kColorModes, &root, [&](tagHMI_COLORMODE value, Node* child) {
        return ColorNode(access, HMIFilterColorMode(access, detail, value), variant, child);
    });
    return root;
}

BuildResult BuildModel(const MediaReader& reader, QualityVariant variant, PrinterModel* model) {
    BuildResult result;
    std::vector<MediaReader::Entry> entries;
    if (!reader.Entries(&entries, &result.error)) return result;
    model->product = reader.Product();
    model->variant = variant;
    for (const MediaReader::Entry& entry : entries) {
        if (!entry.valid || !entry.visible) continue;
        const std::string named = "medium \"" + PrintableText(entry.id) + "\" left out: ";
        std::string reason;
        HMIXMLMediaDetail* const detail = reader.Open(entry.id, &reason);
        if (!detail) {
            ++result.rejected;
            model->warnings.push_back(named + reason);
            continue;
        }
        Medium medium;
        _tagHMIMediaInfo info;
        medium.cascade = WalkMedium(reader.access(), detail, variant, &info);
        reader.Close(detail);
        if (medium.cascade.below.empty()) {
            model->warnings.push_back(named + "no combination of colour mode, borderless, purpose and quality");
            continue;
        }
        const uint64_t sizeCount = std::min<uint64_t>(info.unsuported_papersize.count, 26);
        for (uint64_t i = 0; i < sizeCount; ++i) {
            const unsigned size = static_cast<unsigned>(info.unsuported_papersize.values[i]);
            if (size < 26) medium.unsupportedSizes |= 1u << size;
        }
        if (!medium.SupportsAnySize()) {
            model->warnings.push_back(named + "it supports none of the paper sizes");
            continue;
        }
        medium.id = entry.id;
        medium.category = static_cast<int>(info.medium_category);
        medium.inputSlots = OfferOf(info.availableinputbinid, kInputBins);
        medium.names = reader.Names(entry.id);
        model->media.push_back(std::move(medium));
    }
    result.ok = true;
    return result;
}

}  // namespace mediaexport
