#include "cascade_walk.h"

#include <algorithm>
#include <cstdio>

namespace hmitool {

const FilterLevel<HMIXMLMediaDetail, HMIXMLMediaColorMode, tagHMI_COLORMODE, 2> kColorModeLevel = {
    "printcolormode",    nullptr,          "HMIFilterColorMode", &HMIColorModeConverter,
    HMI_COLORMODE_ALL, HMIGetAvailableColorMode, HMIFilterColorMode};
const FilterLevel<HMIXMLMediaColorMode, HMIXMLMediaBorderlessMode, _tagHMI_ONOFF, 2> kBorderlessLevel = {
    "borderlessprint", "availableborderlessprint", "HMIFilterBorderless", &HMIOnOffConverter,
    HMI_ONOFF_ALL,     HMIGetAvailableBorderless,  HMIFilterBorderless};
const FilterLevel<HMIXMLMediaBorderlessMode, HMIXMLMediaPrintPurpose, tagHMI_PRINTPURPOSE, 3> kPrintPurposeLevel = {
    "print_purpose",      "availableprint_purpose",    "HMIFilterPrintPurpose", &HMIPrintPurposeConverter,
    HMI_PRINTPURPOSE_ALL, HMIGetAvailablePrintPurpose, HMIFilterPrintPurpose};

QualityReached ReachQuality(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, DWORD variant,
                            tagHMI_PRINTQUALITY value) {
    QualityReached reached;
    reached.found = HMIGetPrintQualityInfo(access, purpose, variant, value, &reached.info) != 0;
    reached.all = reached.found && (value == HMI_PRINTQUALITY_ALL || reached.info.type != value);
    return reached;
}

namespace {

// The list's values, then its default when the list lacks it; nothing for an empty list.
template <typename E, size_t N>
std::vector<E> AskedValues(const HMITagListWithDefault<E, N>& list) {
    std::vector<E> values(list.values, list.values + std::min<uint64_t>(list.count, N));
    if (!values.empty() && std::find(values.begin(), values.end(), list.defaultValue) == values.end()) {
        values.push_back(list.defaultValue);
    }
    return values;
}

class Walk {
public:
    Walk(HMIAccess* access, CascadeVisitor& visitor) : access_(access), visitor_(visitor) {}

    void Medium(HMIXMLMediaDetail* detail) {
        _tagHMIMediaInfo info;
        if (!HMIGetMediaInfo(access_, detail, &info)) return;
        visitor_.MediaRecord(info);
        Level(kColorModeLevel, 1, detail, [this](HMIXMLMediaColorMode* colorMode) {
            Level(kBorderlessLevel, 2, colorMode, [this](HMIXMLMediaBorderlessMode* borderless) {
                Level(kPrintPurposeLevel, 3, borderless, [this](HMIXMLMediaPrintPurpose* p) { Purpose(p); });
            });
        });
    }

private:
    template <typename Parent, typename Node, typename E, size_t N, typename Below>
    void Level(const FilterLevel<Parent, Node, E, N>& level, int depth, Parent* parent, Below below) {
        typename FilterLevel<Parent, Node, E, N>::List available;
        if (!level.available(access_, parent, &available)) return;
        const HMITagIDConverter<E>& words = *level.words;
        if (level.listField) {
            visitor_.Available(level.listField, Word(words, available.defaultValue),
                               Words(words, available.values, available.count));
        }
        for (E value : AskedValues(available)) {
            const Reached<Node> reached = level.Reach(access_, parent, value);
            const std::string word = Word(words, value);
            const Branch branch{level.kind,
                                depth,
                                word,
                                {reached.all, value == available.defaultValue, !reached.node},
                                reached.node,
                                reached.all ? Word(words, level.all) : word};
            if (visitor_.Enter(branch) && reached.node) below(reached.node);
            visitor_.Leave();
        }
    }

    void Purpose(HMIXMLMediaPrintPurpose* purpose) {
        _tagHMIPrintPurposeInfo info;
        if (HMIGetPrintPurposeInfo(access_, purpose, &info)) visitor_.PurposeRecord(info);
        for (DWORD variant = 0; variant < 4; ++variant) Qualities(purpose, variant);
    }

    void Qualities(HMIXMLMediaPrintPurpose* purpose, DWORD variant) {
        _tagHMIAvailablePrintQuality available;
        if (!HMIGetAvailablePrintQuality(access_, purpose, variant, &available)) return;
        for (tagHMI_PRINTQUALITY value : AskedValues(available)) {
            const QualityReached reached = ReachQuality(access_, purpose, variant, value);
            const Branch branch{kQualityVariants[variant],
                                4,
                                Word(HMIPrintQualityConverter, value),
                                {reached.all, value == available.defaultValue, !reached.found},
                                purpose,
                                reached.found ? Word(HMIPrintQualityConverter, reached.info.type) : std::string()};
            if (visitor_.Enter(branch) && reached.found) visitor_.QualityRecord(reached.info);
            visitor_.Leave();
        }
    }

    HMIAccess* access_;
    CascadeVisitor& visitor_;
};

}  // namespace

void WalkCascade(HMIAccess* access, HMIXMLMediaDetail* detail, CascadeVisitor& visitor) {
    Walk(access, visitor).Medium(detail);
}

Detail LoadMedium(const MediaSource& source, const std::string& id, int* code) {
    Detail detail = source.Filter(id);
    if (!detail) {
        std::string reason;
        *code = source.ExplainUnloaded(id, &reason);
        std::fprintf(stderr, "hmitool: %s: %s\n", id.c_str(), reason.c_str());
    }
    return detail;
}

}  // namespace hmitool
