// The media queries on the sample printer: the first request of a medium against a bare libxml2 parse
// of the same document bytes, the typical caller's chain on a cached medium, and every medium of the
// printer on a fresh handle. Linux only (the bare parse is libxml2's).
#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace {

using Clock = std::chrono::steady_clock;
using WString = std::basic_string<WCHAR>;

HANDLE SamplePrinter() {
    static HANDLE printer = [] {
        HANDLE handle = nullptr;
        const std::string path = HMI_SAMPLES_DIR "/sample-printer.reg";
        const WString wide(path.begin(), path.end());
        if (!OpenPrinterW(const_cast<WCHAR*>(wide.c_str()), &handle, nullptr)) std::abort();
        return handle;
    }();
    return printer;
}

HMIAccess* OpenSample() {
    HMIAccess* access = HMIOpen(SamplePrinter());
    if (!access) std::abort();
    return access;
}

std::vector<WString> SampleMediaIds() {
    HMIAccess* access = OpenSample();
    size_t required = 0;
    HMIGetAvailableMedia(access, nullptr, 0, &required);
    std::vector<unsigned char> block(required);
    auto* media = reinterpret_cast<_tagHMIAvailableMedia*>(block.data());
    if (!HMIGetAvailableMedia(access, media, block.size(), &required)) std::abort();
    std::vector<WString> ids(media->ids, media->ids + media->count);
    HMIClose(access);
    return ids;
}

// The medium's stored document: its chunks back to back, as UTF-16LE bytes.
std::string StoredDocument(const WCHAR* mediaId) {
    HMIAccess* access = OpenSample();
    _tagHMIMediaInfoHeader header;
    if (!HMIGetMediaInfoHeader(access, mediaId, &header)) std::abort();
    HMIClose(access);
    char key[64];
    std::snprintf(key, sizeof key, "PrinterDriverData\\Media\\%08X\\HMI", static_cast<unsigned>(header.media_number));
    const WString wideKey(key, key + std::char_traits<char>::length(key));
    DWORD type = 0, count = 0, needed = 0;
    GetPrinterDataExW(SamplePrinter(), wideKey.c_str(), HMI_W(""), &type, reinterpret_cast<BYTE*>(&count), 4, &needed);
    std::string bytes;
    for (DWORD i = 0; i < count; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "%03u", static_cast<unsigned>(i));
        const WString wideName(name, name + 3);
        std::string chunk(8192, '\0');
        if (GetPrinterDataExW(SamplePrinter(), wideKey.c_str(), wideName.c_str(), &type,
                              reinterpret_cast<BYTE*>(chunk.data()), static_cast<DWORD>(chunk.size()), &needed)) {
            std::abort();
        }
        bytes.append(chunk.data(), needed);
    }
    return bytes;
}

void BareParse(const std::string& utf16) {
    xmlDocPtr doc = xmlReadMemory(utf16.data(), static_cast<int>(utf16.size()), nullptr, "UTF-16LE", XML_PARSE_NONET);
    if (!doc) std::abort();
    xmlFreeDoc(doc);
}

double Micro(Clock::duration d) { return std::chrono::duration<double, std::micro>(d).count(); }

// (a) HMIFilterMedia on a fresh handle (chunks read, joined, parsed, tree built), then as many bare
// parses; opening and closing the handle are not timed. Each runs in a loop of its own, so that
// neither finds the heap as the other left it.
void BM_FirstFilterMediaOverBareParse(benchmark::State& state, const char* id) {
    const WString mediaId(id, id + std::char_traits<char>::length(id));
    const std::string document = StoredDocument(mediaId.c_str());
    Clock::duration library{}, bare{};
    for (auto _ : state) {
        HMIAccess* access = OpenSample();
        const auto start = Clock::now();
        if (!HMIFilterMedia(access, mediaId.c_str())) std::abort();
        library += Clock::now() - start;
        HMIClose(access);
    }
    const auto start = Clock::now();
    for (benchmark::IterationCount i = 0; i < state.iterations(); ++i) BareParse(document);
    bare = Clock::now() - start;
    state.counters["document_bytes"] = static_cast<double>(document.size());
    state.counters["filter_media_us"] = benchmark::Counter(Micro(library), benchmark::Counter::kAvgIterations);
    state.counters["bare_parse_us"] = benchmark::Counter(Micro(bare), benchmark::Counter::kAvgIterations);
    state.counters["ratio"] = Micro(library) / Micro(bare);
}
BENCHMARK_CAPTURE(BM_FirstFilterMediaOverBareParse, PhotoGlossyPro, "PhotoGlossyPro")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_FirstFilterMediaOverBareParse, PlainPaper, "PlainPaper")->Unit(benchmark::kMicrosecond);

// (b) The typical caller's eleven calls on a cached medium, each choice the level's default.
void BM_CachedChain(benchmark::State& state) {
    HMIAccess* access = OpenSample();
    const WCHAR* id = HMI_W("PhotoGlossyPro");
    if (!HMIFilterMedia(access, id)) std::abort();
    _tagHMIMediaInfo info;
    _tagHMIAvailableColorMode modes;
    _tagHMIAvailableBorderless borderless;
    _tagHMIAvailablePrintPurpose purposes;
    _tagHMIPrintPurposeInfo purpose;
    _tagHMIAvailablePrintQuality qualities;
    _tagHMIPrintQualityInfo quality;
    for (auto _ : state) {
        HMIXMLMediaDetail* detail = HMIFilterMedia(access, id);
        HMIGetMediaInfo(access, detail, &info);
        HMIGetAvailableColorMode(access, detail, &modes);
        HMIXMLMediaColorMode* mode = HMIFilterColorMode(access, detail, modes.defaultValue);
        HMIGetAvailableBorderless(access, mode, &borderless);
        HMIXMLMediaBorderlessMode* edge = HMIFilterBorderless(access, mode, borderless.defaultValue);
        HMIGetAvailablePrintPurpose(access, edge, &purposes);
        HMIXMLMediaPrintPurpose* node = HMIFilterPrintPurpose(access, edge, purposes.defaultValue);
        HMIGetPrintPurposeInfo(access, node, &purpose);
        HMIGetAvailablePrintQuality(access, node, 0, &qualities);
        if (!HMIGetPrintQualityInfo(access, node, 0, qualities.defaultValue, &quality)) std::abort();
        benchmark::DoNotOptimize(quality);
    }
    HMIClose(access);
}
BENCHMARK(BM_CachedChain)->Unit(benchmark::kNanosecond);

// (b') The bytes the chain hands out, copied with memcpy: the floor the chain is measured against.
void BM_CopyChainRecords(benchmark::State& state) {
    constexpr size_t kBytes = sizeof(_tagHMIMediaInfo) + sizeof(_tagHMIAvailableColorMode) +
                              sizeof(_tagHMIAvailableBorderless) + sizeof(_tagHMIAvailablePrintPurpose) +
                              sizeof(_tagHMIPrintPurposeInfo) + sizeof(_tagHMIAvailablePrintQuality) +
                              sizeof(_tagHMIPrintQualityInfo);
    std::vector<unsigned char> from(kBytes, 0x5A), to(kBytes);
    for (auto _ : state) {
        benchmark::DoNotOptimize(from.data());
        std::memcpy(to.data(), from.data(), kBytes);
        benchmark::ClobberMemory();
    }
    state.counters["bytes"] = static_cast<double>(kBytes);
}
BENCHMARK(BM_CopyChainRecords)->Unit(benchmark::kNanosecond);

// (c) Every medium of the sample printer on a fresh handle, rejected ones included.
void BM_FilterAllSampleMedia(benchmark::State& state) {
    const std::vector<WString> ids = SampleMediaIds();
    long loaded = 0;
    for (auto _ : state) {
        HMIAccess* access = OpenSample();
        loaded = 0;
        for (const WString& id : ids) loaded += HMIFilterMedia(access, id.c_str()) != nullptr;
        HMIClose(access);
    }
    state.counters["media"] = static_cast<double>(ids.size());
    state.counters["loaded"] = static_cast<double>(loaded);
}
BENCHMARK(BM_FilterAllSampleMedia)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
