#include "ppd_writer.h"

#include <algorithm>
#include <cstdio>

#include "constraint_plan.h"
#include "model_builder.h"
#include "paper_sizes.h"
#include "ppd_text.h"
#include "text_catalogue.h"

namespace mediaexport {
namespace {

constexpr double kMargin = 72.0 * 3.0 / 25.4;  // 3 mm around a bordered size's imageable area

struct ChoiceWord {
    int value;
    const char* keyword;
    const char* code;  // PostScript for the choice
};

const ChoiceWord kColorModels[] = {{HMI_COLORMODE_COLOR, "RGB", "<</cupsColorSpace 1/cupsColorOrder 0>>setpagedevice"},
                                   {HMI_COLORMODE_MONOCHROME, "Gray", "<</cupsColorSpace 0/cupsColorOrder 0>>setpagedevice"}};
const ChoiceWord kPurposes[] = {{HMI_PRINTPURPOSE_PHOTO, "photo", ""}, {HMI_PRINTPURPOSE_PROOF, "proof", ""},
                                {HMI_PRINTPURPOSE_CAD, "cad", ""}};
const ChoiceWord kQualities[] = {{HMI_PRINTQUALITY_1, "1", ""}, {HMI_PRINTQUALITY_2, "2", ""},
                                 {HMI_PRINTQUALITY_3, "3", ""}, {HMI_PRINTQUALITY_4, "4", ""},
                                 {HMI_PRINTQUALITY_5, "5", ""}};
const ChoiceWord kInputSlots[] = {{HMI_INPUTBIN_AUTO, "AUTO", "<</MediaPosition 0>>setpagedevice"},
                                  {HMI_INPUTBIN_MANUAL03, "MANUAL03", "<</MediaPosition 1>>setpagedevice"},
                                  {HMI_INPUTBIN_ASF, "asf", "<</MediaPosition 2>>setpagedevice"},
                                  {HMI_INPUTBIN_MANUAL, "manual", "<</MediaPosition 3>>setpagedevice"},
                                  {HMI_INPUTBIN_DISCTRAY, "DISCTRAY", "<</MediaPosition 10>>setpagedevice"}};
const ChoiceWord kCartridges[] = {{HMI_CARTRIDGE_COLOR, "color", ""},       {HMI_CARTRIDGE_BK, "bk", ""},
                                  {HMI_CARTRIDGE_PHOTO, "photo", ""},       {HMI_CARTRIDGE_BKCOLOR, "bkcolor", ""},
                                  {HMI_CARTRIDGE_PHOTOCOLOR, "photocolor", ""}, {HMI_CARTRIDGE_AUTO, "auto", ""}};
const ChoiceWord kDuplexModes[] = {{kOneSided, "None", "<</Duplex false>>setpagedevice"},
                                   {kTwoSided, "DuplexNoTumble", "<</Duplex true/Tumble false>>setpagedevice"},
                                   {kTwoSided, "DuplexTumble", "<</Duplex true/Tumble true>>setpagedevice"}};

// The choices of one option: all of a table, or its first count.
struct ChoiceWords {
    const ChoiceWord* words;
    size_t count;
    template <size_t N>
    ChoiceWords(const ChoiceWord (&table)[N], size_t first = N) : words(table), count(first < N ? first : N) {}
    const ChoiceWord* begin() const { return words; }
    const ChoiceWord* end() const { return words + count; }
};

const char* KeywordOf(ChoiceWords words, int value) {
    for (const ChoiceWord& word : words) {
        if (word.value == value) return word.keyword;
    }
    return words.words[0].keyword;
}

bool KeywordCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.' || c == '_' ||
           c == '-';
}

std::string Format(const char* format, double a, double b) {
    char text[64];
    std::snprintf(text, sizeof text, format, a, b);
    return text;
}

// The default path: the first medium's default at every level.
struct Defaults {
    const Medium* medium;
    int color = -1, borderless = -1, purpose = -1, quality = -1;
    const Node* purposeNode = nullptr;
};

Defaults DefaultsOf(const PrinterModel& model) {
    Defaults d{&model.media.front()};
    const Node* node = &d.medium->cascade;
    int* const levels[] = {&d.color, &d.borderless, &d.purpose, &d.quality};
    for (int* level : levels) {
        *level = node->below.defaultValue;
        if (level != &d.quality) node = node->Child(*level);
        if (level == &d.purpose) d.purposeNode = node;
    }
    return d;
}

class PpdOut {
public:
    PpdOut(const PrinterModel& model, const std::string& base, std::ostream& out, std::vector<std::string>* warnings)
        : model_(model), base_(base), out_(out), warnings_(warnings), languages_(ExportLanguages(model, base)),
          keywords_(MediaKeywords(model)), twoSided_(AnyTwoSided(model)) {}

    PpdSummary Write() {
        for (const std::string& language : languages_) {
            if (!CatalogueHas(language)) {
                warnings_->push_back("language \"" + language + "\": no texts for the fixed options; English used");
            }
        }
        const Defaults defaults = DefaultsOf(model_);
        Header();
        PageSizes(defaults);
        MediaTypes();
        Options(defaults);
        PpdSummary summary;
        Constraints(summary);
        summary.languages = languages_.size();
        return summary;
    }

private:
    static std::vector<std::string> MediaKeywords(const PrinterModel& model) {
        std::vector<std::string> keywords;
        for (const Medium& medium : model.media) keywords.push_back(PpdMediaKeyword(medium.id));
        return keywords;
    }


    void Header() {
        const std::string product = PpdQuotedAscii(model_.product.empty() ? "XRVHMI" : model_.product);
        out_ << "*PPD-Adobe: \"4.3\"\n"
             << "*% The media of " << product << " as the XRVHMI library answers for them (hmitool export).\n"
             << "*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
             << "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n"  // cupstestppd accepts no other
             << "*PCFileName: \"XRVHMI.PPD\"\n*Manufacturer: \"Generic\"\n"
             << "*Product: \"(" << product << ")\"\n*ModelName: \"" << product << "\"\n"
             << "*ShortNickName: \"" << product << "\"\n*NickName: \"" << product << " media\"\n"
             << "*PSVersion: \"(3010.000) 0\"\n*LanguageLevel: \"3\"\n*ColorDevice: True\n"
             << "*DefaultColorSpace: RGB\n*FileSystem: False\n*Throughput: \"1\"\n"
             << "*LandscapeOrientation: Plus90\n*TTRasterizer: Type42\n*cupsVersion: 2.4\n";
        out_ << "*cupsLanguages: \"";
        for (size_t i = 0; i < languages_.size(); ++i) out_ << (i > 0 ? " " : "") << languages_[i];
        out_ << "\"\n";
    }

    // The main strings are in the base language where it is 7-bit (as cupstestppd wants them), else in
    // English or, for a medium, its keyword; every listed language, the base one included, has its
    // translation.
    static const std::string& MainText(const std::string& base, const std::string& fallback) {
        return IsAscii(base) ? base : fallback;
    }

    // "*OpenUI *Option/Text: PickOne" with the option's translations, its order and its default.
    void OpenOption(const char* option, const std::string& defaultChoice) {
        out_ << "*OpenUI *" << option << "/" << PpdTranslation(MainText(FixedText(option, base_), FixedText(option, "en")))
             << ": PickOne\n";
        for (const std::string& language : languages_) {
            out_ << "*" << language << ".Translation " << option << "/" << PpdTranslation(FixedText(option, language))
                 << ": \"\"\n";
        }
        out_ << "*OrderDependency: 10 AnySetup *" << option << "\n*Default" << option << ": " << defaultChoice << "\n";
    }

    void CloseOption(const char* option) { out_ << "*CloseUI: *" << option << "\n"; }

    // A choice with its main (7-bit) text and its text in every language, given as a function of it.
    template <typename TextOf>
    void Choice(const char* option, const std::string& keyword, const std::string& code, const std::string& mainText,
                TextOf textOf) {
        out_ << "*" << option << " " << keyword << "/" << PpdTranslation(mainText) << ": \"" << code << "\"\n";
        for (const std::string& language : languages_) {
            out_ << "*" << language << "." << option << " " << keyword << "/" << PpdTranslation(textOf(language))
                 << ": \"\"\n";
        }
    }

    std::string SizeName(int size, bool borderless) const {
        const PaperSize& paper = *PaperSizeOf(size);
        return borderless ? FullbleedName(paper) : paper.ppd;
    }

    void PageSizes(const Defaults& defaults) {
        const int defaultSize = FallbackPaperSize(*defaults.medium, model_.defaultPaperSize);
        const std::string defaultName = SizeName(defaultSize, defaults.borderless == HMI_ON);
        for (const char* option : {"PageSize", "PageRegion"}) {
            OpenOption(option, defaultName);
            ForEachSize([&](int size, bool borderless, const Dimensions& d) {
                const std::string code = Format("<</PageSize[%.2f %.2f]/ImagingBBox null>>setpagedevice", d.width, d.length);
                const auto textOf = [&](const std::string& language) {
                    const std::string name = PaperSizeOf(size)->ppd;
                    return borderless ? name + " " + FixedText("Borderless", language) : name;
                };
                Choice(option, SizeName(size, borderless), code, MainText(textOf(base_), textOf("en")), textOf);
            });
            CloseOption(option);
        }
        out_ << "*DefaultImageableArea: " << defaultName << "\n";
        ForEachSize([&](int size, bool borderless, const Dimensions& d) {
            const double margin = borderless ? 0.0 : kMargin;
            out_ << "*ImageableArea " << SizeName(size, borderless) << ": \""
                 << Format("%.2f %.2f ", margin, margin) << Format("%.2f %.2f", d.width - margin, d.length - margin)
                 << "\"\n";
        });
        out_ << "*DefaultPaperDimension: " << defaultName << "\n";
        ForEachSize([&](int size, bool borderless, const Dimensions& d) {
            out_ << "*PaperDimension " << SizeName(size, borderless) << ": \"" << Format("%.2f %.2f", d.width, d.length)
                 << "\"\n";
        });
    }

    template <typename Each>
    static void ForEachSize(Each each) {
        for (int size = 0; size < kPaperSizeCount; ++size) {
            if (!PaperSizeOf(size)) continue;
            const Dimensions dimensions = DimensionsOf(*PaperSizeOf(size));
            each(size, false, dimensions);
            each(size, true, dimensions);
        }
    }

    void MediaTypes() {
        OpenOption("MediaType", keywords_.front());
        for (size_t i = 0; i < model_.media.size(); ++i) {
            const Medium& medium = model_.media[i];
            bool missing = false;
            const std::string baseText = MediumText(medium, base_, base_, &missing);
            Choice("MediaType", keywords_[i], "<</MediaType(" + keywords_[i] + ")>>setpagedevice",
                   MainText(baseText, keywords_[i]), [&](const std::string& language) {
                       bool missing = false;
                       std::string text = MediumText(medium, language, base_, &missing);
                       if (missing) {
                           warnings_->push_back("medium \"" + PrintableText(medium.id) + "\" has no name in \"" +
                                                language + "\"; " + (language == base_ ? "its id" : "the \"" + base_ + "\" name") +
                                                " is used");
                       }
                       return text;
                   });
        }
        CloseOption("MediaType");
    }

    void FixedOption(const char* option, ChoiceWords words, int defaultValue) {
        OpenOption(option, KeywordOf(words, defaultValue));
        for (const ChoiceWord& word : words) {
            const std::string key = std::string(option) + "." + word.keyword;
            Choice(option, word.keyword, word.code, MainText(FixedText(key, base_), FixedText(key, "en")),
                   [&](const std::string& language) { return FixedText(key, language); });
        }
        CloseOption(option);
    }

    static bool AnyTwoSided(const PrinterModel& model) {
        bool any = false;
        for (const Medium& medium : model.media) any = any || AnyTwoSided(medium.cascade);
        return any;
    }
    static bool AnyTwoSided(const Node& node) {
        bool any = DuplexChoices(node.duplex).Has(kTwoSided);
        for (const Node& child : node.children) any = any || AnyTwoSided(child);
        return any;
    }

    void Options(const Defaults& defaults) {
        FixedOption("ColorModel", kColorModels, defaults.color);
        FixedOption("PrintPurpose", kPurposes, defaults.purpose);
        FixedOption("PrintQualityLevel", kQualities, defaults.quality);
        const Offer& slots = defaults.medium->inputSlots;
        FixedOption("InputSlot", kInputSlots, slots.empty() ? HMI_INPUTBIN_AUTO : slots.defaultValue);
        const Offer& cartridges = defaults.purposeNode->cartridges;
        FixedOption("Cartridge", kCartridges, cartridges.empty() ? HMI_CARTRIDGE_AUTO : cartridges.defaultValue);
        const int duplexDefault = DuplexChoices(defaults.purposeNode->duplex).defaultValue;
        // Two-sided choices only where some purpose offers automatic duplex.
        FixedOption("Duplex", ChoiceWords(kDuplexModes, twoSided_ ? 3 : 1), duplexDefault);
    }

    // One choice in PPD words: a borderless choice in the marked size, a paper size in the variant given.
    std::string Words(const mediaexport::Choice& choice, int size) const {
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
    std::vector<std::string> Alternatives(const mediaexport::Choice& choice, int size) const {
        if (choice.option != Option::kDuplex || choice.value != kTwoSided) return {Words(choice, size)};
        if (!twoSided_) return {};
        return {"*Duplex DuplexNoTumble", "*Duplex DuplexTumble"};
    }

    // Every combination of the alternatives of a constraint's choices, after the medium's.
    std::vector<std::string> WhenWords(const Constraint& constraint, int size) const {
        std::vector<std::string> whens{"*MediaType " + keywords_[constraint.medium]};
        for (const mediaexport::Choice& choice : constraint.when) {
            std::vector<std::string> longer;
            for (const std::string& alternative : Alternatives(choice, size)) {
                for (const std::string& when : whens) longer.push_back(when + " " + alternative);
            }
            whens.swap(longer);
        }
        return whens;
    }

    std::string ResolveWords(const std::vector<mediaexport::Choice>& resolve, int size) const {
        std::string words;
        int variant = -1;
        for (const mediaexport::Choice& choice : resolve) {
            if (choice.option == Option::kBorderless) variant = choice.value;
        }
        for (const mediaexport::Choice& choice : resolve) {
            if (choice.option == Option::kBorderless && resolve.front().option == Option::kPaperSize) continue;
            const int context = choice.option == Option::kPaperSize ? variant : size;
            words += (words.empty() ? "" : " ") + Words(choice, context);
        }
        return words;
    }

    // Constraints go bottom rank first, each rank's resolvers named so that they sort in that order too:
    // CUPS applies the resolvers of the constraints that hold one after another, so the highest one, which
    // sets every level below its own, comes last. Constraints that resolve alike share their resolver
    // (libcups's open costs about ten times as much with a resolver per constraint).
    void Constraints(PpdSummary& summary) {
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
                for (const mediaexport::Choice& choice : *choices) bySize = bySize || choice.option == Option::kBorderless;
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

    const PrinterModel& model_;
    const std::string base_;
    std::ostream& out_;
    std::vector<std::string>* warnings_;
    const std::vector<std::string> languages_;
    const std::vector<std::string> keywords_;
    const bool twoSided_;  // some purpose offers automatic duplex: the PPD has two-sided choices
};

}  // namespace

std::string PpdMediaKeyword(const std::string& id) {
    bool plain = !id.empty() && id.size() <= 40;
    for (const char c : id) plain = plain && KeywordCharacter(c);
    if (plain) return id;
    std::string keyword;
    for (const char c : id) {
        if (keyword.size() == 31) break;
        keyword += KeywordCharacter(c) ? c : '_';
    }
    char hash[16];
    std::snprintf(hash, sizeof hash, "_%08X", static_cast<unsigned>(TextHash(id)));
    return keyword + hash;
}

PpdSummary WritePpd(const PrinterModel& model, const std::string& base, std::ostream& out,
                    std::vector<std::string>* warnings) {
    if (model.media.empty()) return {};
    return PpdOut(model, base, out, warnings).Write();
}

}  // namespace mediaexport
