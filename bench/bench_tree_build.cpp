// Building a medium's option tree from an already loaded media-information document (ParseDocument
// and delete), and the memory the finished tree keeps against the document's UTF-16 size and against
// the records its queries hand out: on synthetic documents and on every medium of the sample printer.
#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "media/media_detail.h"
#include "printerdata/media_info_document.h"
#include "printerdata/printer_data_read.h"
#include "printerdata/printer_data_values.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_media_namespace.h"
#include "xml/hmi_xml_document.h"

namespace {

// Every operator new of the program, the library's objects included, is counted here.
std::atomic<long long> liveBytes{0};
std::atomic<long long> allocations{0};
constexpr size_t kHeader = 16;  // keeps the caller's block 16-byte aligned

void* CountedAllocate(size_t size) noexcept {
    auto* block = static_cast<unsigned char*>(std::malloc(size + kHeader));
    if (!block) return nullptr;
    *reinterpret_cast<size_t*>(block) = size;
    liveBytes += static_cast<long long>(size);
    ++allocations;
    return block + kHeader;
}

// Kept out of line: inlined into operator delete, the compiler takes the header arithmetic for a mismatch.
[[gnu::noinline]] void CountedRelease(void* p) noexcept {
    if (!p) return;
    auto* block = static_cast<unsigned char*>(p) - kHeader;
    liveBytes -= static_cast<long long>(*reinterpret_cast<size_t*>(block));
    std::free(block);
}

using WString = std::basic_string<WCHAR>;

WString Widen(const std::string& ascii) { return WString(ascii.begin(), ascii.end()); }

std::string Narrow(const WCHAR* ascii) {
    std::string out;
    for (; *ascii; ++ascii) out += static_cast<char>(*ascii);
    return out;
}

std::string Quality(const char* variant, int level, int seed) {
    static const char* const kThreePosition[] = {"fine", "fine", "normal", "normal", "draft"};
    char text[640];
    std::snprintf(text, sizeof text,
                  "<%s type=\"%d\" threeposition=\"%s\">"
                  "<operationflag>0x%08X</operationflag>"
                  "<output_icc>XR9_%s_Q%d_%04d.icc</output_icc>"
                  "<bit>%d</bit>"
                  "<app_filter_id>FLT%05d</app_filter_id>"
                  "<availableresolution default=\"600\">300,600,1200</availableresolution>"
                  "<availableclearcoat>none,auto</availableclearcoat>"
                  "</%s>",
                  variant, level, kThreePosition[level - 1], 0x10000u * level + static_cast<unsigned>(seed), variant,
                  level, seed, level == 5 ? 16 : 8, seed, variant);
    return text;
}

// colorModes colour modes, each with 2 borderless modes, each with 3 print purposes, each with the
// five qualities of all four variants, every level with its value elements.
WString MediaDocument(int colorModes) {
    static const char* const kColorModes[] = {"color", "monochrome", "all", "sepia"};
    static const char* const kOnOff[] = {"OFF", "ON"};
    static const char* const kPurposes[] = {"photo", "proof", "all"};
    static const char* const kVariants[] = {"printquality_rgb", "printquality_cmyk_4DLUT", "printquality_cmyk_1DLUT",
                                            "printquality_index"};
    std::string xml = "<iv:mediainfo xmlns:iv=\"" + Narrow(HMI_MEDIA_NAMESPACE) +
                      "\"><medium>"
                      "<operationflag>0x0000001F</operationflag><format_version>1.00</format_version>"
                      "<medium_category>03</medium_category>"
                      "<unsuported_papersize>iso_a5_148x210mm,jpn_hagaki_100x148mm</unsuported_papersize>"
                      "<printarea>34,34,34,50</printarea><locale>WW,JA,US,EU</locale><bk_ink_type>PBk,MBk</bk_ink_type>"
                      "<availableinputbinid default=\"AUTO\">AUTO,asf,manual</availableinputbinid>"
                      "<availableprintcolormode default=\"color\">color,monochrome</availableprintcolormode>";
    int seed = 0;
    for (int c = 0; c < colorModes; ++c) {
        xml += std::string("<printcolormode type=\"") + kColorModes[c % 4] +
               "\"><availableborderlessprint default=\"OFF\">OFF,ON</availableborderlessprint>";
        for (const char* onoff : kOnOff) {
            xml += std::string("<borderlessprint type=\"") + onoff +
                   "\"><availableprint_purpose default=\"photo\">photo,proof</availableprint_purpose>";
            for (const char* purpose : kPurposes) {
                xml += std::string("<print_purpose type=\"") + purpose +
                       "\"><operationflag>0x100</operationflag>"
                       "<availableduplexprint default=\"OFF\">OFF,manual,auto</availableduplexprint>"
                       "<availablecartridge default=\"auto\">auto,color,bk,bkcolor</availablecartridge>"
                       "<availableAppPostcardMedia>none,address</availableAppPostcardMedia>"
                       "<availableHagakiAutoDuplexMode>normal</availableHagakiAutoDuplexMode>"
                       "<availableprintquality_rgb default=\"3\">1,2,3,4,5</availableprintquality_rgb>"
                       "<availableprintquality_cmyk_4DLUT default=\"3\">1,2,3,4,5</availableprintquality_cmyk_4DLUT>"
                       "<availableprintquality_cmyk_1DLUT default=\"3\">1,2,3,4,5</availableprintquality_cmyk_1DLUT>";
                for (const char* variant : kVariants) {
                    for (int level = 1; level <= 5; ++level) xml += Quality(variant, level, ++seed);
                }
                xml += "</print_purpose>";
            }
            xml += "</borderlessprint>";
        }
        xml += "</printcolormode>";
    }
    return Widen(xml + "</medium></iv:mediainfo>");
}

// The records the queries hand out: every level node a filter can reach, each record once.
size_t RecordBytes(const HMIXMLMediaDetail& detail) {
    size_t bytes = sizeof(detail.Info());
    for (const auto& mode : detail.ColorModes()) {
        bytes += sizeof(mode.second->Info());
        for (const auto& borderless : mode.second->BorderlessModes()) {
            bytes += sizeof(borderless.second->Info());
            for (const auto& purpose : borderless.second->PrintPurposes()) {
                bytes += sizeof(purpose.second->Info());
                for (DWORD variant = 0; variant < 4; ++variant) {
                    bytes += purpose.second->Qualities(variant)->size() * sizeof(_tagHMIPrintQualityInfo);
                }
            }
        }
    }
    return bytes;
}

// The live bytes and allocations that building and then keeping the tree of document adds; null when
// the document is rejected.
struct Kept {
    long long bytes = 0, allocations = 0;
    size_t records = 0;
};
bool KeptTree(IXMLDOMDocument2* document, Kept* kept) {
    const long long bytesBefore = liveBytes, allocationsBefore = allocations;
    auto* detail = new HMIXMLMediaDetail();
    const bool built = detail->ParseDocument(document);
    kept->bytes = liveBytes - bytesBefore;
    kept->allocations = allocations - allocationsBefore;
    if (built) kept->records = RecordBytes(*detail);
    delete detail;
    return built;
}

// The bytes of a stored document's chunks: every value of its key but the unnamed chunk count.
long long DocumentUtf16Bytes(HANDLE printer, const WCHAR* key) {
    HMIPrinterDataValues values;
    if (!EnumPrinterDataValues(printer, key, &values)) std::abort();
    long long bytes = 0;
    for (DWORD i = 0; i < values.count; ++i) {
        if (*values.entries()[i].pValueName) bytes += values.entries()[i].cbData;
    }
    return bytes;
}

// Every medium of the sample printer, its stored document loaded once and its tree built and kept:
// the tree's bytes against its records and against the document's UTF-16 size.
void SampleMediaMemory(benchmark::State& state) {
    HMIComApartment com;
    HANDLE printer = nullptr;
    const std::string path = HMI_SAMPLES_DIR "/sample-printer.reg";
    WString name = Widen(path);
    if (!com.ok() || !OpenPrinterW(&name[0], &printer, nullptr)) std::abort();
    long long treeBytes = 0, treeAllocations = 0, documentBytes = 0;
    size_t recordBytes = 0, media = 0;
    for (auto _ : state) {
        treeBytes = treeAllocations = documentBytes = 0;
        recordBytes = media = 0;
        for (DWORD number = 1; number <= 0x1B; ++number) {
            WCHAR key[HMI_KEY_NAME_CAPACITY];
            if (!FormatMediumKey(key, number, HMI_W("HMI"))) std::abort();
            HMIComPtr<IXMLDOMDocument2> document(LoadMediaInfoDocument(printer, key));
            Kept kept;
            // A first build lets the DOM make what it keeps for the document; the second is measured.
            if (!document || !KeptTree(document.get(), &kept) || !KeptTree(document.get(), &kept)) continue;
            ++media;
            treeBytes += kept.bytes;
            treeAllocations += kept.allocations;
            recordBytes += kept.records;
            documentBytes += DocumentUtf16Bytes(printer, key);
        }
    }
    ClosePrinter(printer);
    state.counters["media"] = static_cast<double>(media);
    state.counters["tree_bytes"] = static_cast<double>(treeBytes);
    state.counters["record_bytes"] = static_cast<double>(recordBytes);
    state.counters["tree_per_record_byte"] = static_cast<double>(treeBytes) / static_cast<double>(recordBytes);
    state.counters["tree_per_document_byte"] = static_cast<double>(treeBytes) / static_cast<double>(documentBytes);
    state.counters["allocations"] = static_cast<double>(treeAllocations);
}
BENCHMARK(SampleMediaMemory)->Iterations(1)->Unit(benchmark::kMillisecond);

void BuildTree(benchmark::State& state) {
    HMIComApartment com;
    const WString text = MediaDocument(static_cast<int>(state.range(0)));
    HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLText(text.c_str()));
    if (!com.ok() || !document) {
        state.SkipWithError("the document does not load");
        return;
    }
    auto build = [&] {
        auto* detail = new HMIXMLMediaDetail();
        if (!detail->ParseDocument(document.get())) std::abort();
        return detail;
    };
    // A first build lets the DOM make what it keeps for the document; the second is measured.
    delete build();
    const long long bytesBefore = liveBytes;
    const long long allocationsBefore = allocations;
    HMIXMLMediaDetail* measured = build();
    const long long treeBytes = liveBytes - bytesBefore;
    const long long treeAllocations = allocations - allocationsBefore;
    const size_t recordBytes = RecordBytes(*measured);
    delete measured;

    for (auto _ : state) delete build();

    const double documentBytes = static_cast<double>(text.size() * sizeof(WCHAR));
    state.counters["document_utf16_bytes"] = documentBytes;
    state.counters["tree_bytes"] = static_cast<double>(treeBytes);
    state.counters["tree_per_document_byte"] = static_cast<double>(treeBytes) / documentBytes;
    state.counters["tree_per_record_byte"] = static_cast<double>(treeBytes) / static_cast<double>(recordBytes);
    state.counters["allocations_per_build"] = static_cast<double>(treeAllocations);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * documentBytes));
}

BENCHMARK(BuildTree)->Arg(1)->Arg(4)->Unit(benchmark::kMicrosecond);

}  // namespace

void* operator new(size_t size) {
    if (void* p = CountedAllocate(size)) return p;
    throw std::bad_alloc();
}
void* operator new[](size_t size) {
    if (void* p = CountedAllocate(size)) return p;
    throw std::bad_alloc();
}
void* operator new(size_t size, const std::nothrow_t&) noexcept { return CountedAllocate(size); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return CountedAllocate(size); }
void operator delete(void* p) noexcept { CountedRelease(p); }
void operator delete[](void* p) noexcept { CountedRelease(p); }
void operator delete(void* p, size_t) noexcept { CountedRelease(p); }
void operator delete[](void* p, size_t) noexcept { CountedRelease(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { CountedRelease(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { CountedRelease(p); }

BENCHMARK_MAIN();
