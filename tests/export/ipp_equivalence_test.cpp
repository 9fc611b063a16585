// The exported IPP attributes against the library: a job of any medium, size, margins, colour mode,
// purpose and print quality is forbidden by job-constraints-supported exactly when the library offers
// no such combination; so are the media source, cartridge and sides beside each offered path.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>

#include "export/export_oracle.h"
#include "export/ipp_constraints.h"
#include "export/random_printer.h"
#include "ipp_writer.h"
#include "paper_sizes.h"

namespace exporttest {
namespace {

const char* const kColorModes[] = {"color", "monochrome"};
const char* const kPurposeWords[] = {"photo", "proof", "cad"};
const char* const kSidesWords[] = {"one-sided", "two-sided-long-edge", "two-sided-short-edge"};
const char* const kCartridgeWords[] = {"color", "bk", "photo", "bkcolor", "", "photocolor", "auto"};
// IPP print-quality: draft, normal, high; the levels (tagHMI_PRINTQUALITY) each stands for.
const int kIppQualities[] = {3, 4, 5};

uint32_t NamedSizes() {
    uint32_t named = 0;
    for (int s = 0; s < kPaperSizes; ++s) named |= mediaexport::PaperSizeOf(s) ? 1u << s : 0u;
    return named;
}

std::vector<int> LevelsOf(int ippQuality) {
    switch (ippQuality) {
    case 5: return {HMI_PRINTQUALITY_1, HMI_PRINTQUALITY_2};
    case 4: return {HMI_PRINTQUALITY_3};
    default: return {HMI_PRINTQUALITY_4, HMI_PRINTQUALITY_5};
    }
}

std::string SourceOf(int slot) {
    static const std::map<int, std::string> words = {{HMI_INPUTBIN_AUTO, "auto"}, {HMI_INPUTBIN_MANUAL03, "rear"},
                                                     {HMI_INPUTBIN_ASF, "main"},  {HMI_INPUTBIN_MANUAL, "manual"},
                                                     {HMI_INPUTBIN_DISCTRAY, "disc"}};
    return words.at(slot);
}

struct JobChoice {
    std::string mediaType;
    int size = 0, borderless = 0, color = 0, purpose = 0, quality = 4;
    int slot = HMI_INPUTBIN_AUTO, cartridge = HMI_CARTRIDGE_AUTO;
    Sides sides = kOneSided;
};

IppJob JobOf(const JobChoice& choice) {
    const mediaexport::Dimensions dimensions = mediaexport::DimensionsOf(*mediaexport::PaperSizeOf(choice.size));
    IppJob size;
    size.values = {{"x-dimension", std::to_string(mediaexport::HundredthsOfMm(dimensions.width))},
                   {"y-dimension", std::to_string(mediaexport::HundredthsOfMm(dimensions.length))}};
    IppJob media;
    const std::string margin = choice.borderless == HMI_ON ? "0" : "300";
    media.values = {{"media-type", choice.mediaType},  {"media-source", SourceOf(choice.slot)},
                    {"media-top-margin", margin},     {"media-bottom-margin", margin},
                    {"media-left-margin", margin},    {"media-right-margin", margin}};
    media.collections = {{"media-size", size}};
    IppJob job;
    job.values = {{"print-color-mode", kColorModes[choice.color]},
                  {"xrvhmi-print-purpose", kPurposeWords[choice.purpose]},
                  {"print-quality", std::to_string(choice.quality)},
                  {"sides", kSidesWords[choice.sides]},
                  {"xrvhmi-cartridge", kCartridgeWords[choice.cartridge]}};
    job.collections = {{"media-col", media}};
    return job;
}

// The attributes file and the oracle's printer, compared job by job.
class IppComparison {
public:
    IppComparison(const std::string& path, const Printer& printer) : printer_(printer) {
        std::ifstream in(path, std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        std::string error;
        if (!ParseIppAttributes(text.str(), &attributes_, &error)) Finding("not read: " + error);
    }
    IppComparison(std::vector<IppAttribute> attributes, const Printer& printer, size_t maxFindings)
        : printer_(printer), attributes_(std::move(attributes)), maxFindings_(maxFindings) {}

    void Run() {
        if (!findings.empty()) return;
        const IppAttribute* constraints = FindIppAttribute(attributes_, "job-constraints-supported");
        const IppAttribute none;
        constraints_ = constraints ? constraints : &none;
        // The media-type keywords of the media the library offers (an export that offers others as well
        // is still compared medium by medium).
        const std::vector<const Medium*> media = printer_.Exported();
        mediaexport::PrinterModel model;
        for (const Medium* medium : media) {
            model.media.emplace_back();
            model.media.back().id = medium->id;
        }
        const std::vector<std::string> types = mediaexport::IppMediaTypes(model);
        const std::vector<std::string> listed = IppTexts(attributes_, "media-type-supported");
        if (listed != types) {
            std::string have;
            for (const std::string& type : listed) have += " " + type;
            Finding("media-type-supported:" + have + " (" + std::to_string(types.size()) + " media exported)");
        }
        Resolvers();
        const IppAttribute* const all = constraints_;
        for (size_t i = 0; i < media.size(); ++i) {
            // Constraints of other media types never apply to this one's jobs: they are left out.
            IppAttribute own;
            for (const IppValue& constraint : all->values) {
                if (!NamesOtherType(constraint, types[i])) own.values.push_back(constraint);
            }
            constraints_ = &own;
            Combinations(*media[i], types[i]);
            Beside(*media[i], types[i]);
            constraints_ = all;
        }
        if (!media.empty()) DefaultJob(types.front());
    }

    std::vector<std::string> findings;
    size_t checked = 0;

private:
    void Finding(const std::string& line) {
        if (findings.size() < maxFindings_) findings.push_back(line);
    }

    // Whether the constraint asks for a media-type other than type.
    static bool NamesOtherType(const IppValue& constraint, const std::string& type) {
        for (const IppAttribute& member : constraint.members) {
            if (member.name != "media-col") continue;
            for (const IppValue& col : member.values) {
                for (const IppAttribute& media : col.members) {
                    if (media.name != "media-type") continue;
                    if (std::none_of(media.values.begin(), media.values.end(),
                                     [&](const IppValue& value) { return value.text == type; })) {
                        return member.values.size() == 1;
                    }
                }
            }
        }
        return false;
    }

    bool Conflicts(const JobChoice& choice) {
        ++checked;
        return !IppConflict(*constraints_, JobOf(choice)).empty();
    }

    static std::string Describe(const Medium& m, const JobChoice& c) {
        return m.id + " " + kColorModes[c.color] + " " + mediaexport::PaperSizeOf(c.size)->pwg +
               (c.borderless == HMI_ON ? " borderless " : " bordered ") + kPurposeWords[c.purpose] +
               " print-quality " + std::to_string(c.quality);
    }

    // Values beside the cascade that the path allows.
    JobChoice Allowed(const Medium& m, const std::string& type, int c, int b, int p) const {
        JobChoice choice;
        choice.mediaType = type;
        choice.color = c, choice.borderless = b, choice.purpose = p;
        if (!m.slots.values.empty()) choice.slot = m.slots.values.front();
        if (!m.Offered(c, b, p)) return choice;
        const Purpose& purpose = m.purpose[c][b][p];
        if (!purpose.cartridges.values.empty()) choice.cartridge = purpose.cartridges.values.front();
        if (!m.SidesAllowed(c, b, p, kOneSided)) choice.sides = kLongEdge;
        return choice;
    }

    void Combinations(const Medium& m, const std::string& type) {
        for (int c = 0; c < kColors; ++c) {
            for (int b = 0; b < kBorderless; ++b) {
                for (int p = 0; p < kPurposes; ++p) {
                    JobChoice choice = Allowed(m, type, c, b, p);
                    for (const int quality : kIppQualities) {
                        bool levelOffered = false;
                        for (const int level : LevelsOf(quality)) levelOffered |= m.Offered(c, b, p, level);
                        choice.quality = quality;
                        for (int s = 0; s < kPaperSizes; ++s) {
                            if (!mediaexport::PaperSizeOf(s)) continue;
                            choice.size = s;
                            const bool offered = levelOffered && m.Supports(s);
                            if (Conflicts(choice) == offered) {
                                Finding(Describe(m, choice) + (offered ? ": offered, but forbidden"
                                                                       : ": not offered, but allowed"));
                            }
                        }
                    }
                }
            }
        }
    }

    // Each media source with the medium's first offered path; each cartridge and sides value below
    // every offered path.
    void Beside(const Medium& m, const std::string& type) {
        bool sourcesDone = false;
        for (int c = 0; c < kColors; ++c) {
            for (int b = 0; b < kBorderless; ++b) {
                for (int p = 0; p < kPurposes; ++p) {
                    if (!m.Offered(c, b, p)) continue;
                    JobChoice base = Allowed(m, type, c, b, p);
                    while (!m.Supports(base.size)) ++base.size;
                    const int level = m.purpose[c][b][p].qualities.values.front();
                    base.quality = level <= HMI_PRINTQUALITY_2 ? 5 : level == HMI_PRINTQUALITY_3 ? 4 : 3;
                    for (const int slot : kInputSlots) {
                        if (sourcesDone) break;
                        JobChoice choice = base;
                        choice.slot = slot;
                        if (Conflicts(choice) == m.SlotAllowed(slot)) {
                            Finding(Describe(m, choice) + " media-source " + SourceOf(slot) + ": not the library's answer");
                        }
                    }
                    sourcesDone = true;
                    for (const int cartridge : kCartridges) {
                        JobChoice choice = base;
                        choice.cartridge = cartridge;
                        if (Conflicts(choice) == m.CartridgeAllowed(c, b, p, cartridge)) {
                            Finding(Describe(m, choice) + " xrvhmi-cartridge " + kCartridgeWords[cartridge] +
                                    ": not the library's answer");
                        }
                    }
                    for (const Sides sides : {kOneSided, kLongEdge, kShortEdge}) {
                        JobChoice choice = base;
                        choice.sides = sides;
                        if (Conflicts(choice) == m.SidesAllowed(c, b, p, sides)) {
                            Finding(Describe(m, choice) + " sides " + kSidesWords[sides] + ": not the library's answer");
                        }
                    }
                }
            }
        }
    }

    // The job of the printer's defaults: the library's defaults, and allowed.
    void DefaultJob(const std::string& type) {
        IppJob job;
        for (const IppAttribute& attribute : attributes_) {
            const size_t suffix = attribute.name.rfind("-default");
            if (suffix == std::string::npos || suffix + 8 != attribute.name.size() || attribute.values.empty()) continue;
            const std::string name = attribute.name.substr(0, suffix);
            if (attribute.values.front().collection) {
                job.collections[name] = IppJobOf(attribute.values.front());
            } else {
                job.values[name] = attribute.values.front().text;
            }
        }
        const std::string resolver = IppConflict(*constraints_, job);
        if (!resolver.empty()) Finding("the default job is forbidden (" + resolver + ")");
        const Defaults d = DefaultsOf(printer_);
        JobChoice choice;
        choice.mediaType = type;
        choice.size = d.paperSize, choice.borderless = d.borderless, choice.color = d.color, choice.purpose = d.purpose;
        choice.quality = d.quality <= HMI_PRINTQUALITY_2 ? 5 : d.quality == HMI_PRINTQUALITY_3 ? 4 : 3;
        std::map<std::string, std::string> expected = JobOf(choice).values;
        std::map<std::string, std::string> media = JobOf(choice).collections["media-col"].values;
        expected.erase("sides"), expected.erase("xrvhmi-cartridge"), media.erase("media-source");
        if (d.sides >= 0) expected["sides"] = kSidesWords[d.sides];
        if (d.cartridge >= 0) expected["xrvhmi-cartridge"] = kCartridgeWords[d.cartridge];
        if (d.slot >= 0) media["media-source"] = SourceOf(d.slot);
        for (const auto& value : expected) {
            if (job.values[value.first] != value.second) {
                Finding(value.first + "-default " + job.values[value.first] + ", not " + value.second);
            }
        }
        IppJob& col = job.collections["media-col"];
        for (const auto& value : media) {
            if (col.values[value.first] != value.second) {
                Finding("media-col-default " + value.first + " " + col.values[value.first] + ", not " + value.second);
            }
        }
        if (col.collections["media-size"].values != JobOf(choice).collections["media-col"].collections["media-size"].values) {
            Finding("media-col-default media-size is not " + std::string(mediaexport::PaperSizeOf(d.paperSize)->pwg));
        }
    }

    // Every constraint names a resolver that job-resolvers-supported defines.
    void Resolvers() {
        std::set<std::string> defined;
        if (const IppAttribute* resolvers = FindIppAttribute(attributes_, "job-resolvers-supported")) {
            for (const IppValue& resolver : resolvers->values) {
                for (const IppAttribute& member : resolver.members) {
                    if (member.name == "resolver-name" && !member.values.empty()) defined.insert(member.values[0].text);
                }
            }
        }
        for (const IppValue& constraint : constraints_->values) {
            std::string name;
            for (const IppAttribute& member : constraint.members) {
                if (member.name == "resolver-name" && !member.values.empty()) name = member.values[0].text;
            }
            if (!defined.count(name)) Finding("constraint with resolver \"" + name + "\" that no resolver defines");
        }
    }

    const Printer& printer_;
    std::vector<IppAttribute> attributes_;
    size_t maxFindings_ = 12;
    const IppAttribute* constraints_ = nullptr;
};

// The rule on a hand-written file: members with several values, nested collections, resolver-name
// ignored, and the syntax's quoting, escapes, comments and enum keywords.
TEST(IppConstraints, RuleOnAHandWrittenFile) {
    const std::string text = R"(# comment
ATTR keyword media-type-supported "plain",photo\,glossy , 'matte'
ATTR collection job-constraints-supported {
  MEMBER name resolver-name "r1"
  MEMBER keyword print-color-mode monochrome
  MEMBER collection media-col { MEMBER keyword media-type plain,matte
    MEMBER collection media-size { MEMBER integer x-dimension 21000 MEMBER integer y-dimension 29700 } }
},{
  MEMBER name resolver-name r2  # the second
  MEMBER enum print-quality high,4
},{ MEMBER name resolver-name r3 MEMBER keyword sides two-sided-long-edge MEMBER collection media-col {
    MEMBER integer media-top-margin 0 } }
ATTR no-value printer-alert
GROUP printer-attributes-tag
ATTR enum print-quality-supported draft,normal,high
)";
    std::vector<IppAttribute> attributes;
    std::string error;
    ASSERT_TRUE(ParseIppAttributes(text, &attributes, &error)) << error;
    EXPECT_EQ(IppTexts(attributes, "media-type-supported"), (std::vector<std::string>{"plain", "photo,glossy", "matte"}));
    EXPECT_EQ(IppTexts(attributes, "print-quality-supported"), (std::vector<std::string>{"3", "4", "5"}));
    const IppAttribute* constraints = FindIppAttribute(attributes, "job-constraints-supported");
    ASSERT_NE(constraints, nullptr);
    ASSERT_EQ(constraints->values.size(), 3u);

    IppJob a4;
    a4.values = {{"x-dimension", "21000"}, {"y-dimension", "29700"}};
    IppJob media;
    media.values = {{"media-type", "matte"}, {"media-top-margin", "300"}};
    media.collections = {{"media-size", a4}};
    IppJob job;
    job.values = {{"print-color-mode", "monochrome"}, {"print-quality", "3"}, {"sides", "two-sided-long-edge"}};
    job.collections = {{"media-col", media}};
    EXPECT_EQ(IppConflict(*constraints, job), "r1");
    job.values["print-color-mode"] = "color";
    EXPECT_EQ(IppConflict(*constraints, job), "");
    job.values["print-quality"] = "5";
    EXPECT_EQ(IppConflict(*constraints, job), "r2");
    job.values["print-quality"] = "3";
    job.collections["media-col"].values["media-top-margin"] = "0";
    EXPECT_EQ(IppConflict(*constraints, job), "r3");
    job.values["sides"] = "one-sided";
    job.values["print-color-mode"] = "monochrome";
    job.collections["media-col"].collections["media-size"].values["y-dimension"] = "29701";
    EXPECT_EQ(IppConflict(*constraints, job), "");
    // A member the job lacks does not match.
    job.collections.clear();
    EXPECT_EQ(IppConflict(*constraints, job), "");

    for (const char* bad : {"ATTR keyword", "ATTR collection c { MEMBER keyword k v", "ATTR collection c x",
                            "NOTATTR keyword k v", "ATTR enum print-quality superb"}) {
        std::vector<IppAttribute> ignored;
        EXPECT_FALSE(ParseIppAttributes(bad, &ignored, &error)) << bad;
    }
}

bool ToolHasIppExport();

// The comparison itself: attributes with one medium's constraints taken out, and with a job the library
// offers forbidden, are each caught.
TEST(IppEquivalence, ComparisonCatchesAlteredAttributes) {
    if (!ToolHasIppExport()) GTEST_SKIP() << "hmitool has no export ipp";
    ScratchDirectory scratch("ipp-altered");
    const std::string sample = std::string(HMI_SAMPLES_DIR) + "/sample-printer";
    const std::string file = scratch.path() + "/sample.attrs";
    ASSERT_EQ(RunCommand(ShellQuoted(HMI_TOOL) + " export ipp --from-files " + ShellQuoted(sample) + " -o " +
                         ShellQuoted(file)).status, 0);
    std::ifstream in(file, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    std::vector<IppAttribute> attributes, extra;
    std::string error;
    ASSERT_TRUE(ParseIppAttributes(text.str(), &attributes, &error)) << error;
    ASSERT_TRUE(ParseIppAttributes("ATTR collection c {MEMBER name resolver-name r1 MEMBER collection media-col "
                                   "{MEMBER keyword media-type photo-glossy-pro} MEMBER enum print-quality high}",
                                   &extra, &error)) << error;
    // The two media the alterations concern (the first is the default medium) are compared.
    Printer printer = ReadPrinter(sample, 0, NamedSizes());
    printer.media.erase(std::remove_if(printer.media.begin(), printer.media.end(), [](const Medium& m) {
        return m.id != "PhotoGlossyPro" && m.id != "TransparencyFilm";
    }), printer.media.end());
    const auto constraintsOf = [](std::vector<IppAttribute>& all) -> std::vector<IppValue>& {
        for (IppAttribute& attribute : all) {
            if (attribute.name == "job-constraints-supported") return attribute.values;
        }
        return all.front().values;
    };
    const struct {
        const char* what;
        std::function<void(std::vector<IppValue>&)> edit;
        std::vector<std::string> caught;
    } cases[] = {
        {"transparency unconstrained",
         [](std::vector<IppValue>& constraints) {
             const auto names = [](const IppValue& constraint) {
                 for (const IppAttribute& member : constraint.members) {
                     if (member.name != "media-col" || member.values.empty()) continue;
                     for (const IppAttribute& media : member.values.front().members) {
                         if (media.name == "media-type" && media.values.front().text == "transparency") return true;
                     }
                 }
                 return false;
             };
             constraints.erase(std::remove_if(constraints.begin(), constraints.end(), names), constraints.end());
         },
         {"TransparencyFilm color iso_a5_148x210mm bordered photo print-quality 3: not offered, but allowed"}},
        {"high quality forbidden on photo-glossy-pro",
         [&](std::vector<IppValue>& constraints) { constraints.push_back(extra.front().values.front()); },
         {"PhotoGlossyPro color iso_a4_210x297mm bordered photo print-quality 5: offered, but forbidden",
          "the default job is forbidden (r1)"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<IppAttribute> altered = attributes;
        c.edit(constraintsOf(altered));
        IppComparison comparison(altered, printer, 100000);
        comparison.Run();
        for (const std::string& finding : c.caught) {
            EXPECT_TRUE(std::any_of(comparison.findings.begin(), comparison.findings.end(),
                                    [&](const std::string& line) { return line.find(finding) != std::string::npos; }))
                << finding;
        }
    }
}

bool ToolHasIppExport() { return RunCommand(ShellQuoted(HMI_TOOL) + " export ipp --help").status == 0; }

// The findings of one printer's attributes file (at most a few lines) and the jobs compared.
std::vector<std::string> Compare(const std::string& file, const Printer& printer, size_t* checked) {
    IppComparison comparison(file, printer);
    comparison.Run();
    *checked += comparison.checked;
    return comparison.findings;
}

TEST(IppEquivalence, SamplePrinter) {
    if (!ToolHasIppExport()) GTEST_SKIP() << "hmitool has no export ipp";
    ScratchDirectory scratch("ipp-sample");
    const std::string sample = std::string(HMI_SAMPLES_DIR) + "/sample-printer";
    const std::string file = scratch.path() + "/sample.attrs";
    const ExportRun run = RunCommand(ShellQuoted(HMI_TOOL) + " export ipp --from-files " + ShellQuoted(sample) +
                                     " -o " + ShellQuoted(file));
    ASSERT_EQ(run.status, 0) << run.output;
    size_t checked = 0;
    for (const std::string& finding : Compare(file, ReadPrinter(sample, 0, NamedSizes()), &checked)) {
        ADD_FAILURE() << finding;
    }
    std::printf("sample printer: %zu IPP jobs compared\n", checked);
    ::testing::Test::RecordProperty("jobs", static_cast<int>(checked));
}

TEST(IppEquivalence, GeneratedPrinters) {
    if (!ToolHasIppExport()) GTEST_SKIP() << "hmitool has no export ipp";
    ScratchDirectory scratch("ipp-generated");
    const uint32_t count = GeneratedPrinterCount();
    std::vector<std::string> directories;
    for (uint32_t seed = 1; seed <= count; ++seed) {
        directories.push_back(WriteRandomPrinter(seed, scratch.path() + "/p" + std::to_string(seed)).directory);
    }
    const std::vector<ExportRun> runs = ExportAll(HMI_TOOL, "ipp", "attrs", directories, {});
    std::vector<std::vector<std::string>> findings(count);
    std::vector<size_t> checked(count);
    ForEachOnTwoThreads(count, [&](size_t i) {
        const Printer printer = ReadPrinter(directories[i], 0, NamedSizes());
        if (printer.Exported().empty()) {
            if (runs[i].status == 0) findings[i].push_back("attributes without media");
        } else if (runs[i].status != 0) {
            findings[i].push_back("export fails\n" + runs[i].output);
        } else {
            findings[i] = Compare(directories[i] + ".attrs", printer, &checked[i]);
        }
    });
    size_t total = 0, failed = 0;
    for (size_t i = 0; i < count; ++i) {
        total += checked[i];
        if (findings[i].empty()) continue;
        ++failed;
        std::string lines;
        for (const std::string& finding : findings[i]) lines += "\n  " + finding;
        ADD_FAILURE() << directories[i] << ":" << lines;
    }
    if (failed) scratch.Keep();
    std::printf("%u generated printers: %zu IPP jobs compared\n", count, total);
    ::testing::Test::RecordProperty("jobs", static_cast<int>(total));
}

}  // namespace
}  // namespace exporttest
