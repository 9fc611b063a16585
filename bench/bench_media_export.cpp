// The CUPS export's costs against the library's, each pair measured in one run:
// - libcups opening the sample printer's exported PPD, marking its defaults and checking its
//   constraints (what every print dialog and job does), against the library opening the sample printer
//   and answering every cascade question once;
// - exporting a printer of 1,000 media with full cascades (the sample's media, repeated) as a PPD and as
//   IPP attributes, against asking the library every question once.
#include <benchmark/benchmark.h>
#include <cups/ppd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <sstream>
#include <string>

#include "cascade_walk.h"
#include "export_reader.h"
#include "ipp_writer.h"
#include "media_source.h"
#include "ppd_writer.h"

namespace {

namespace fs = std::filesystem;

const std::string kSamples = HMI_SAMPLES_DIR;
const std::string kSampleFiles = kSamples + "/sample-printer";

class CountingVisitor final : public hmitool::CascadeVisitor {
public:
    bool Enter(const hmitool::Branch&) override {
        ++branches;
        return true;
    }
    void Leave() override {}
    size_t branches = 0;
};

// Every medium's header, names and whole cascade (every value of every list, and its default), once.
size_t AskEverything(const hmitool::MediaSource& source) {
    CountingVisitor visitor;
    for (const hmitool::WString& id : source.MediaIds()) {
        const std::string name = hmitool::Narrow(id.c_str());
        _tagHMIMediaInfoHeader header;
        source.Header(id, &header);
        benchmark::DoNotOptimize(source.AllNames(name));
        const hmitool::Detail detail = source.Filter(name);
        if (detail) hmitool::WalkCascade(source.access(), detail.get(), visitor);
    }
    return visitor.branches;
}

struct Exported {
    std::string ppd, ipp;
};

// The model built once, written in both forms.
Exported Export(const hmitool::MediaSource& source) {
    mediaexport::PrinterModel model;
    mediaexport::BuildModel(hmitool::ExportReader(source, {}), mediaexport::kRgb, &model);
    std::ostringstream ppd, ipp;
    std::vector<std::string> warnings;
    mediaexport::WritePpd(model, "en", ppd, &warnings);
    mediaexport::WriteIppAttributes(model, ipp, &warnings);
    return {ppd.str(), ipp.str()};
}

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void WriteFile(const fs::path& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

// A sources directory of count media: the sample's loadable media in turn, each under a new id.
fs::path RepeatedSample(size_t count) {
    const fs::path dir = fs::temp_directory_path() /
                         ("hmi-export-bench-" + std::to_string(std::random_device()()) + "-" + std::to_string(count));
    fs::create_directories(dir / "media");
    fs::create_directories(dir / "names");
    const std::unique_ptr<hmitool::MediaSource> sample = hmitool::OpenFileSource(kSampleFiles);
    std::vector<std::string> loadable;
    for (const hmitool::WString& id : sample->MediaIds()) {
        const std::string name = hmitool::Narrow(id.c_str());
        if (sample->Filter(name)) loadable.push_back(name);
    }
    std::string entries;
    char number[24];
    for (size_t i = 0; i < count; ++i) {
        const std::string& base = loadable[i % loadable.size()];
        const std::string id = base + "-" + std::to_string(i);
        std::snprintf(number, sizeof number, "%08zX", i + 1);
        entries += "<iv:papertype_info id=\"" + id + "\"><iv:media_number>" + number +
                   "</iv:media_number><iv:valid>ON</iv:valid><iv:visible>ON</iv:visible>"
                   "<iv:checksum>00112233445566778899aabbccddeeff</iv:checksum></iv:papertype_info>\n";
        fs::copy_file(kSampleFiles + "/media/" + base + ".xml", dir / "media" / (id + ".xml"));
        const std::string names = ReadFile(kSampleFiles + "/names/" + base + ".xml");
        WriteFile(dir / "names" / (id + ".xml"), std::regex_replace(names, std::regex(" id=\"[^\"]*\""), " id=\"" + id + "\""));
    }
    const std::string database = ReadFile(kSampleFiles + "/database.xml");
    const size_t begin = database.find("<iv:papertype_info ");
    const size_t end = database.rfind("</iv:papertype_info>") + std::strlen("</iv:papertype_info>");
    WriteFile(dir / "database.xml", database.substr(0, begin) + entries + database.substr(end));
    return dir;
}

void BM_LibraryAnswersSample(benchmark::State& state) {
    size_t branches = 0;
    for (auto _ : state) {
        const std::unique_ptr<hmitool::MediaSource> source = hmitool::OpenPrinterSource(kSamples + "/sample-printer.reg");
        branches = AskEverything(*source);
    }
    state.counters["branches"] = static_cast<double>(branches);
}
BENCHMARK(BM_LibraryAnswersSample)->Unit(benchmark::kMillisecond);

void BM_LibcupsOpensSamplePpd(benchmark::State& state) {
    const fs::path path = fs::temp_directory_path() / "hmi-export-bench-sample.ppd";
    const std::string ppd = Export(*hmitool::OpenFileSource(kSampleFiles)).ppd;
    WriteFile(path, ppd);
    int conflicts = 0;
    for (auto _ : state) {
        ppd_file_t* const file = ppdOpenFile(path.c_str());
        ppdMarkDefaults(file);
        conflicts = ppdConflicts(file);
        ppdClose(file);
    }
    if (conflicts != 0) state.SkipWithError("the exported defaults conflict");
    state.counters["ppd_bytes"] = static_cast<double>(ppd.size());
    fs::remove(path);
}
BENCHMARK(BM_LibcupsOpensSamplePpd)->Unit(benchmark::kMillisecond);

void BM_AskEveryQuestion(benchmark::State& state) {
    const fs::path dir = RepeatedSample(static_cast<size_t>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(AskEverything(*hmitool::OpenFileSource(dir.string())));
    fs::remove_all(dir);
}
BENCHMARK(BM_AskEveryQuestion)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_ExportPpdAndIpp(benchmark::State& state) {
    const fs::path dir = RepeatedSample(static_cast<size_t>(state.range(0)));
    size_t bytes = 0;
    for (auto _ : state) {
        const Exported exported = Export(*hmitool::OpenFileSource(dir.string()));
        bytes = exported.ppd.size() + exported.ipp.size();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
    fs::remove_all(dir);
}
BENCHMARK(BM_ExportPpdAndIpp)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
