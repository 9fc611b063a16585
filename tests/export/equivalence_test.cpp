// Both exports against the library: every combination of medium, colour mode, page size (both variants),
// purpose and quality is forbidden by the PPD (marked with libcups) and by the IPP attributes' job
// constraints exactly when the library does not offer it; so are the input slot, cartridge and duplex
// beside each offered path. The defaults are the library's. Over the sample printer in every quality
// variant and over generated printers.
#include <cups/cups.h>
#include <cups/ppd.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <thread>

#include "export/export_oracle.h"
#include "export/random_printer.h"
#include "ipp_writer.h"
#include "paper_sizes.h"
#include "ppd_writer.h"

namespace exporttest {
namespace {

using mediaexport::PaperSizeOf;
using Values = std::map<std::string, std::string>;  // an export's names of a choice's values

const char* const kVariants[] = {"rgb", "cmyk4d", "cmyk1d", "index"};
const char* const kPurposeWords[] = {"photo", "proof", "cad"};
const char* const kCartridgeWords[] = {"color", "bk", "photo", "bkcolor", "photocolor", "auto"};  // of kCartridges
const char* const kPpdSlots[] = {"AUTO", "MANUAL03", "asf", "manual", "DISCTRAY"};              // of kInputSlots
const char* const kIppSources[] = {"auto", "rear", "main", "manual", "disc"};
const char* const kPpdSides[] = {"None", "DuplexNoTumble", "DuplexTumble"};
const char* const kIppSides[] = {"one-sided", "two-sided-long-edge", "two-sided-short-edge"};
const std::string kSample = std::string(HMI_SAMPLES_DIR) + "/sample-printer";

template <size_t N>
size_t IndexOf(const int (&values)[N], int value) {
    return static_cast<size_t>(std::find(values, values + N, value) - values);
}

uint32_t NamedSizes() {
    uint32_t named = 0;
    for (int s = 0; s < kPaperSizes; ++s) named |= PaperSizeOf(s) ? 1u << s : 0u;
    return named;
}

// Printer attributes in the ipptool ATTR syntax (what `ippeveprinter -a` reads).
struct IppAttribute;
struct IppValue {
    std::string text;  // an enum's as its number
    std::vector<IppAttribute> members;  // a collection's
};
struct IppAttribute {
    std::string tag, name;  // tag: "keyword", "integer", "collection", ...
    std::vector<IppValue> values;
};

// Words, quoted strings (with backslash escapes) and the characters '{', '}' and ','; '#' starts a comment
// that runs to the end of the line.
std::vector<std::string> Tokens(const std::string& text) {
    std::vector<std::string> tokens;
    const auto ends = [](char c) { return std::strchr(" \t\r\n{},", c) != nullptr; };
    for (size_t at = 0; at < text.size();) {
        if (text[at] == '#') {
            at = std::min(text.size(), text.find('\n', at));
        } else if (std::strchr(" \t\r\n", text[at])) {
            ++at;
        } else if (ends(text[at])) {
            tokens.emplace_back(1, text[at++]);
        } else {
            tokens.emplace_back();
            for (char quote = 0; at < text.size() && (quote || !ends(text[at])); ++at) {
                if (text[at] == '\\' && at + 1 < text.size()) {
                    tokens.back() += text[++at];
                } else if (quote ? text[at] == quote : text[at] == '"' || text[at] == '\'') {
                    quote = quote ? 0 : text[at];
                } else {
                    tokens.back() += text[at];
                }
            }
        }
    }
    return tokens;
}

// Reads ATTR statements: TAG NAME VALUE[,VALUE...], a collection's value { MEMBER TAG NAME VALUE... }.
struct IppParser {
    std::vector<std::string> tokens;
    size_t at = 0;

    bool Is(const char* token) const { return at < tokens.size() && tokens[at] == token; }

    bool Attribute(IppAttribute* attribute) {
        if (at + 3 > tokens.size()) return false;
        attribute->tag = tokens[at++];
        attribute->name = tokens[at++];
        do {
            attribute->values.emplace_back();
            IppValue& value = attribute->values.back();
            if (attribute->tag != "collection") {
                if (Is("{") || Is("}") || Is(",") || at >= tokens.size()) return false;
                value.text = tokens[at++];
                continue;
            }
            if (!Is("{")) return false;
            for (++at; Is("MEMBER");) {
                value.members.emplace_back();
                if (++at, !Attribute(&value.members.back())) return false;
            }
            if (!Is("}")) return false;
            ++at;
        } while (Is(",") && ++at);
        return true;
    }
};

std::vector<std::string> IppTexts(const std::vector<IppAttribute>& attributes, const std::string& name) {
    std::vector<std::string> texts;
    for (const IppAttribute& attribute : attributes) {
        for (const IppValue& value : attribute.name == name ? attribute.values : std::vector<IppValue>()) texts.push_back(value.text);
    }
    return texts;
}

// A job's values by member name, collections flattened: the names of their members are distinct.
using IppJob = std::map<std::string, std::string>;

// The rule by which job-constraints-supported forbids a job: a constraint applies when each of its members
// other than resolver-name matches the job; a member with several values matches when the job's value is one
// of them, a collection member when each of its own members matches.
bool IppApplies(const IppValue& constraint, const IppJob& job) {
    return std::all_of(constraint.members.begin(), constraint.members.end(), [&](const IppAttribute& member) {
        const auto have = job.find(member.name);
        return member.name == "resolver-name" || std::any_of(member.values.begin(), member.values.end(), [&](const IppValue& value) {
                   return member.tag == "collection" ? IppApplies(value, job) : have != job.end() && value.text == have->second;
               });
    });
}

// One export of a printer that has media to export, compared with the library.
class Form {
public:
    explicit Form(const Printer& printer) : printer_(printer), media_(printer.Exported()) {}
    virtual ~Form() = default;

    void Run() {
        for (size_t i = 0; ready_ && i < media_.size(); ++i) {
            Select(i);
            Combinations(*media_[i], keywords_[i]);
        }
        for (const auto& value : ready_ ? ValuesOf(keywords_[0], DefaultsOf(printer_)) : Values()) {
            if (Default(value.first) != value.second) Add("default " + value.first + " " + Default(value.first) + ", not " + value.second);
        }
        if (ready_) Whole();
        // What an export lists as supported is what the offered choices have.
        for (const auto& values : offered_) {
            if (supported_[values.first] != values.second) Add(values.first + "-supported is not what is offered");
        }
    }

    std::vector<std::string> findings;  // the first few
    size_t compared = 0;

protected:
    virtual Values ValuesOf(const std::string& keyword, const Choice& x) const = 0;
    virtual void Select(size_t medium) = 0;  // of the values that follow
    virtual bool Forbids(const Values& values) = 0;
    virtual std::string Default(const std::string& name) = 0;
    virtual void Whole() = 0;  // what the form checks beside
    // The export's value of a quality level: levels that share one are compared together.
    virtual int Quality(int level) const { return level; }
    void Add(const std::string& line) {
        if (findings.size() < 12) findings.push_back(line);
    }

    const Printer& printer_;
    const std::vector<const Medium*> media_;
    std::vector<std::string> keywords_;  // the export's name of each medium
    // The values an export lists as supported, by name, and those of the offered choices compared.
    std::map<std::string, std::set<std::string>> supported_, offered_;
    bool ready_ = false;

private:
    void Check(const std::string& keyword, const Choice& x, bool offered) {
        const Values values = ValuesOf(keyword, x);
        ++compared;
        for (const auto& value : offered ? values : Values()) {
            if (supported_.count(value.first)) offered_[value.first].insert(value.second);
        }
        if (Forbids(values) != offered) return;
        std::string line;
        for (const auto& value : values) line += value.first + "=" + value.second + " ";
        Add(line + (offered ? "is offered, but forbidden" : "is not offered, but allowed"));
    }

    void Combinations(const Medium& m, const std::string& keyword) {
        bool slotsDone = false;
        for (int path = 0; path < kColors * kBorderless * kPurposes; ++path) {
            const int c = path / 6, b = path / 3 % 2, p = path % 3;
            const bool offered = m.Offered(c, b, p);
            const List& cartridges = m.purpose[c][b][p].cartridges;
            // Beside the path, values it allows.
            Choice x = {c, b, p, 0, 0, m.slots.values.empty() ? HMI_INPUTBIN_AUTO : m.slots.values[0],
                        offered && !cartridges.values.empty() ? cartridges.values[0] : HMI_CARTRIDGE_AUTO,
                        offered && !m.SidesAllowed(c, b, p, kOneSided) ? kLongEdge : kOneSided};
            for (x.quality = 0; x.quality < kQualities; ++x.quality) {
                if (x.quality > 0 && Quality(x.quality - 1) == Quality(x.quality)) continue;
                bool level = false;
                for (int q = 0; q < kQualities; ++q) level |= Quality(q) == Quality(x.quality) && m.Offered(c, b, p, q);
                for (x.size = 0; x.size < kPaperSizes; ++x.size) {
                    if (PaperSizeOf(x.size)) Check(keyword, x, level && m.Supports(x.size));
                }
            }
            if (!offered) continue;
            // Each slot with the first offered path; each cartridge and duplex choice below every offered path.
            x.quality = m.purpose[c][b][p].qualities.values[0];
            for (x.size = 0; !m.Supports(x.size);) ++x.size;
            const auto with = [&x](int Choice::*field, int value) {
                Choice y = x;
                y.*field = value;
                return y;
            };
            for (const int slot : kInputSlots) {
                if (!slotsDone) Check(keyword, with(&Choice::slot, slot), m.slots.Allows(slot));
            }
            slotsDone = true;
            for (const int cartridge : kCartridges) Check(keyword, with(&Choice::cartridge, cartridge), cartridges.Allows(cartridge));
            for (const Sides sides : {kOneSided, kLongEdge, kShortEdge}) {
                Check(keyword, with(&Choice::sides, sides), m.SidesAllowed(c, b, p, sides));
            }
        }
    }
};

std::string PpdSize(int size, int borderless) {
    const mediaexport::PaperSize& paper = *PaperSizeOf(size);
    return borderless == HMI_ON ? mediaexport::FullbleedName(paper) : std::string(paper.ppd);
}

// The PPD opened with libcups. A choice it lacks counts as a conflict: marking it would keep the last.
class PpdForm : public Form {
public:
    PpdForm(const std::string& path, const Printer& printer) : Form(printer), path_(path) {
        if (!(full_ = Open(path))) return;
        for (const Medium* m : media_) keywords_.push_back(mediaexport::PpdMediaKeyword(m->id));
        // MediaType has a choice per exported medium, in database order; no option has a choice twice.
        std::vector<std::string> media;
        for (ppd_option_t* option = ppdFirstOption(full_); option; option = ppdNextOption(full_)) {
            for (int i = 0; i < option->num_choices; ++i) {
                const std::string name = option->keyword, choice = option->choices[i].choice;
                if (name == "MediaType") media.push_back(choice);
                if (!present_.insert(name + "=" + choice).second) Add(name + ": repeated choice " + choice);
            }
        }
        if (media != keywords_) Add("MediaType choices are not the " + std::to_string(media_.size()) + " exported media");
        ready_ = true;
    }
    ~PpdForm() override {
        if (ppd_) ppdClose(ppd_);
        if (full_) ppdClose(full_);
    }

protected:
    Values ValuesOf(const std::string& keyword, const Choice& x) const override {
        Values values = {{"MediaType", keyword}, {"ColorModel", x.color ? "Gray" : "RGB"},
                         {"PageSize", PpdSize(x.size, x.borderless)}, {"PrintPurpose", kPurposeWords[x.purpose]},
                         {"PrintQualityLevel", std::to_string(x.quality + 1)}};
        if (x.slot >= 0) values["InputSlot"] = kPpdSlots[IndexOf(kInputSlots, x.slot)];
        if (x.cartridge >= 0) values["Cartridge"] = kCartridgeWords[IndexOf(kCartridges, x.cartridge)];
        if (x.sides >= 0) values["Duplex"] = kPpdSides[x.sides];
        return values;
    }

    // Constraints that name another medium never apply with this one chosen: without them libcups tests a
    // few hundred constraints per marking instead of thousands.
    void Select(size_t i) override {
        std::ifstream in(path_, std::ios::binary);
        std::ofstream out(path_ + ".medium", std::ios::binary);
        for (std::string line; std::getline(in, line);) {
            const size_t at = line.rfind("*cupsUIConstraints ", 0) == 0 ? line.find("*MediaType ") + 11 : std::string::npos;
            if (at == std::string::npos || line.substr(at, line.find_first_of(" \"", at) - at) == keywords_[i]) out << line << '\n';
        }
        out.close();
        if (ppd_) ppdClose(ppd_);
        ppd_ = Open(path_ + ".medium");
        marked_.clear();
    }

    // libcups keeps what is marked: only the values that changed are marked again.
    bool Forbids(const Values& values) override {
        std::vector<cups_option_t> options;
        for (const auto& value : values) {
            if (!ppd_ || !present_.count(value.first + "=" + value.second)) return true;
            if (marked_[value.first] == value.second) continue;
            marked_[value.first] = value.second;
            options.push_back({const_cast<char*>(value.first.c_str()), const_cast<char*>(value.second.c_str())});
        }
        return cupsMarkOptions(ppd_, static_cast<int>(options.size()), options.data()) > 0;
    }

    std::string Default(const std::string& name) override {
        ppdMarkDefaults(full_);
        return Marked(name);
    }

    void Whole() override {
        ppdMarkDefaults(full_);
        if (ppdConflicts(full_) != 0) Add("the defaults conflict");
        // From the defaults, choosing a medium and letting libcups resolve leaves no conflict.
        for (const std::string& medium : keywords_) {
            ppdMarkDefaults(full_);
            int count = 0;
            cups_option_t* options = nullptr;
            const int resolved = cupsResolveConflicts(full_, "MediaType", medium.c_str(), &count, &options);
            const int left = cupsMarkOptions(full_, count, options);
            cupsFreeOptions(count, options);
            ++compared;
            if (!resolved || left != 0 || Marked("MediaType") != medium) Add("choosing " + medium + " does not resolve");
        }
    }

private:
    ppd_file_t* Open(const std::string& path) {
        ppd_file_t* ppd = ppdOpenFile(path.c_str());
        int line = 0;
        if (!ppd) Add(std::string("ppdOpen: ") + ppdErrorString(ppdLastError(&line)) + " at line " + std::to_string(line));
        return ppd;
    }

    std::string Marked(const std::string& option) const {
        const ppd_choice_t* choice = ppdFindMarkedChoice(full_, option.c_str());
        return choice ? choice->choice : "(none)";
    }

    std::string path_;
    std::set<std::string> present_;  // "Option=Choice"
    Values marked_;
    ppd_file_t* full_ = nullptr;
    ppd_file_t* ppd_ = nullptr;  // without other media's constraints
};

// Sets an attribute's values in job; a collection sets its members.
void Set(const IppAttribute& attribute, const std::string& name, IppJob* job) {
    if (attribute.tag != "collection") (*job)[name] = attribute.values[0].text;
    for (const IppAttribute& member : attribute.values[0].members) Set(member, member.name, job);
}

std::string ResolverName(const IppValue& collection) {
    const std::vector<std::string> names = IppTexts(collection.members, "resolver-name");
    return names.empty() ? "" : names[0];
}

// The attributes file, its job constraints applied to jobs.
class IppForm : public Form {
public:
    IppForm(const std::string& path, const Printer& printer) : Form(printer) {
        std::stringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        std::vector<IppAttribute> attributes;
        IppParser parser{Tokens(text.str())};
        for (ready_ = true; ready_ && parser.at < parser.tokens.size();) {
            attributes.emplace_back();
            ready_ = parser.Is("ATTR") && (++parser.at, parser.Attribute(&attributes.back()));
        }
        if (!ready_) Add("not read: stopped at token " + std::to_string(parser.at));
        mediaexport::PrinterModel model;
        for (const Medium* m : media_) model.media.emplace_back().id = m->id;
        keywords_ = mediaexport::IppMediaTypes(model);
        offered_["sides"].insert("one-sided");  // an IPP printer supports one-sided printing
        if (IppTexts(attributes, "media-type-supported") != keywords_) Add("media-type-supported is not the exported media");
        std::set<std::string> names;
        for (const IppAttribute& attribute : attributes) {
            // ippeveprinter reads each attribute once, and adds these itself (a second copy fails it).
            static const std::set<std::string> own = {"media-col-supported", "document-format-supported", "job-creation-attributes-supported"};
            if (!names.insert(attribute.name).second || own.count(attribute.name)) Add(attribute.name + " is there twice");
            const size_t dash = attribute.name.rfind('-');
            const std::string name = attribute.name.substr(0, dash), kind = attribute.name.substr(dash + 1);
            if (kind == "default") Set(attribute, name, &defaults_);
            for (const IppValue& value : kind == "supported" ? attribute.values : std::vector<IppValue>()) supported_[name].insert(value.text);
            if (attribute.name == "job-constraints-supported") constraints_ = attribute.values;
            for (const IppValue& value : attribute.name == "job-resolvers-supported" ? attribute.values : std::vector<IppValue>()) {
                resolvers_[ResolverName(value)] = value;
            }
        }
    }

protected:
    Values ValuesOf(const std::string& type, const Choice& x) const override {
        const mediaexport::Dimensions d = mediaexport::DimensionsOf(*PaperSizeOf(x.size));
        const std::string margin = x.borderless == HMI_ON ? "0" : "300";
        Values values = {{"media", PaperSizeOf(x.size)->pwg}, {"media-type", type}, {"x-dimension", std::to_string(mediaexport::HundredthsOfMm(d.width))},
                         {"y-dimension", std::to_string(mediaexport::HundredthsOfMm(d.length))},
                         {"media-top-margin", margin}, {"media-bottom-margin", margin}, {"media-left-margin", margin},
                         {"media-right-margin", margin}, {"print-color-mode", x.color ? "monochrome" : "color"},
                         {"xrvhmi-print-purpose", kPurposeWords[x.purpose]}, {"print-quality", std::to_string(Quality(x.quality))}};
        if (x.slot >= 0) values["media-source"] = kIppSources[IndexOf(kInputSlots, x.slot)];
        if (x.cartridge >= 0) values["xrvhmi-cartridge"] = kCartridgeWords[IndexOf(kCartridges, x.cartridge)];
        if (x.sides >= 0) values["sides"] = kIppSides[x.sides];
        return values;
    }

    // Constraints that ask for another media-type never apply to this one's jobs.
    void Select(size_t i) override {
        own_.clear();
        for (const IppValue& constraint : constraints_) {
            bool other = false;
            for (const IppAttribute& member : constraint.members) {
                for (const IppAttribute& type : member.values[0].members) {
                    other |= member.values.size() == 1 && type.name == "media-type" &&
                             !IppApplies({"", {type}}, {{"media-type", keywords_[i]}});
                }
            }
            if (!other) own_.push_back(constraint);
        }
    }

    int Quality(int level) const override { return level <= HMI_PRINTQUALITY_2 ? 5 : level == HMI_PRINTQUALITY_3 ? 4 : 3; }
    std::string Default(const std::string& name) override { return defaults_.count(name) ? defaults_[name] : "(none)"; }

    // A job is forbidden by the first constraint that applies; setting its resolver's values ends that.
    bool Forbids(const Values& job) override {
        const auto constraint = std::find_if(own_.begin(), own_.end(), [&](const IppValue& c) { return IppApplies(c, job); });
        if (constraint == own_.end()) return false;
        const auto resolver = resolvers_.find(ResolverName(*constraint));
        IppJob resolved = job;
        if (resolver != resolvers_.end()) Set({"collection", "", {resolver->second}}, "", &resolved);
        if (IppApplies(*constraint, resolved)) Add("resolver \"" + ResolverName(*constraint) + "\" does not resolve its constraint");
        return true;
    }

    void Whole() override {
        for (const IppValue& constraint : constraints_) {
            if (IppApplies(constraint, defaults_)) Add("the default job is forbidden by " + ResolverName(constraint));
            if (!resolvers_.count(ResolverName(constraint))) Add("no resolver " + ResolverName(constraint));
        }
    }

private:
    std::vector<IppValue> constraints_, own_;
    std::map<std::string, IppValue> resolvers_;
    IppJob defaults_;
};

struct Run {
    int status = -1;
    std::string output;  // standard output and error
};

Run RunCommand(const std::string& command) {
    Run run;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    char buffer[4096];
    for (size_t n; pipe && (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) run.output.append(buffer, n);
    const int status = pipe ? ::pclose(pipe) : -1;
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

std::string Quoted(const std::string& word) {
    std::string out = "'";
    for (const char c : word) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

Run Export(const std::string& form, const std::string& directory, const std::string& file, size_t variant) {
    return RunCommand(Quoted(HMI_TOOL) + " export " + form + " --from-files " + Quoted(directory) + " --quality-variant " +
                      kVariants[variant] + " -o " + Quoted(file));
}

// Runs work(i) for each i below count on two threads (the machines have two cores).
void OnTwoThreads(size_t count, const std::function<void(size_t)>& work) {
    std::thread other([&] { for (size_t i = 1; i < count; i += 2) work(i); });
    for (size_t i = 0; i < count; i += 2) work(i);
    other.join();
}

// A fresh directory, removed with its contents unless the test failed.
struct Scratch {
    explicit Scratch(const std::string& name) : path("/tmp/hmi-export-" + name + "-" + std::to_string(::getpid())) {
        std::filesystem::remove_all(path);
        std::filesystem::create_directories(path);
    }
    ~Scratch() {
        std::error_code ignored;
        if (!::testing::Test::HasFailure()) std::filesystem::remove_all(path, ignored);
    }
    const std::string path;
};

struct Outcome {
    std::set<std::string> reasons;  // why media are left out ("exported" for those kept)
    size_t markings = 0, jobs = 0;
    bool unexportable = false;
};

// Exports the printer in directory to output.ppd and output.attrs and compares both with the library;
// cupstestppd passes the PPD (strict: without a warning).
Outcome ComparePrinter(const std::string& directory, const std::string& output, size_t variant, bool strict) {
    SCOPED_TRACE(output + " (" + kVariants[variant] + ")");
    Outcome outcome;
    const Run ppd = Export("ppd", directory, output + ".ppd", variant), ipp = Export("ipp", directory, output + ".attrs", variant);
    const Printer printer = ReadPrinter(directory, static_cast<DWORD>(variant), NamedSizes());
    for (const Medium& m : printer.media) {
        outcome.reasons.insert(m.leftOut.empty() ? "exported" : m.leftOut);
        // Media the library has but the exports cannot offer are named in a warning.
        const bool told = ppd.output.find('"' + m.id + '"') != std::string::npos && ipp.output.find('"' + m.id + '"') != std::string::npos;
        EXPECT_TRUE(m.leftOut.empty() || m.leftOut == "invalid" || m.leftOut == "invisible" || told)
            << m.id << " (" << m.leftOut << ") left out without a warning\n" << ppd.output << ipp.output;
    }
    // With nothing to offer the exports fail rather than write a printer without media.
    outcome.unexportable = printer.Exported().empty();
    if ((ppd.status == 0) == outcome.unexportable || (ipp.status == 0) == outcome.unexportable) {
        ADD_FAILURE() << "exit status " << ppd.status << ", " << ipp.status << "\n" << ppd.output << ipp.output;
    }
    if (outcome.unexportable || ppd.status || ipp.status) return outcome;
    const Run tested = RunCommand(std::string("cupstestppd ") + (strict ? "-v " : "") + Quoted(output + ".ppd"));
    EXPECT_TRUE(tested.status == 0 && !(strict && tested.output.find("WARN") != std::string::npos)) << tested.output.substr(0, 4000);
    PpdForm ppdForm(output + ".ppd", printer);
    IppForm ippForm(output + ".attrs", printer);
    for (Form* form : std::initializer_list<Form*>{&ppdForm, &ippForm}) {
        form->Run();
        for (const std::string& finding : form->findings) ADD_FAILURE() << finding;
    }
    outcome.markings = ppdForm.compared;
    outcome.jobs = ippForm.compared;
    return outcome;
}

void Report(const std::string& what, const std::vector<Outcome>& outcomes) {
    size_t markings = 0, jobs = 0;
    for (const Outcome& outcome : outcomes) markings += outcome.markings, jobs += outcome.jobs;
    std::printf("%s: %zu PPD markings and %zu IPP jobs compared\n", what.c_str(), markings, jobs);
}

TEST(ExportEquivalence, SamplePrinterInEveryQualityVariant) {
    Scratch scratch("sample");
    std::vector<Outcome> outcomes(4);
    OnTwoThreads(4, [&](size_t v) { outcomes[v] = ComparePrinter(kSample, scratch.path + "/" + kVariants[v], v, true); });
    Report("sample printer in the quality variants", outcomes);
}

// The comparisons catch exports that leave one medium unconstrained.
TEST(ExportEquivalence, CatchesAMediumLeftUnconstrained) {
    Scratch scratch("altered");
    Printer printer = ReadPrinter(kSample, 0, NamedSizes());
    printer.media.erase(std::remove_if(printer.media.begin(), printer.media.end(),
                                       [](const Medium& m) { return m.id != "TransparencyFilm"; }), printer.media.end());
    for (const std::string form : {"ppd", "ipp"}) {
        const std::string file = scratch.path + "/sample." + form;
        ASSERT_EQ(Export(form, kSample, file, 0).status, 0);
        ASSERT_EQ(RunCommand("sed -i '/TransparencyFilm [*]\\|transparency}/d' " + Quoted(file)).status, 0);
        std::unique_ptr<Form> compared(form == "ppd" ? static_cast<Form*>(new PpdForm(file, printer)) : new IppForm(file, printer));
        compared->Run();
        EXPECT_TRUE(std::any_of(compared->findings.begin(), compared->findings.end(), [](const std::string& finding) {
            return finding.find("is not offered, but allowed") != std::string::npos;
        })) << form;
    }
}

#ifndef __has_feature
#define __has_feature(x) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || __has_feature(address_sanitizer) || \
    __has_feature(thread_sanitizer)
constexpr uint32_t kGenerated = 40;  // the sanitizers make the tool and the checks several times slower
#else
constexpr uint32_t kGenerated = 200;
#endif

TEST(ExportEquivalence, GeneratedPrinters) {
    Scratch scratch("generated");
    std::vector<std::set<std::string>> features(kGenerated);
    std::vector<Outcome> outcomes(kGenerated);
    OnTwoThreads(kGenerated, [&](size_t i) {
        const std::string directory = scratch.path + "/p" + std::to_string(i + 1);
        features[i] = WriteRandomPrinter(static_cast<uint32_t>(i) + 1, directory);
        // Every fifth printer in one of the other quality variants.
        outcomes[i] = ComparePrinter(directory, directory, (i + 1) % 5 == 0 ? 1 + (i + 1) / 5 % 3 : 0, false);
    });
    size_t unexportable = 0;
    std::set<std::string> met, reasons;
    for (size_t i = 0; i < kGenerated; ++i) {
        unexportable += outcomes[i].unexportable;
        met.insert(features[i].begin(), features[i].end());
        reasons.insert(outcomes[i].reasons.begin(), outcomes[i].reasons.end());
    }
    if (kGenerated >= 200) {
        for (const std::string& feature : ExpectedFeatures()) EXPECT_EQ(met.count(feature), 1u) << feature;
        EXPECT_EQ(reasons, (std::set<std::string>{"exported", "invalid", "invisible", "rejected", "no combination",
                                                  "no paper size"}));
    }
    EXPECT_LT(unexportable, kGenerated / 10) << "too few generated printers have a medium to export";
    Report(std::to_string(kGenerated) + " generated printers (" + std::to_string(unexportable) + " with no medium to export)", outcomes);
}

}  // namespace
}  // namespace exporttest
