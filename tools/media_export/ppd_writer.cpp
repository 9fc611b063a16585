#include "ppd_writer.h"

#include <algorithm>
#include <cstdio>

#include "constraint_plan.h"
#include "model_builder.h"
#include "paper_sizes.h"
#include "ppd_choices.h"
#include "ppd_constraints.h"
#include "ppd_text.h"
#include "text_catalogue.h"

namespace mediaexport {
namespace {

constexpr double kMargin = 72.0 * 3.0 / 25.4;  // 3 mm around a bordered size's imageable area

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
        PpdSummary summary = WritePpdConstraints(model_, keywords_, twoSided_, out_);
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
            bool noBaseName = false;
            const std::string baseText = MediumText(medium, base_, base_, &noBaseName);
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

    const PrinterModel& model_;
    const std::string base_;
    std::ostream& out_;
    std::vector<std::string>* warnings_;
    const std::vector<std::string> languages_;
    const std::vector<std::string> keywords_;
    const bool twoSided_;  // some purpose offers automatic duplex: the PPD has two-sided choices
};

}  // namespace

PpdSummary WritePpd(const PrinterModel& model, const std::string& base, std::ostream& out,
                    std::vector<std::string>* warnings) {
    if (model.media.empty()) return {};
    return PpdOut(model, base, out, warnings).Write();
}

}  // namespace mediaexport
