#include "ipp_writer.h"

#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "constraint_plan.h"
#include "ipp_keywords.h"
#include "model_builder.h"
#include "paper_sizes.h"
#include "text_catalogue.h"

namespace mediaexport {
namespace {

const char kMargin[] = "300";  // hundredths of mm around a bordered sheet, as in the PPD's imageable area
const int kInputSlots[] = {HMI_INPUTBIN_AUTO, HMI_INPUTBIN_MANUAL03, HMI_INPUTBIN_ASF, HMI_INPUTBIN_MANUAL,
                           HMI_INPUTBIN_DISCTRAY};
const int kCartridges[] = {HMI_CARTRIDGE_COLOR,   HMI_CARTRIDGE_BK,         HMI_CARTRIDGE_PHOTO,
                           HMI_CARTRIDGE_BKCOLOR, HMI_CARTRIDGE_PHOTOCOLOR, HMI_CARTRIDGE_AUTO};

// What a media-col value names; -1 or empty where it names nothing.
struct MediaCol {
    int size = -1;
    int borderless = -1;
    int source = -1;
    std::string type;
};

std::string SizeText(int size) {
    const Dimensions sheet = DimensionsOf(*PaperSizeOf(size));
    return "{MEMBER integer x-dimension " + std::to_string(HundredthsOfMm(sheet.width)) +
           " MEMBER integer y-dimension " + std::to_string(HundredthsOfMm(sheet.length)) + "}";
}

std::string MediaColText(const MediaCol& col) {
    std::string members;
    if (col.size >= 0) members += " MEMBER collection media-size " + SizeText(col.size);
    if (col.borderless >= 0) {
        for (const char* side : {"bottom", "left", "right", "top"}) {
            members += std::string(" MEMBER integer media-") + side + "-margin " + (col.borderless == HMI_ON ? "0" : kMargin);
        }
    }
    if (col.source >= 0) members += std::string(" MEMBER keyword media-source ") + IppMediaSource(col.source);
    if (!col.type.empty()) members += " MEMBER keyword media-type " + col.type;
    return "{" + members.substr(1) + "}";
}

// A text value in ipptool's syntax: quoted, with '"' and '\' escaped and '$' (a variable) doubled.
std::string Quoted(const std::string& text) {
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        if (c == '$') out += '$';
        if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7f) out += c;
    }
    return out + '"';
}

void Attr(std::ostream& out, const char* tag, const char* name, const std::vector<std::string>& values) {
    if (values.empty()) return;
    const bool listed = std::string(tag) == "collection" && values.size() > 1;
    out << "ATTR " << tag << ' ' << name << (listed ? "\n  " : " ");
    for (size_t i = 0; i < values.size(); ++i) out << (i ? (listed ? ",\n  " : ",") : "") << values[i];
    out << '\n';
}

// Calls visit(purposeNode, colour, borderless, purpose) for every offered path down to a purpose.
template <typename Visit>
void ForEachPurpose(const Medium& medium, Visit visit) {
    const Node& root = medium.cascade;
    for (size_t c = 0; c < root.children.size(); ++c) {
        const Node& color = root.children[c];
        for (size_t b = 0; b < color.children.size(); ++b) {
            const Node& borderless = color.children[b];
            for (size_t p = 0; p < borderless.children.size(); ++p) {
                visit(borderless.children[p], root.below.values[c], color.below.values[b], borderless.below.values[p]);
            }
        }
    }
}

std::vector<int> SlotsOf(const Medium& medium) {
    return medium.inputSlots.empty() ? std::vector<int>(std::begin(kInputSlots), std::end(kInputSlots))
                                     : medium.inputSlots.values;
}

std::vector<int> BorderlessOf(const Medium& medium) {
    std::set<int> settings;
    for (const Node& color : medium.cascade.children) settings.insert(color.below.values.begin(), color.below.values.end());
    return {settings.begin(), settings.end()};
}

// The values offered anywhere, each set in vocabulary order.
struct Offered {
    std::set<int> sizes, sources, colors, borderless, purposes, qualities, cartridges;
    bool twoSided = false;
};

Offered OfferedOf(const PrinterModel& model) {
    Offered o;
    for (const Medium& medium : model.media) {
        for (int size = 0; size < kPaperSizeCount; ++size) {
            if (medium.Supports(size)) o.sizes.insert(size);
        }
        for (const int slot : SlotsOf(medium)) o.sources.insert(slot);
        for (const int b : BorderlessOf(medium)) o.borderless.insert(b);
        o.colors.insert(medium.cascade.below.values.begin(), medium.cascade.below.values.end());
        ForEachPurpose(medium, [&](const Node& node, int, int, int purpose) {
            o.purposes.insert(purpose);
            for (const int level : node.below.values) o.qualities.insert(IppPrintQuality(level));
            o.twoSided |= node.duplex.Has(HMI_DUPLEX_AUTO);
            if (node.cartridges.empty()) o.cartridges.insert(std::begin(kCartridges), std::end(kCartridges));
            o.cartridges.insert(node.cartridges.values.begin(), node.cartridges.values.end());
        });
    }
    return o;
}

template <typename Word>
std::vector<std::string> Words(const std::set<int>& values, Word word) {
    std::vector<std::string> words;
    for (const int value : values) words.push_back(word(value));
    return words;
}

// The first medium's default at every level.
struct Defaults {
    int color = -1, borderless = -1, purpose = -1, quality = -1, size = -1, source = -1, cartridge = -1;
    bool twoSided = false;
};

Defaults DefaultsOf(const PrinterModel& model, const Offered& offered) {
    Defaults d;
    const Medium& medium = model.media.front();
    d.size = FallbackPaperSize(medium, model.defaultPaperSize);
    d.source = medium.inputSlots.empty() ? HMI_INPUTBIN_AUTO : medium.inputSlots.defaultValue;
    const Node* node = &medium.cascade;
    for (int* level : {&d.color, &d.borderless, &d.purpose}) {
        *level = node->below.defaultValue;
        node = node->Child(*level);
    }
    d.quality = node->below.defaultValue;
    d.twoSided = DuplexChoices(node->duplex).defaultValue == kTwoSided;
    d.cartridge = node->cartridges.empty() ? *offered.cartridges.begin() : node->cartridges.defaultValue;
    return d;
}

// The model with each purpose's quality levels replaced by the first level of the same IPP value, so
// that the plan forbids an IPP value only where no level standing for it is offered.
int FirstLevelAlike(int level) {
    int first = HMI_PRINTQUALITY_1;
    while (IppPrintQuality(first) != IppPrintQuality(level)) ++first;
    return first;
}

void MapQualities(Node& node, int depth) {
    if (depth == kPurposeLevel) {
        Offer mapped;
        for (const int level : node.below.values) {
            if (!mapped.Has(FirstLevelAlike(level))) mapped.values.push_back(FirstLevelAlike(level));
        }
        mapped.defaultValue = FirstLevelAlike(node.below.defaultValue);
        node.below = mapped;
        return;
    }
    for (Node& child : node.children) MapQualities(child, depth + 1);
}

// Sets what the choice says of a media-col; false for a choice outside media-col.
bool InMediaCol(const Choice& choice, MediaCol* col) {
    switch (choice.option) {
    case Option::kPaperSize: col->size = choice.value; return true;
    case Option::kBorderless: col->borderless = choice.value; return true;
    case Option::kInputSlot: col->source = choice.value; return true;
    default: return false;
    }
}

// The member for a choice outside media-col; sides two-sided stands for both bindings in a constraint
// and for long-edge in a resolver.
std::string Member(const Choice& choice, bool resolver) {
    switch (choice.option) {
    case Option::kColor: return std::string("MEMBER keyword print-color-mode ") + IppColorMode(choice.value);
    case Option::kQuality: return "MEMBER enum print-quality " + std::to_string(IppPrintQuality(choice.value));
    case Option::kPurpose: return std::string("MEMBER keyword xrvhmi-print-purpose ") + IppPurpose(choice.value);
    case Option::kCartridge: return std::string("MEMBER keyword xrvhmi-cartridge ") + IppCartridge(choice.value);
    case Option::kDuplex:
        if (choice.value == kOneSided) return "MEMBER keyword sides one-sided";
        return resolver ? "MEMBER keyword sides two-sided-long-edge"
                        : "MEMBER keyword sides two-sided-long-edge,two-sided-short-edge";
    default: {
        MediaCol col;
        InMediaCol(choice, &col);
        return "MEMBER collection media-col " + MediaColText(col);
    }
    }
}

struct ConstraintTexts {
    std::vector<std::string> constraints, resolvers;
};

// A resolver's members: what it sets of the media-col in one collection, then the other attributes.
std::string ResolverMembers(const std::vector<Choice>& resolve) {
    MediaCol col;
    bool inCol = false;
    std::string others;
    for (const Choice& choice : resolve) {
        if (InMediaCol(choice, &col)) {
            inCol = true;
        } else {
            others += " " + Member(choice, true);
        }
    }
    return inCol ? "MEMBER collection media-col " + MediaColText(col) + others : others.substr(1);
}

// job-constraints-supported and job-resolvers-supported; constraints that resolve alike share a
// resolver.
ConstraintTexts ConstraintsOf(const PrinterModel& model, const std::vector<std::string>& types) {
    PrinterModel ipp = model;
    for (Medium& medium : ipp.media) MapQualities(medium.cascade, kMediumLevel);
    ConstraintTexts texts;
    std::map<std::string, std::string> resolverNames;
    for (const Constraint& constraint : PlanConstraints(ipp)) {
        const Choice& last = constraint.when.back();
        if (last.option == Option::kQuality && FirstLevelAlike(last.value) != last.value) continue;  // never offered
        const std::string members = ResolverMembers(constraint.resolve);
        std::string& name = resolverNames[members];
        if (name.empty()) {
            name = "r" + std::to_string(resolverNames.size());
            texts.resolvers.push_back("{MEMBER name resolver-name \"" + name + "\" " + members + "}");
        }
        MediaCol col;
        col.type = types[constraint.medium];
        std::string others;
        for (const Choice& choice : constraint.when) {
            if (!InMediaCol(choice, &col)) others += " " + Member(choice, false);
        }
        texts.constraints.push_back("{MEMBER name resolver-name \"" + name + "\" MEMBER collection media-col " +
                                    MediaColText(col) + others + "}");
    }
    return texts;
}

// A .strings line; the text keeps its UTF-8, with quotes, backslashes and line ends escaped.
void StringsLine(std::ostream& out, const std::string& key, const std::string& text) {
    out << '"' << key << "\" = \"";
    for (const char c : text) {
        switch (c) {
        case '"': out << "\\\""; break;
        case '\\': out << "\\\\"; break;
        case '\n': out << "\\n"; break;
        case '\r': out << "\\r"; break;
        case '\t': out << "\\t"; break;
        default: out << (static_cast<unsigned char>(c) < 0x20 ? ' ' : c);
        }
    }
    out << "\";\n";
}

}  // namespace

IppSummary WriteIppAttributes(const PrinterModel& model, std::ostream& out, std::vector<std::string>* warnings) {
    IppSummary summary;
    out << "# " << PrintableText(model.product) << ": media as IPP printer attributes (ippeveprinter -a)\n";
    Attr(out, "text", "printer-make-and-model", {Quoted(model.product)});
    if (model.media.empty()) {
        warnings->push_back("no media to describe");
        MediaCol col;
        col.size = model.defaultPaperSize;
        Attr(out, "collection", "media-col-default", {MediaColText(col)});
        return summary;
    }
    const std::vector<std::string> types = IppMediaTypes(model);
    for (size_t i = 0; i < types.size(); ++i) {
        const std::string plain = PlainMediaType(model.media[i].id);
        if (types[i] == plain) continue;
        warnings->push_back("medium \"" + PrintableText(model.media[i].id) + "\" is media-type " + types[i] +
                            (IsIppKeyword(plain) ? ": " + plain + " is an earlier medium's" : ": its id spells no keyword"));
    }
    const Offered offered = OfferedOf(model);
    const Defaults defaults = DefaultsOf(model, offered);

    // Media. ippeveprinter adds media-col-supported itself (a second one fails get-printer-attributes).
    Attr(out, "keyword", "media-supported", Words(offered.sizes, [](int s) { return PaperSizeOf(s)->pwg; }));
    Attr(out, "keyword", "media-default", {PaperSizeOf(defaults.size)->pwg});
    Attr(out, "collection", "media-size-supported", Words(offered.sizes, SizeText));
    Attr(out, "keyword", "media-type-supported", types);
    Attr(out, "keyword", "media-source-supported", Words(offered.sources, IppMediaSource));
    for (const char* name : {"media-bottom-margin-supported", "media-left-margin-supported",
                             "media-right-margin-supported", "media-top-margin-supported"}) {
        Attr(out, "integer", name, Words(offered.borderless, [](int b) { return b == HMI_ON ? "0" : kMargin; }));
    }
    MediaCol col;
    col.size = defaults.size, col.borderless = defaults.borderless, col.source = defaults.source;
    col.type = types.front();
    Attr(out, "collection", "media-col-default", {MediaColText(col)});
    std::vector<std::string> database;
    for (size_t i = 0; i < model.media.size(); ++i) {
        const Medium& medium = model.media[i];
        col.type = types[i];
        for (col.size = 0; col.size < kPaperSizeCount; ++col.size) {
            if (!medium.Supports(col.size)) continue;
            for (const int slot : SlotsOf(medium)) {
                col.source = slot;
                for (const int b : BorderlessOf(medium)) {
                    col.borderless = b;
                    database.push_back(MediaColText(col));
                }
            }
        }
    }
    Attr(out, "collection", "media-col-database", database);
    summary.collections = database.size();

    // The cascade and the options beside it.
    Attr(out, "boolean", "color-supported", {offered.colors.count(HMI_COLORMODE_COLOR) ? "true" : "false"});
    Attr(out, "keyword", "print-color-mode-supported", Words(offered.colors, IppColorMode));
    Attr(out, "keyword", "print-color-mode-default", {IppColorMode(defaults.color)});
    Attr(out, "enum", "print-quality-supported", Words(offered.qualities, [](int q) { return std::to_string(q); }));
    Attr(out, "enum", "print-quality-default", {std::to_string(IppPrintQuality(defaults.quality))});
    std::vector<std::string> sides{"one-sided"};
    if (offered.twoSided) sides.insert(sides.end(), {"two-sided-long-edge", "two-sided-short-edge"});
    Attr(out, "keyword", "sides-supported", sides);
    Attr(out, "keyword", "sides-default", {defaults.twoSided ? "two-sided-long-edge" : "one-sided"});
    Attr(out, "keyword", "xrvhmi-print-purpose-supported", Words(offered.purposes, IppPurpose));
    Attr(out, "keyword", "xrvhmi-print-purpose-default", {IppPurpose(defaults.purpose)});
    Attr(out, "keyword", "xrvhmi-cartridge-supported", Words(offered.cartridges, IppCartridge));
    Attr(out, "keyword", "xrvhmi-cartridge-default", {IppCartridge(defaults.cartridge)});

    const ConstraintTexts constraints = ConstraintsOf(model, types);
    Attr(out, "collection", "job-constraints-supported", constraints.constraints);
    Attr(out, "collection", "job-resolvers-supported", constraints.resolvers);
    summary.constraints = constraints.constraints.size();
    return summary;
}

void WriteIppStrings(const PrinterModel& model, const std::string& language, const std::string& base,
                     std::ostream& out) {
    StringsLine(out, "media-type", FixedText("MediaType", language));
    const std::vector<std::string> types = IppMediaTypes(model);
    for (size_t i = 0; i < types.size(); ++i) {
        bool missing = false;
        StringsLine(out, "media-type." + types[i], MediumText(model.media[i], language, base, &missing));
    }
    StringsLine(out, "xrvhmi-print-purpose", FixedText("PrintPurpose", language));
    for (const int purpose : {HMI_PRINTPURPOSE_PHOTO, HMI_PRINTPURPOSE_PROOF, HMI_PRINTPURPOSE_CAD}) {
        const std::string word = IppPurpose(purpose);
        StringsLine(out, "xrvhmi-print-purpose." + word, FixedText("PrintPurpose." + word, language));
    }
    StringsLine(out, "xrvhmi-cartridge", FixedText("Cartridge", language));
    for (const int cartridge : kCartridges) {
        const std::string word = IppCartridge(cartridge);
        StringsLine(out, "xrvhmi-cartridge." + word, FixedText("Cartridge." + word, language));
    }
}

}  // namespace mediaexport
