// The exported PPD against the library: every combination of medium, colour mode, page size (both
// variants), purpose and quality conflicts in libcups exactly when the library does not offer it; so do
// the input slot, cartridge and duplex beside each offered path. The defaults are the library's, and
// picking any medium resolves without a conflict. Over the sample printer and generated printers.
#include <cups/cups.h>
#include <cups/ppd.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <future>
#include <map>
#include <set>
#include <sstream>

#include "export/export_oracle.h"
#include "export/random_printer.h"
#include "paper_sizes.h"
#include "ppd_writer.h"

namespace exporttest {
namespace {

const char* const kVariantWords[] = {"rgb", "cmyk4d", "cmyk1d", "index"};
const char* const kColorChoices[] = {"RGB", "Gray"};
const char* const kPurposeChoices[] = {"photo", "proof", "cad"};
const char* const kSidesChoices[] = {"None", "DuplexNoTumble", "DuplexTumble"};

std::string SlotChoice(int slot) {
    static const std::map<int, std::string> words = {{HMI_INPUTBIN_AUTO, "AUTO"}, {HMI_INPUTBIN_MANUAL03, "MANUAL03"},
                                                     {HMI_INPUTBIN_ASF, "asf"},   {HMI_INPUTBIN_MANUAL, "manual"},
                                                     {HMI_INPUTBIN_DISCTRAY, "DISCTRAY"}};
    return words.at(slot);
}

std::string CartridgeChoice(int cartridge) {
    static const std::map<int, std::string> words = {
        {HMI_CARTRIDGE_COLOR, "color"},     {HMI_CARTRIDGE_BK, "bk"},
        {HMI_CARTRIDGE_PHOTO, "photo"},     {HMI_CARTRIDGE_BKCOLOR, "bkcolor"},
        {HMI_CARTRIDGE_PHOTOCOLOR, "photocolor"}, {HMI_CARTRIDGE_AUTO, "auto"}};
    return words.at(cartridge);
}

// The sizes the export names (bit s for _tagHMI_PAPERSIZE s).
uint32_t NamedSizes() {
    uint32_t named = 0;
    for (int s = 0; s < kPaperSizes; ++s) named |= mediaexport::PaperSizeOf(s) ? 1u << s : 0u;
    return named;
}

std::string SizeChoice(int size, int borderless) {
    const mediaexport::PaperSize& paper = *mediaexport::PaperSizeOf(size);
    return borderless == HMI_ON ? mediaexport::FullbleedName(paper) : std::string(paper.ppd);
}

// A PPD opened with libcups and the oracle's printer, compared choice by choice. Findings are lines
// naming the combination; checked counts the markings compared.
class PpdComparison {
public:
    PpdComparison(const std::string& path, const Printer& printer, size_t maxFindings = 12)
        : printer_(printer), path_(path), maxFindings_(maxFindings) {
        std::ifstream in(path, std::ios::binary);
        std::string line;
        while (std::getline(in, line)) lines_.push_back(line);
        ppd_ = Open(std::string());
    }
    ~PpdComparison() {
        if (ppd_) ppdClose(ppd_);
    }

    void Run() {
        if (!ppd_) return;
        Choices();
        for (const Medium* medium : printer_.Exported()) {
            // Constraints that name another medium never apply with this one chosen: without them
            // libcups tests a few hundred constraints per marking instead of thousands.
            ppd_file_t* const full = ppd_;
            ppd_ = Open(mediaexport::PpdMediaKeyword(medium->id));
            if (ppd_) {
                Combinations(*medium);
                SlotsCartridgesSides(*medium);
                ppdClose(ppd_);
            }
            ppd_ = full;
            Resolves(*medium);
        }
        MarkedDefaults();
    }

    std::vector<std::string> findings;
    size_t checked = 0;

private:
    void Finding(const std::string& line) {
        if (findings.size() < maxFindings_) findings.push_back(line);
    }

    // The PPD, or with medium given the PPD less the constraints that name another MediaType choice.
    ppd_file_t* Open(const std::string& medium) {
        if (medium.empty()) return Opened(path_);
        std::string text;
        for (const std::string& line : lines_) {
            const size_t named = line.find("*MediaType ");
            if (line.compare(0, 19, "*cupsUIConstraints ") == 0 && named != std::string::npos) {
                std::istringstream words(line.substr(named + 11));
                std::string choice;
                words >> choice;
                if (!choice.empty() && choice.back() == '"') choice.pop_back();
                if (choice != medium) continue;
            }
            text += line + "\n";
        }
        // libcups reads a PPD through a file descriptor: the text goes to a file.
        {
            std::ofstream out(path_ + ".medium", std::ios::binary);
            out << text;
        }
        return Opened(path_ + ".medium");
    }

    ppd_file_t* Opened(const std::string& path) {
        ppd_file_t* ppd = ppdOpenFile(path.c_str());
        if (!ppd) {
            int at = 0;
            const ppd_status_t status = ppdLastError(&at);
            Finding("ppdOpen fails: " + std::string(ppdErrorString(status)) + " at line " + std::to_string(at));
        }
        return ppd;
    }

    std::vector<std::string> ChoicesOf(const char* option) const {
        std::vector<std::string> out;
        if (const ppd_option_t* o = ppdFindOption(ppd_, option)) {
            for (int i = 0; i < o->num_choices; ++i) out.push_back(o->choices[i].choice);
        }
        return out;
    }

    // MediaType has a choice per exported medium, in database order; the other options no choice beyond
    // those the export promises. Marking a choice the PPD lacks would silently keep the previous one:
    // the comparisons take it as a conflict instead.
    void Choices() {
        std::vector<std::string> media;
        for (const Medium* medium : printer_.Exported()) media.push_back(mediaexport::PpdMediaKeyword(medium->id));
        std::set<std::string> sizes;
        for (int s = 0; s < kPaperSizes; ++s) {
            if (mediaexport::PaperSizeOf(s)) sizes.insert({SizeChoice(s, HMI_OFF), SizeChoice(s, HMI_ON)});
        }
        const std::set<std::string> slots = {"AUTO", "MANUAL03", "asf", "manual", "DISCTRAY"};
        const std::set<std::string> cartridges = {"color", "bk", "photo", "bkcolor", "photocolor", "auto"};
        const std::map<std::string, std::set<std::string>> expected = {
            {"ColorModel", {"RGB", "Gray"}},
            {"PageSize", sizes},
            {"PageRegion", sizes},
            {"PrintPurpose", {"photo", "proof", "cad"}},
            {"PrintQualityLevel", {"1", "2", "3", "4", "5"}},
            {"InputSlot", slots},
            {"Cartridge", cartridges},
            {"Duplex", {"None", "DuplexNoTumble", "DuplexTumble"}},
        };
        if (ChoicesOf("MediaType") != media) {
            std::string have;
            for (const std::string& c : ChoicesOf("MediaType")) have += " " + c;
            Finding("MediaType choices:" + have + " (" + std::to_string(media.size()) + " media exported)");
        }
        for (const auto& option : expected) {
            for (const std::string& choice : ChoicesOf(option.first.c_str())) {
                if (!option.second.count(choice) || !present_[option.first].insert(choice).second) {
                    Finding(option.first + ": unexpected or repeated choice " + choice);
                }
            }
        }
        for (const std::string& medium : ChoicesOf("MediaType")) present_["MediaType"].insert(medium);
    }

    // Marks the choices and tells whether the marking conflicts; a choice the PPD lacks conflicts.
    bool Conflicts(const std::vector<std::pair<const char*, std::string>>& choices) {
        std::vector<cups_option_t> options;
        ++checked;
        for (const auto& choice : choices) {
            if (!present_[choice.first].count(choice.second)) return true;
            options.push_back({const_cast<char*>(choice.first), const_cast<char*>(choice.second.c_str())});
        }
        return cupsMarkOptions(ppd_, static_cast<int>(options.size()), options.data()) > 0;
    }

    // Values of the options beside the cascade that the path allows (any, where it is not offered).
    struct Beside {
        std::string slot = "AUTO", cartridge = "auto", sides = "None";
    };
    Beside BesideOf(const Medium& m, int c, int b, int p) const {
        Beside beside;
        if (!m.slots.values.empty()) beside.slot = SlotChoice(m.slots.values.front());
        if (!m.Offered(c, b, p)) return beside;
        const Purpose& purpose = m.purpose[c][b][p];
        if (!purpose.cartridges.values.empty()) beside.cartridge = CartridgeChoice(purpose.cartridges.values.front());
        if (!m.SidesAllowed(c, b, p, kOneSided)) beside.sides = kSidesChoices[kLongEdge];
        return beside;
    }

    static std::string Describe(const Medium& m, int c, int size, int b, int p, int q) {
        return m.id + " " + kColorChoices[c] + " " + SizeChoice(size, b) + " " + kPurposeChoices[p] + " " +
               std::to_string(q + 1);
    }

    void Combinations(const Medium& m) {
        const std::string medium = mediaexport::PpdMediaKeyword(m.id);
        for (int c = 0; c < kColors; ++c) {
            for (int b = 0; b < kBorderless; ++b) {
                for (int p = 0; p < kPurposes; ++p) {
                    const Beside beside = BesideOf(m, c, b, p);
                    for (int q = 0; q < kQualities; ++q) {
                        for (int s = 0; s < kPaperSizes; ++s) {
                            if (!mediaexport::PaperSizeOf(s)) continue;
                            const bool offered = m.Supports(s) && m.Offered(c, b, p, q);
                            const bool conflicts = Conflicts({{"MediaType", medium}, {"ColorModel", kColorChoices[c]},
                                                              {"PageSize", SizeChoice(s, b)},
                                                              {"PrintPurpose", kPurposeChoices[p]},
                                                              {"PrintQualityLevel", std::to_string(q + 1)},
                                                              {"InputSlot", beside.slot},
                                                              {"Cartridge", beside.cartridge},
                                                              {"Duplex", beside.sides}});
                            if (conflicts == offered) {
                                Finding(Describe(m, c, s, b, p, q) + (offered ? ": offered, but conflicts"
                                                                              : ": not offered, but no conflict"));
                            }
                        }
                    }
                }
            }
        }
    }

    // Each slot with the medium's first offered path; each cartridge and duplex choice below every
    // offered path of colour, borderless and purpose.
    void SlotsCartridgesSides(const Medium& m) {
        const std::string medium = mediaexport::PpdMediaKeyword(m.id);
        int size = 0;
        while (!m.Supports(size)) ++size;
        bool slotsDone = false;
        for (int c = 0; c < kColors; ++c) {
            for (int b = 0; b < kBorderless; ++b) {
                for (int p = 0; p < kPurposes; ++p) {
                    if (!m.Offered(c, b, p)) continue;
                    const Purpose& purpose = m.purpose[c][b][p];
                    const Beside beside = BesideOf(m, c, b, p);
                    const std::string quality = std::to_string(purpose.qualities.values.front() + 1);
                    const auto conflicts = [&](const char* option, const std::string& choice) {
                        std::vector<std::pair<const char*, std::string>> choices = {
                            {"MediaType", medium}, {"ColorModel", kColorChoices[c]}, {"PageSize", SizeChoice(size, b)},
                            {"PrintPurpose", kPurposeChoices[p]}, {"PrintQualityLevel", quality},
                            {"InputSlot", beside.slot}, {"Cartridge", beside.cartridge}, {"Duplex", beside.sides}};
                        for (auto& entry : choices) {
                            if (std::string(entry.first) == option) entry.second = choice;
                        }
                        return Conflicts(choices);
                    };
                    const std::string path = Describe(m, c, size, b, p, purpose.qualities.values.front());
                    for (const int slot : kInputSlots) {
                        if (slotsDone) break;
                        if (conflicts("InputSlot", SlotChoice(slot)) == m.SlotAllowed(slot)) {
                            Finding(path + " InputSlot " + SlotChoice(slot) + ": conflict is not the library's answer");
                        }
                    }
                    slotsDone = true;
                    for (const int cartridge : kCartridges) {
                        if (conflicts("Cartridge", CartridgeChoice(cartridge)) ==
                            m.CartridgeAllowed(c, b, p, cartridge)) {
                            Finding(path + " Cartridge " + CartridgeChoice(cartridge) +
                                    ": conflict is not the library's answer");
                        }
                    }
                    for (const Sides sides : {kOneSided, kLongEdge, kShortEdge}) {
                        if (conflicts("Duplex", kSidesChoices[sides]) == m.SidesAllowed(c, b, p, sides)) {
                            Finding(path + " Duplex " + kSidesChoices[sides] + ": conflict is not the library's answer");
                        }
                    }
                }
            }
        }
    }

    // From the defaults, choosing the medium and letting libcups resolve leaves no conflict and keeps
    // the medium chosen.
    void Resolves(const Medium& m) {
        const std::string medium = mediaexport::PpdMediaKeyword(m.id);
        ppdMarkDefaults(ppd_);
        int count = 0;
        cups_option_t* options = nullptr;
        const int resolved = cupsResolveConflicts(ppd_, "MediaType", medium.c_str(), &count, &options);
        const int left = cupsMarkOptions(ppd_, count, options);
        cupsFreeOptions(count, options);
        const ppd_choice_t* marked = ppdFindMarkedChoice(ppd_, "MediaType");
        ++checked;
        if (!resolved || left != 0 || !marked || medium != marked->choice) {
            Finding("choosing " + m.id + " after the defaults: resolved " + std::to_string(resolved) + ", " +
                    std::to_string(left) + " conflicts left, MediaType " + (marked ? marked->choice : "none"));
        }
    }

    std::string Marked(const char* option) const {
        const ppd_choice_t* choice = ppdFindMarkedChoice(ppd_, option);
        return choice ? choice->choice : "(none)";
    }

    void MarkedDefaults() {
        const Defaults d = DefaultsOf(printer_);
        if (!d.medium) return;
        ppdMarkDefaults(ppd_);
        ++checked;
        if (ppdConflicts(ppd_) != 0) Finding("the defaults conflict");
        std::map<std::string, std::string> expected = {
            {"MediaType", mediaexport::PpdMediaKeyword(d.medium->id)},
            {"ColorModel", kColorChoices[d.color]},
            {"PageSize", SizeChoice(d.paperSize, d.borderless)},
            {"PrintPurpose", kPurposeChoices[d.purpose]},
            {"PrintQualityLevel", std::to_string(d.quality + 1)},
        };
        if (d.slot >= 0) expected["InputSlot"] = SlotChoice(d.slot);
        if (d.cartridge >= 0) expected["Cartridge"] = CartridgeChoice(d.cartridge);
        if (d.sides >= 0) expected["Duplex"] = kSidesChoices[d.sides];
        for (const auto& option : expected) {
            const std::string marked = Marked(option.first.c_str());
            if (marked != option.second) Finding("default " + option.first + " " + marked + ", not " + option.second);
        }
    }

    const Printer& printer_;
    std::string path_;
    size_t maxFindings_;
    std::vector<std::string> lines_;
    ppd_file_t* ppd_ = nullptr;
    std::map<std::string, std::set<std::string>> present_;
};

// cupstestppd over the files in one run, started now and read once the comparisons are done: the
// files it does not pass, each with its report (-v adds the warnings).
std::future<std::map<std::string, std::string>> StartCupsTestPpd(const std::vector<std::string>& files,
                                                                 bool verbose) {
    std::string command = verbose ? "cupstestppd -v" : "cupstestppd";
    for (const std::string& file : files) command += " " + ShellQuoted(file);
    return std::async(std::launch::async, [command, files, verbose] {
        std::map<std::string, std::string> reports, failures;
        if (files.empty()) return failures;
        const ExportRun run = RunCommand(command);
        // "FILE: PASS" or "FILE: FAIL", each followed by its indented details.
        std::istringstream lines(run.output);
        std::string line, file;
        std::set<std::string> failed;
        while (std::getline(lines, line)) {
            const size_t colon = line.rfind(": ");
            if (colon != std::string::npos && std::find(files.begin(), files.end(), line.substr(0, colon)) != files.end()) {
                file = line.substr(0, colon);
                if (line.compare(colon, std::string::npos, ": PASS") != 0) failed.insert(file);
            }
            reports[file] += line + "\n";
        }
        for (const std::string& name : failed) failures[name] = reports[name];
        if (failed.empty() && run.status != 0) failures[""] = run.output;
        if (verbose) {
            for (const auto& report : reports) {
                if (report.second.find("should be") != std::string::npos) failures[report.first] = report.second;
            }
        }
        return failures;
    });
}

bool ToolHasPpdExport() {
    return RunCommand(ShellQuoted(HMI_TOOL) + " export ppd --help").status == 0;
}

// The sample printer in each quality variant.
TEST(PpdEquivalence, SamplePrinterInEveryQualityVariant) {
    if (!ToolHasPpdExport()) GTEST_SKIP() << "hmitool has no export ppd";
    ScratchDirectory scratch("ppd-sample");
    const std::string sample = std::string(HMI_SAMPLES_DIR) + "/sample-printer";
    size_t checked = 0;
    std::vector<std::string> ppds;
    std::vector<ExportRun> runs;
    for (DWORD variant = 0; variant < 4; ++variant) {
        ppds.push_back(scratch.path() + "/sample-" + kVariantWords[variant] + ".ppd");
        runs.push_back(RunCommand(ShellQuoted(HMI_TOOL) + " export ppd --from-files " + ShellQuoted(sample) + " -o " +
                                  ShellQuoted(ppds.back()) + " --quality-variant " + kVariantWords[variant]));
        ASSERT_EQ(runs.back().status, 0) << kVariantWords[variant] << "\n" << runs.back().output;
    }
    // No FAIL, and no size under a name other than the one CUPS gives its dimensions.
    auto tested = StartCupsTestPpd(ppds, true);
    for (DWORD variant = 0; variant < 4; ++variant) {
        SCOPED_TRACE(kVariantWords[variant]);
        const std::string& ppd = ppds[variant];
        const ExportRun& run = runs[variant];
        const Printer printer = ReadPrinter(sample, variant, NamedSizes());
        // The discs list every size as unsupported: left out, and said so.
        for (const Medium& medium : printer.media) {
            if (medium.leftOut == "no paper size" || medium.leftOut == "rejected") {
                EXPECT_NE(run.output.find(medium.id), std::string::npos) << medium.id << " left out silently";
            }
        }
        PpdComparison comparison(ppd, printer);
        comparison.Run();
        for (const std::string& finding : comparison.findings) ADD_FAILURE() << finding;
        checked += comparison.checked;
    }
    for (const auto& failure : tested.get()) ADD_FAILURE() << "cupstestppd " << failure.first << ":\n" << failure.second;
    std::printf("sample printer: %zu PPD markings compared\n", checked);
    ::testing::Test::RecordProperty("markings", static_cast<int>(checked));
}

// The comparison itself: a PPD with one medium's constraints taken out, one with a combination the
// library offers forbidden, and one with another default are each caught.
TEST(PpdEquivalence, ComparisonCatchesAlteredPpds) {
    if (!ToolHasPpdExport()) GTEST_SKIP() << "hmitool has no export ppd";
    ScratchDirectory scratch("ppd-altered");
    const std::string sample = std::string(HMI_SAMPLES_DIR) + "/sample-printer";
    const std::string ppd = scratch.path() + "/sample.ppd";
    ASSERT_EQ(RunCommand(ShellQuoted(HMI_TOOL) + " export ppd --from-files " + ShellQuoted(sample) + " -o " +
                         ShellQuoted(ppd)).status, 0);
    std::vector<std::string> lines;
    {
        std::ifstream in(ppd);
        for (std::string line; std::getline(in, line);) lines.push_back(line);
    }
    // The two media the alterations concern (the first is the default medium) are compared.
    Printer printer = ReadPrinter(sample, 0, NamedSizes());
    printer.media.erase(std::remove_if(printer.media.begin(), printer.media.end(), [](const Medium& m) {
        return m.id != "PhotoGlossyPro" && m.id != "TransparencyFilm";
    }), printer.media.end());
    const struct {
        const char* what;
        std::function<bool(std::string&)> edit;  // false drops the line
        std::vector<std::string> caught;         // findings that must be among those reported
    } cases[] = {
        {"TransparencyFilm unconstrained",
         [](std::string& line) {
             return line.rfind("*cupsUIConstraints", 0) != 0 || line.find("*MediaType TransparencyFilm ") == std::string::npos;
         },
         {"TransparencyFilm RGB A5 photo 1: not offered, but no conflict",
          "InputSlot AUTO: conflict is not the library's answer", "Cartridge bk: conflict is not the library's answer"}},
        {"PhotoGlossyPro level 2 forbidden",
         [](std::string& line) {
             if (line.rfind("*DefaultMediaType:", 0) == 0) {
                 line += "\n*cupsUIConstraints Extra: \"*MediaType PhotoGlossyPro *PrintQualityLevel 2\"";
                 line += "\n*cupsUIResolver Extra: \"*PrintQualityLevel 1\"";
             }
             return true;
         },
         {"PhotoGlossyPro RGB A4 photo 2: offered, but conflicts", "the defaults conflict"}},
        {"monochrome default",
         [](std::string& line) {
             if (line == "*DefaultColorModel: RGB") line = "*DefaultColorModel: Gray";
             return true;
         },
         {"default ColorModel Gray, not RGB"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const std::string altered = scratch.path() + "/altered.ppd";
        {
            std::ofstream out(altered);
            for (std::string line : lines) {
                if (c.edit(line)) out << line << "\n";
            }
        }
        PpdComparison comparison(altered, printer, 100000);
        comparison.Run();
        for (const std::string& finding : c.caught) {
            EXPECT_TRUE(std::any_of(comparison.findings.begin(), comparison.findings.end(),
                                    [&](const std::string& line) { return line.find(finding) != std::string::npos; }))
                << finding;
        }
    }
}

// What the oracle reads of the sample, by hand from its files: the comparisons stand on it.
TEST(PpdEquivalence, OracleReadsTheSampleAsWritten) {
    const Printer printer = ReadPrinter(std::string(HMI_SAMPLES_DIR) + "/sample-printer", 0, (1u << kPaperSizes) - 1);
    ASSERT_EQ(printer.media.size(), 27u);
    std::map<std::string, std::string> leftOut;
    for (const Medium& m : printer.media) {
        if (!m.exported()) leftOut[m.id] = m.leftOut;
    }
    EXPECT_EQ(leftOut, (std::map<std::string, std::string>{{"PhotoSemiGloss", "invalid"},
                                                            {"IronOnTransfer", "invisible"},
                                                            {"MetallicFilmNoThreeposition", "rejected"},
                                                            {"PrintableDisc", "no paper size"},
                                                            {"PrintableDiscGlossy", "no paper size"}}));
    const auto find = [&](const std::string& id) {
        for (const Medium& m : printer.media) {
            if (m.id == id) return m;
        }
        return Medium();
    };
    // Transparency film: colour modes through the "all" node; OFF, proof, qualities 2 and 3 only.
    const Medium film = find("TransparencyFilm");
    EXPECT_TRUE(film.Offered(HMI_COLORMODE_MONOCHROME, HMI_OFF, HMI_PRINTPURPOSE_PROOF, HMI_PRINTQUALITY_3));
    EXPECT_FALSE(film.Offered(HMI_COLORMODE_COLOR, HMI_ON));
    EXPECT_FALSE(film.Offered(HMI_COLORMODE_COLOR, HMI_OFF, HMI_PRINTPURPOSE_PROOF, HMI_PRINTQUALITY_1));
    EXPECT_TRUE(film.Supports(HMI_PAPERSIZE_ISO_A4));
    EXPECT_FALSE(film.Supports(HMI_PAPERSIZE_ISO_A5));
    EXPECT_FALSE(film.SlotAllowed(HMI_INPUTBIN_ASF));
    EXPECT_TRUE(film.CartridgeAllowed(1, 0, 1, HMI_CARTRIDGE_COLOR));
    EXPECT_FALSE(film.CartridgeAllowed(1, 0, 1, HMI_CARTRIDGE_BK));
    const Medium pro = find("PhotoGlossyPro");
    EXPECT_TRUE(pro.Offered(HMI_COLORMODE_COLOR, HMI_ON, HMI_PRINTPURPOSE_PHOTO, HMI_PRINTQUALITY_1));
    EXPECT_FALSE(pro.Offered(HMI_COLORMODE_COLOR, HMI_ON, HMI_PRINTPURPOSE_CAD));
    EXPECT_TRUE(pro.SidesAllowed(0, 1, 0, kOneSided));
    EXPECT_FALSE(pro.SidesAllowed(0, 1, 0, kLongEdge));
    const Defaults d = DefaultsOf(printer);
    ASSERT_NE(d.medium, nullptr);
    EXPECT_EQ(d.medium->id, "PhotoGlossyPro");
    EXPECT_EQ(std::vector<int>({d.color, d.borderless, d.purpose, d.quality, d.paperSize, d.slot, d.cartridge, d.sides}),
              std::vector<int>({0, 1, 0, 1, HMI_PAPERSIZE_ISO_A4, HMI_INPUTBIN_ASF, HMI_CARTRIDGE_PHOTOCOLOR, kOneSided}));
}

// What the comparison of one generated printer found.
struct Outcome {
    std::vector<std::string> failures;
    std::set<std::string> reasons;  // why media are left out ("exported" for those kept)
    size_t checked = 0;
    bool unexportable = false;
};

Outcome CompareGenerated(const std::string& directory, DWORD variant, const ExportRun& run) {
    Outcome outcome;
    const Printer printer = ReadPrinter(directory, variant, NamedSizes());
    for (const Medium& m : printer.media) {
        outcome.reasons.insert(m.leftOut.empty() ? "exported" : m.leftOut);
        // Media the library has but the export cannot offer are named in a warning.
        if (!m.exported() && m.leftOut != "invalid" && m.leftOut != "invisible" &&
            run.output.find("\"" + m.id + "\"") == std::string::npos) {
            outcome.failures.push_back(m.id + " (" + m.leftOut + ") left out without a warning\n" + run.output);
        }
    }
    if (printer.Exported().empty()) {
        // Nothing to offer: the export fails rather than write a PPD without media.
        if (run.status == 0) outcome.failures.push_back("a PPD without media");
        outcome.unexportable = true;
        return outcome;
    }
    if (run.status != 0) {
        outcome.failures.push_back("export fails\n" + run.output);
        return outcome;
    }
    PpdComparison comparison(directory + ".ppd", printer);
    comparison.Run();
    outcome.checked = comparison.checked;
    if (!comparison.findings.empty()) {
        std::string lines = std::string("(") + kVariantWords[variant] + ")";
        for (const std::string& finding : comparison.findings) lines += "\n  " + finding;
        outcome.failures.push_back(lines);
    }
    return outcome;
}

// Generated printers: every shape the generator makes, in every combination.
TEST(PpdEquivalence, GeneratedPrinters) {
    if (!ToolHasPpdExport()) GTEST_SKIP() << "hmitool has no export ppd";
    ScratchDirectory scratch("ppd-generated");
    const uint32_t count = GeneratedPrinterCount();
    std::set<std::string> features;
    std::vector<std::string> directories;
    std::vector<DWORD> variants;
    for (uint32_t seed = 1; seed <= count; ++seed) {
        const GeneratedPrinter printer = WriteRandomPrinter(seed, scratch.path() + "/p" + std::to_string(seed));
        features.insert(printer.features.begin(), printer.features.end());
        directories.push_back(printer.directory);
        // Every fifth printer in one of the other quality variants.
        variants.push_back(seed % 5 == 0 ? 1 + seed / 5 % 3 : 0);
    }
    std::vector<ExportRun> runs(count);
    for (DWORD variant = 0; variant < 4; ++variant) {
        std::vector<std::string> group;
        std::vector<size_t> at;
        for (size_t i = 0; i < count; ++i) {
            if (variants[i] == variant) group.push_back(directories[i]), at.push_back(i);
        }
        const std::vector<ExportRun> done =
            ExportAll(HMI_TOOL, "ppd", "ppd", group, {"--quality-variant", kVariantWords[variant]});
        for (size_t k = 0; k < at.size(); ++k) runs[at[k]] = done[k];
    }
    std::vector<std::string> ppds;
    for (size_t i = 0; i < count; ++i) {
        if (runs[i].status == 0) ppds.push_back(directories[i] + ".ppd");
    }
    auto tested = StartCupsTestPpd(ppds, false);
    std::vector<Outcome> outcomes(count);
    ForEachOnTwoThreads(count, [&](size_t i) { outcomes[i] = CompareGenerated(directories[i], variants[i], runs[i]); });

    size_t checked = 0, failed = 0, unexportable = 0;
    std::set<std::string> reasons;
    for (size_t i = 0; i < count; ++i) {
        checked += outcomes[i].checked;
        unexportable += outcomes[i].unexportable;
        reasons.insert(outcomes[i].reasons.begin(), outcomes[i].reasons.end());
        for (const std::string& failure : outcomes[i].failures) ADD_FAILURE() << directories[i] << ": " << failure;
        failed += !outcomes[i].failures.empty();
    }
    for (const auto& failure : tested.get()) {
        ADD_FAILURE() << "cupstestppd " << failure.first << ":\n" << failure.second.substr(0, 2000);
        ++failed;
    }
    if (failed) scratch.Keep();
    if (count >= 200) {
        for (const std::string& feature : ExpectedFeatures()) EXPECT_EQ(features.count(feature), 1u) << feature;
        EXPECT_EQ(reasons, (std::set<std::string>{"exported", "invalid", "invisible", "rejected", "no combination",
                                                  "no paper size"}));
    }
    EXPECT_LT(unexportable, count / 10) << "too few generated printers have a medium to export";
    std::printf("%u generated printers (%zu with no medium to export): %zu PPD markings compared\n", count,
                unexportable, checked);
    ::testing::Test::RecordProperty("markings", static_cast<int>(checked));
}

}  // namespace
}  // namespace exporttest
