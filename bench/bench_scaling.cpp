// Whether costs grow linearly: the first query of a medium whose document is 10 KB to 5 MB (time per
// document byte, beside a bare libxml2 parse of the same bytes) and opening a database of 10 to 10,000 media (time per medium); and whether freeing
// a large tree slows the allocation that follows it.
#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "support/media_database.h"
#include "support/printer_fixture.h"

namespace {

using hmitest::TestPrinter;
using hmitest::WString;
using Clock = std::chrono::steady_clock;

// One print purpose of twenty print qualities, every level with its value elements: about 6 KB.
std::string PurposeBlock(int seed) {
    std::string xml = "<print_purpose type=\"photo\"><operationflag>100</operationflag>"
                      "<availableduplexprint default=\"OFF\">OFF,auto</availableduplexprint>"
                      "<availableprintquality_rgb default=\"3\">1,2,3,4,5</availableprintquality_rgb>";
    for (const char* variant : {"printquality_rgb", "printquality_cmyk_4DLUT", "printquality_cmyk_1DLUT", "printquality_index"}) {
        for (int level = 1; level <= 5; ++level) {
            xml += std::string("<") + variant + " type=\"" + std::to_string(level) + "\" threeposition=\"normal\">" +
                   "<operationflag>" + std::to_string(1000 + seed) + "</operationflag><output_icc>XR9_" +
                   std::to_string(seed) + "_" + std::to_string(level) + ".icc</output_icc><bit>8</bit>" +
                   "<app_filter_id>F" + std::to_string(seed % 100000) + "</app_filter_id>" +
                   "<availableresolution default=\"600\">300,600,1200</availableresolution></" + variant + ">";
        }
    }
    return xml + "</print_purpose>";
}

// A medium of about bytes of UTF-16: its print purposes repeated under one borderless mode.
WString DocumentOf(size_t bytes) {
    std::string xml = "<medium><format_version>1.00</format_version>"
                      "<availableprintcolormode default=\"color\">color</availableprintcolormode>"
                      "<printcolormode type=\"color\"><availableborderlessprint default=\"OFF\">OFF</availableborderlessprint>"
                      "<borderlessprint type=\"OFF\">";
    for (int seed = 0; 2 * xml.size() < bytes; ++seed) xml += PurposeBlock(seed);
    xml += "</borderlessprint></printcolormode></medium>";
    return WString(xml.begin(), xml.end());
}

void FirstQueryPerDocumentByte(benchmark::State& state) {
    TestPrinter printer;
    const WString document = DocumentOf(static_cast<size_t>(state.range(0)));
    if (!hmitest::WriteDatabase(printer, {{"00000001", "Big"}}) ||
        !hmitest::WriteMediaDocument(printer, 1, document, 2048) || !printer.Reopen()) {
        state.SkipWithError("the printer cannot be written");
        return;
    }
    Clock::duration spent{};
    for (auto _ : state) {
        HMIAccess* access = HMIOpen(printer.handle());
        const auto start = Clock::now();
        if (!HMIFilterMedia(access, HMI_W("Big"))) std::abort();
        spent += Clock::now() - start;
        HMIClose(access);
    }
    const double bytes = static_cast<double>(document.size() * sizeof(WCHAR));
    state.counters["document_bytes"] = bytes;
    state.counters["ns_per_byte"] =
        std::chrono::duration<double, std::nano>(spent).count() / static_cast<double>(state.iterations()) / bytes;
}
// The floor under it: libxml2 parsing the same UTF-16 bytes, per byte.
void BareParsePerDocumentByte(benchmark::State& state) {
    const WString document = DocumentOf(static_cast<size_t>(state.range(0)));
    const int bytes = static_cast<int>(document.size() * sizeof(WCHAR));
    for (auto _ : state) {
        xmlDocPtr doc = xmlReadMemory(reinterpret_cast<const char*>(document.data()), bytes, nullptr, "UTF-16LE",
                                      XML_PARSE_NONET);
        if (!doc) std::abort();
        xmlFreeDoc(doc);
    }
    state.counters["document_bytes"] = bytes;
}
BENCHMARK(BareParsePerDocumentByte)->Arg(10 << 10)->Arg(100 << 10)->Arg(1 << 20)->Arg(5 << 20)->Unit(benchmark::kMillisecond);

BENCHMARK(FirstQueryPerDocumentByte)->Arg(10 << 10)->Arg(100 << 10)->Arg(1 << 20)->Arg(5 << 20)->Unit(benchmark::kMillisecond);

void OpenPerMedium(benchmark::State& state) {
    TestPrinter printer;
    std::vector<hmitest::MediumEntry> media;
    for (long i = 0; i < state.range(0); ++i) {
        char number[24];
        std::snprintf(number, sizeof number, "%08lX", i + 1);
        media.push_back({number, "Medium" + std::to_string(i)});
    }
    if (!hmitest::WriteDatabase(printer, media) || !printer.Reopen()) {
        state.SkipWithError("the printer cannot be written");
        return;
    }
    for (auto _ : state) {
        HMIAccess* access = HMIOpen(printer.handle());
        if (!access) std::abort();
        HMIClose(access);
    }
    state.counters["media"] = static_cast<double>(state.range(0));
    state.counters["ns_per_medium"] = benchmark::Counter(static_cast<double>(state.range(0)),
                                                         benchmark::Counter::kIsIterationInvariantRate |
                                                             benchmark::Counter::kInvert);
}
BENCHMARK(OpenPerMedium)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// A 64 KB block (a request large enough to make the allocator sort out what was freed before it)
// allocated right after the handle that loaded a 1 MB medium was closed, freeing its tree (range 1), or
// while that handle is still open (range 0). Both follow the same load, so the caches are as cold in
// either; only the freed tree differs. The allocation alone is timed.
void AllocationAfterFreeingATree(benchmark::State& state) {
    TestPrinter printer;
    if (!hmitest::WriteDatabase(printer, {{"00000001", "Big"}}) ||
        !hmitest::WriteMediaDocument(printer, 1, DocumentOf(1 << 20), 2048) || !printer.Reopen()) {
        state.SkipWithError("the printer cannot be written");
        return;
    }
    for (auto _ : state) {
        HMIAccess* access = HMIOpen(printer.handle());
        if (!HMIFilterMedia(access, HMI_W("Big"))) std::abort();
        if (state.range(0)) HMIClose(access);
        const auto start = Clock::now();
        std::unique_ptr<char[]> block(new char[64 << 10]);
        benchmark::DoNotOptimize(block.get());
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        block.reset();
        if (!state.range(0)) HMIClose(access);
    }
}
BENCHMARK(AllocationAfterFreeingATree)->Arg(0)->Arg(1)->Iterations(300)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
