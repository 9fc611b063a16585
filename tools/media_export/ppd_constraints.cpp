#include "ppd_constraints.h"

#include <algorithm>
#include <cstdio>

#include "constraint_plan.h"
#include "paper_sizes.h"
#include "ppd_choices.h"

namespace mediaexport {
namespace {

class ConstraintOut {
public:
    ConstraintOut(const PrinterModel& model, const std::vector<std::string>& keywords, bool twoSided, std::ostream& out)
        : model_(model), keywords_(keywords), twoSided_(twoSided), out_(out) {}

    // Constraints go bottom rank first, each rank's resolvers named so that they sort in that order too:
    // CUPS applies the resolvers of the constraints that hold one after another, so the highest one, which
    // sets every level below its own, comes last. Constraints that resolve alike share their resolver
    // (libcups's open costs about ten times as much with a resolver per constraint).
    void Write(PpdSummary& summary) const {
        std::vector<Constraint> plan = PlanConstraints(model_);
        std::stable_sort(plan.begin(), plan.end(),
                         [](const Constraint& a, const Constraint& b) { return a.rank < b.rank; });
        std::vector<std::pair<std::string, std::string>> resolvers;  // words, name
        const auto emit = [&](Rank rank, const std::string& when, const std::string& resolve) {
            ++summary.constraints;
            auto found = std::find_if(resolvers.begin(), resolvers.end(), [&](const auto& r) { return r.first == resolve; });
            if (found == resolvers.end()) {
                char name[16];
                std::snprintf(name, sizeof name, "%c%05zu", 'A' + static_cast<int>(rank), resolvers.size() + 1);
                found = resolvers.insert(resolvers.end(), {resolve, name});
            }
            out_ << "*cupsUIConstraints " << found->second << ": \"" << when << "\"\n";
        };
        for (const Constraint& constraint : plan) {
            const Medium& medium = model_.media[constraint.medium];
            if (constraint.resolve.front().option == Option::kPaperSize) {
                // An unsupported size, in both variants.
                const std::string resolve = ResolveWords(constraint.resolve, 0);
                for (const int variant : {HMI_OFF, HMI_ON}) {
                    for (const std::string& when : WhenWords(constraint, variant)) emit(constraint.rank, when, resolve);
                }
                continue;
            }
            bool bySize = false;
            for (const auto* choices : {&constraint.when, &constraint.resolve}) {
                for (const Choice& choice : *choices) bySize = bySize || choice.option == Option::kBorderless;
            }
            for (int size = 0; size < kPaperSizeCount; ++size) {
                if (bySize && !medium.Supports(size)) continue;
                const std::string resolve = ResolveWords(constraint.resolve, size);
                for (const std::string& when : WhenWords(constraint, size)) emit(constraint.rank, when, resolve);
                if (!bySize) break;
            }
        }
        for (const auto& resolver : resolvers) {
            out_ << "*cupsUIResolver " << resolver.second << ": \"" << resolver.first << "\"\n";
        }
        summary.resolvers = resolvers.size();
    }

private:
    // One choice in PPD words: a borderless choice in the marked size, a paper size in the variant given.
    std::string Words(const Choice& choice, int size) const {
        switch (choice.option) {
        case Option::kColor: return std::string("*ColorModel ") + KeywordOf(kColorModels, choice.value);
        case Option::kBorderless: return "*PageSize " + SizeName(size, choice.value == HMI_ON);
        case Option::kPurpose: return std::string("*PrintPurpose ") + KeywordOf(kPurposes, choice.value);
        case Option::kQuality: return std::string("*PrintQualityLevel ") + KeywordOf(kQualities, choice.value);
        case Option::kPaperSize: return "*PageSize " + SizeName(choice.value, size == HMI_ON);
        case Option::kInputSlot: return std::string("*InputSlot ") + KeywordOf(kInputSlots, choice.value);
        case Option::kDuplex: return std::string("*Duplex ") + KeywordOf(kDuplexModes, choice.value);
        case Option::kCartridge: return std::string("*Cartridge ") + KeywordOf(kCartridges, choice.value);
        }
        return {};
    }

    // The PPD choices a constraint's choice stands for: two-sided is both bindings, or nothing when the
    // PPD has no two-sided choice.
    std::vector<std::string> Alternatives(const Choice& choice, int size) const {
        if (choice.option != Option::kDuplex || choice.value != kTwoSided) return {Words(choice, size)};
        if (!twoSided_) return {};
        return {"*Duplex DuplexNoTumble", "*Duplex DuplexTumble"};
    }

    // Every combination of the alternatives of a constraint's choices, after the medium's.
    std::vector<std::string> WhenWords(const Constraint& constraint, int size) const {
        std::vector<std::string> whens{"*MediaType " + keywords_[constraint.medium]};
        for (const Choice& choice : constraint.when) {
            std::vector<std::string> longer;
            for (const std::string& alternative : Alternatives(choice, size)) {
                for (const std::string& when : whens) longer.push_back(when + " " + alternative);
            }
            whens.swap(longer);
        }
        return whens;
    }

    std::string ResolveWords(const std::vector<Choice>& resolve, int size) const {
        std::string words;
        int variant = -1;
        for (const Choice& choice : resolve) {
            if (choice.option == Option::kBorderless) variant = choice.value;
        }
        for (const Choice& choice : resolve) {
            if (choice.option == Option::kBorderless && resolve.front().option == Option::kPaperSize) continue;
            const int context = choice.option == Option::kPaperSize ? variant : size;
            words += (words.empty() ? "" : " ") + Words(choice, context);
        }
        return words;
    }

    const PrinterModel& model_;
    const std::vector<std::string>& keywords_;
    const bool twoSided_;
    std::ostream& out_;
};

}  // namespace

PpdSummary WritePpdConstraints(const PrinterModel& model, const std::vector<std::string>& keywords, bool twoSided,
                               std::ostream& out) {
    PpdSummary summary;
    ConstraintOut(model, keywords, twoSided, out).Write(summary);
    return summary;
}

}  // namespace mediaexport
