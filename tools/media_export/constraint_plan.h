// What a CUPS queue must forbid so that a marking conflicts exactly when the library does not offer it,
// as neutral constraints that the PPD and IPP writers each spell in their own form.
//
// A constraint names one medium and choices of other options; every choice must hold for it to apply.
// Its resolver sets the constrained option and every level below it to the defaults of the node the
// constraint leads to, so that one resolver alone lands on an offered marking: CUPS's resolution fails
// when it needs a second pass. Levels above the constrained one are named only where the answer or the
// resolver depends on them: a purpose that no colour mode and no borderless setting of the medium offers
// is one constraint, not one per path. Constraints are emitted only for a medium's offered paths; a
// choice above that is not offered already conflicts.
#ifndef MEDIA_EXPORT_CONSTRAINT_PLAN_H
#define MEDIA_EXPORT_CONSTRAINT_PLAN_H

#include <vector>

#include "capability_model.h"

namespace mediaexport {

enum class Option {
    kColor,       // tagHMI_COLORMODE
    kBorderless,  // _tagHMI_ONOFF; in a PPD, the variant of the page size
    kPurpose,     // tagHMI_PRINTPURPOSE
    kQuality,     // tagHMI_PRINTQUALITY
    kPaperSize,   // _tagHMI_PAPERSIZE, either variant
    kInputSlot,   // _tagHMI_INPUTBIN
    kDuplex,      // DuplexChoice
    kCartridge,   // tagHMI_CARTRIDGE
};

// What CUPS can say of duplex: one-sided, or automatic two-sided. Manual duplex (the user turns the
// sheets) has no CUPS form; a purpose that lists only manual duplex, or no duplex mode at all, is
// offered one-sided printing.
enum DuplexChoice { kOneSided = 0, kTwoSided = 1 };
// The choices a purpose's duplex list allows.
Offer DuplexChoices(const Offer& duplex);

struct Choice {
    Option option;
    int value;
};
inline bool operator==(const Choice& a, const Choice& b) { return a.option == b.option && a.value == b.value; }

// What a constraint guards, bottom first: CUPS should apply the resolvers of a lower rank first, so that
// the highest one, which sets everything below it, is applied last.
enum class Rank { kInputSlot, kCartridge, kDuplex, kQuality, kPurpose, kBorderless, kColor, kPaperSize };

struct Constraint {
    size_t medium;                 // index into PrinterModel::media
    Rank rank;
    std::vector<Choice> when;      // the medium's other choices that together conflict
    // What the resolver sets, top level first. A borderless choice keeps the marked paper size (in a
    // PPD, the constraint is written once per size), unless a paper size is set too: then it is that
    // size's variant.
    std::vector<Choice> resolve;
};

// Constraints per medium, in model order.
std::vector<Constraint> PlanConstraints(const PrinterModel& model);

// The paper size a medium falls back to: preferred when the medium supports it, else its first
// supported size in vocabulary order.
int FallbackPaperSize(const Medium& medium, int preferred);

}  // namespace mediaexport

#endif
