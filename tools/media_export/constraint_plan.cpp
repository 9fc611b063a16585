#include "constraint_plan.h"

#include <bitset>
#include <map>

#include "paper_sizes.h"

namespace mediaexport {
namespace {

// The options of the cascade levels below the medium, top first: a node at depth d offers level d.
constexpr Option kLevelOptions[] = {Option::kColor, Option::kBorderless, Option::kPurpose, Option::kQuality};
constexpr Rank kLevelRanks[] = {Rank::kColor, Rank::kBorderless, Rank::kPurpose, Rank::kQuality};
const std::vector<int> kLevelValues[] = {{0, 1}, {0, 1}, {0, 1, 2}, {0, 1, 2, 3, 4}};
const std::vector<int> kCartridgeValues = {HMI_CARTRIDGE_COLOR, HMI_CARTRIDGE_BK,         HMI_CARTRIDGE_PHOTO,
                                           HMI_CARTRIDGE_BKCOLOR, HMI_CARTRIDGE_PHOTOCOLOR, HMI_CARTRIDGE_AUTO};
const std::vector<int> kInputSlotValues = {HMI_INPUTBIN_AUTO, HMI_INPUTBIN_MANUAL03, HMI_INPUTBIN_ASF,
                                           HMI_INPUTBIN_MANUAL, HMI_INPUTBIN_DISCTRAY};
constexpr size_t kPurposeDepth = 3;  // a purpose's node: it offers qualities and holds duplex and cartridges

// The duplex and cartridge defaults of a purpose's node (no cartridge for a list that places no limit).
void AddPurposeDefaults(const Node& purpose, std::vector<Choice>& out) {
    out.push_back({Option::kDuplex, DuplexChoices(purpose.duplex).defaultValue});
    if (!purpose.cartridges.empty()) out.push_back({Option::kCartridge, purpose.cartridges.defaultValue});
}

// Every level's default below node (at depth), down to the quality.
void AddDefaultsBelow(const Node* node, size_t depth, std::vector<Choice>& out) {
    while (node && depth < 4 && !node->below.empty()) {
        const int value = node->below.defaultValue;
        out.push_back({kLevelOptions[depth], value});
        node = node->Child(value);
        if (++depth == kPurposeDepth && node) AddPurposeDefaults(*node, out);
    }
}

// The level of node's values set to value, and everything below to its defaults.
std::vector<Choice> ResolveTo(const Node& node, size_t depth, int value) {
    std::vector<Choice> out{{kLevelOptions[depth], value}};
    const Node* child = node.Child(value);
    if (depth + 1 == kPurposeDepth && child) AddPurposeDefaults(*child, out);
    AddDefaultsBelow(child, depth + 1, out);
    return out;
}

// The medium's default colour mode with the marked borderless setting kept where that colour mode
// offers it, and everything below to its defaults.
std::vector<Choice> ResolveColor(const Node& root, int borderless) {
    const int color = root.below.defaultValue;
    const Node& colorNode = *root.Child(color);
    std::vector<Choice> out{{Option::kColor, color}};
    if (colorNode.below.Has(borderless)) {
        const Node& kept = *colorNode.Child(borderless);
        AddDefaultsBelow(&kept, 2, out);
    } else {
        const std::vector<Choice> below = ResolveTo(colorNode, 1, colorNode.below.defaultValue);
        out.insert(out.end(), below.begin(), below.end());
    }
    return out;
}

// One place a value is asked: the choices above it, and what the library says there.
struct Context {
    std::vector<Choice> upper;
    bool forbidden = false;
    std::vector<Choice> resolve;  // when forbidden
};

bool SameVerdict(const Context& a, const Context& b) {
    return a.forbidden == b.forbidden && (!a.forbidden || a.resolve == b.resolve);
}

// Emits the fewest constraints that forbid value exactly in the contexts that forbid it, each with its
// resolver: it names the subset of the upper choices that tells the verdicts apart with the fewest
// constraints, a borderless choice counting once per supported paper size.
void PlanValue(size_t medium, Rank rank, const std::vector<Context>& contexts, Choice value, size_t sizeCount,
               std::vector<Constraint>& out) {
    if (contexts.empty()) return;
    const size_t width = contexts.front().upper.size();
    size_t bestCost = SIZE_MAX;
    unsigned best = 0;
    std::map<std::vector<int>, const Context*> bestGroups;
    for (unsigned mask = 0; mask < (1u << width); ++mask) {
        std::map<std::vector<int>, const Context*> groups;
        bool consistent = true;
        bool bySize = false;
        for (const Context& context : contexts) {
            std::vector<int> key;
            for (size_t i = 0; i < width; ++i) {
                const bool named = mask >> i & 1u;
                key.push_back(named ? context.upper[i].value : -1);
                bySize = bySize || (named && context.upper[i].option == Option::kBorderless);
            }
            const auto found = groups.emplace(key, &context);
            consistent = consistent && (found.second || SameVerdict(*found.first->second, context));
        }
        if (!consistent) continue;
        size_t cost = 0;
        for (const auto& group : groups) cost += group.second->forbidden ? (bySize ? sizeCount : 1) : 0;
        if (cost < bestCost || (cost == bestCost && std::bitset<8>(mask).count() < std::bitset<8>(best).count())) {
            best = mask;
            bestCost = cost;
            bestGroups = std::move(groups);
        }
    }
    for (const auto& group : bestGroups) {
        const Context& context = *group.second;
        if (!context.forbidden) continue;
        Constraint constraint{medium, rank, {}, context.resolve};
        for (size_t i = 0; i < width; ++i) {
            if (best >> i & 1u) constraint.when.push_back(context.upper[i]);
        }
        constraint.when.push_back(value);
        out.push_back(std::move(constraint));
    }
}

// The offered nodes at depth, with the choices that lead to them.
void CollectPaths(const Node& node, size_t depth, std::vector<Choice>& upper, std::vector<Context>& out,
                  std::vector<const Node*>& nodes) {
    if (upper.size() == depth) {
        out.push_back({upper, false, {}});
        nodes.push_back(&node);
        return;
    }
    for (size_t i = 0; i < node.children.size(); ++i) {
        upper.push_back({kLevelOptions[upper.size()], node.below.values[i]});
        CollectPaths(node.children[i], depth, upper, out, nodes);
        upper.pop_back();
    }
}

// Plans one option over the offered nodes at depth; verdict(node, value, context) fills the context.
template <typename Verdict>
void PlanLevel(size_t medium, Rank rank, Option option, const std::vector<int>& values, const Node& root,
               size_t depth, size_t sizeCount, Verdict verdict, std::vector<Constraint>& out) {
    std::vector<Choice> upper;
    std::vector<Context> contexts;
    std::vector<const Node*> nodes;
    CollectPaths(root, depth, upper, contexts, nodes);
    for (const int value : values) {
        for (size_t i = 0; i < contexts.size(); ++i) verdict(*nodes[i], value, contexts[i]);
        PlanValue(medium, rank, contexts, {option, value}, sizeCount, out);
    }
}

// Forbidden where a non-empty offer lacks the value; resolved to the offer's default.
void OfferVerdict(const Offer& offer, Option option, int value, Context& context) {
    context.forbidden = !offer.empty() && !offer.Has(value);
    context.resolve = {{option, offer.defaultValue}};
}

void PlanMedium(const PrinterModel& model, size_t index, std::vector<Constraint>& out) {
    const Medium& medium = model.media[index];
    const Node& root = medium.cascade;
    size_t sizeCount = 0;
    for (int size = 0; size < kPaperSizeCount; ++size) sizeCount += medium.Supports(size);

    for (const int slot : kInputSlotValues) {
        Context context;
        OfferVerdict(medium.inputSlots, Option::kInputSlot, slot, context);
        if (context.forbidden) out.push_back({index, Rank::kInputSlot, {{Option::kInputSlot, slot}}, context.resolve});
    }
    PlanLevel(index, Rank::kCartridge, Option::kCartridge, kCartridgeValues, root, kPurposeDepth, sizeCount,
              [](const Node& node, int value, Context& c) { OfferVerdict(node.cartridges, Option::kCartridge, value, c); },
              out);
    PlanLevel(index, Rank::kDuplex, Option::kDuplex, {kOneSided, kTwoSided}, root, kPurposeDepth, sizeCount,
              [](const Node& node, int value, Context& c) {
                  OfferVerdict(DuplexChoices(node.duplex), Option::kDuplex, value, c);
              },
              out);
    for (size_t depth = 3; depth >= 1; --depth) {
        PlanLevel(index, kLevelRanks[depth], kLevelOptions[depth], kLevelValues[depth], root, depth, sizeCount,
                  [depth](const Node& node, int value, Context& c) {
                      c.forbidden = !node.below.Has(value);
                      c.resolve = depth == 3 ? std::vector<Choice>{{Option::kQuality, node.below.defaultValue}}
                                             : ResolveTo(node, depth, node.below.defaultValue);
                  },
                  out);
    }
    // A colour mode: the resolver may have to change the marked borderless setting, so the marked one is
    // part of its context.
    std::vector<Context> colors;
    for (const int borderless : {HMI_OFF, HMI_ON}) colors.push_back({{{Option::kBorderless, borderless}}, false, {}});
    for (const int color : kLevelValues[0]) {
        for (Context& context : colors) {
            context.forbidden = !root.below.Has(color);
            context.resolve = ResolveColor(root, context.upper.front().value);
        }
        PlanValue(index, Rank::kColor, colors, {Option::kColor, color}, sizeCount, out);
    }
    // A paper size the medium does not take: the medium's fallback size and its whole default path.
    std::vector<Choice> fallback{{Option::kPaperSize, FallbackPaperSize(medium, model.defaultPaperSize)}};
    const std::vector<Choice> defaults = ResolveTo(root, 0, root.below.defaultValue);
    fallback.insert(fallback.end(), defaults.begin(), defaults.end());
    for (int size = 0; size < kPaperSizeCount; ++size) {
        if (PaperSizeOf(size) && !medium.Supports(size)) {
            out.push_back({index, Rank::kPaperSize, {{Option::kPaperSize, size}}, fallback});
        }
    }
}

}  // namespace

Offer DuplexChoices(const Offer& duplex) {
    Offer choices;
    const bool twoSided = duplex.Has(HMI_DUPLEX_AUTO);
    if (duplex.Has(HMI_DUPLEX_OFF) || duplex.Has(HMI_DUPLEX_MANUAL) || !twoSided) choices.values.push_back(kOneSided);
    if (twoSided) choices.values.push_back(kTwoSided);
    choices.defaultValue = twoSided && duplex.defaultValue == HMI_DUPLEX_AUTO ? kTwoSided : choices.values.front();
    return choices;
}

int FallbackPaperSize(const Medium& medium, int preferred) {
    if (medium.Supports(preferred)) return preferred;
    for (int size = 0; size < kPaperSizeCount; ++size) {
        if (medium.Supports(size)) return size;
    }
    return preferred;
}

std::vector<Constraint> PlanConstraints(const PrinterModel& model) {
    std::vector<Constraint> constraints;
    for (size_t i = 0; i < model.media.size(); ++i) PlanMedium(model, i, constraints);
    return constraints;
}

}  // namespace mediaexport
