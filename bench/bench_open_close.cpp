// HMIOpen + HMIClose on a printer of 1,000 media, against the bare spooler reads the load must make.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>

#include "platform/platform.h"
#include "support/printer_fixture.h"

namespace {

constexpr int kMedia = 1000;
const WCHAR* const kMediaKey = HMI_W("PrinterDriverData\\Media");

std::basic_string<WCHAR> Format(const char* format, unsigned number) {
    char text[64];
    std::snprintf(text, sizeof text, format, number);
    return std::basic_string<WCHAR>(text, text + std::char_traits<char>::length(text));
}

std::basic_string<WCHAR> Subkey(int i) { return std::basic_string<WCHAR>(kMediaKey) + HMI_W("\\") + Format("%08X", i + 1); }

hmitest::TestPrinter& Printer() {
    static std::unique_ptr<hmitest::TestPrinter> printer = [] {
        auto p = std::make_unique<hmitest::TestPrinter>();
        p->SetText(kMediaKey, HMI_W("db_format_ver"), HMI_W("2.10"));
        p->SetText(kMediaKey, HMI_W("product_id"), HMI_W("XR-9000"));
        p->SetText(kMediaKey, HMI_W("pop-db-time"), HMI_W("2026-11-23 03:00:00"));
        p->SetDword(kMediaKey, HMI_W("papertype_info_list"), kMedia);
        for (int i = 0; i < kMedia; ++i) {
            p->SetText(kMediaKey, Format("%03u", i).c_str(), Format("%08X", i + 1).c_str());
            const auto subkey = Subkey(i);
            p->SetText(subkey.c_str(), HMI_W("id"), Format("BenchMedium%04u", i).c_str());
            p->SetDword(subkey.c_str(), HMI_W("valid"), 1);
            p->SetDword(subkey.c_str(), HMI_W("visible"), 1);
            p->SetText(subkey.c_str(), HMI_W("checksum"), Format("0123456789ABCDEF0123456789AB%04u", i).c_str());
        }
        p->Reopen();
        return p;
    }();
    return *printer;
}

void OpenClose(HANDLE printer) {
    HMIAccess* access = HMIOpen(printer);
    if (!access) std::abort();
    HMIClose(access);
}

// The reads of the load as plain spooler calls: the common values, each list entry, each medium's four.
void BareReads(HANDLE printer) {
    BYTE buffer[260];
    DWORD type = 0;
    DWORD needed = 0;
    GetPrinterDataExW(printer, kMediaKey, HMI_W("db_format_ver"), &type, nullptr, 0, &needed);
    GetPrinterDataExW(printer, kMediaKey, HMI_W("db_format_ver"), &type, buffer, needed, &needed);
    GetPrinterDataExW(printer, kMediaKey, HMI_W("product_id"), &type, buffer, 18, &needed);
    GetPrinterDataExW(printer, kMediaKey, HMI_W("pop-db-time"), &type, buffer, 40, &needed);
    GetPrinterDataExW(printer, kMediaKey, HMI_W("papertype_info_list"), &type, buffer, 4, &needed);
    static const auto names = [] {
        std::vector<std::pair<std::basic_string<WCHAR>, std::basic_string<WCHAR>>> n;
        for (int i = 0; i < kMedia; ++i) n.emplace_back(Format("%03u", i), Subkey(i));
        return n;
    }();
    for (const auto& [entry, subkey] : names) {
        GetPrinterDataExW(printer, kMediaKey, entry.c_str(), &type, buffer, 18, &needed);
        GetPrinterDataExW(printer, subkey.c_str(), HMI_W("id"), &type, buffer, 130, &needed);
        GetPrinterDataExW(printer, subkey.c_str(), HMI_W("valid"), &type, buffer, 4, &needed);
        GetPrinterDataExW(printer, subkey.c_str(), HMI_W("visible"), &type, buffer, 4, &needed);
        GetPrinterDataExW(printer, subkey.c_str(), HMI_W("checksum"), &type, buffer, 66, &needed);
    }
}

void BM_OpenClose(benchmark::State& state) {
    HANDLE printer = Printer().handle();
    for (auto _ : state) OpenClose(printer);
}
BENCHMARK(BM_OpenClose)->Unit(benchmark::kMicrosecond);

void BM_BareSpoolerReads(benchmark::State& state) {
    HANDLE printer = Printer().handle();
    for (auto _ : state) BareReads(printer);
}
BENCHMARK(BM_BareSpoolerReads)->Unit(benchmark::kMicrosecond);

// Both in one loop, alternating, so that the ratio compares like with like.
void BM_OpenCloseOverSpoolerReads(benchmark::State& state) {
    HANDLE printer = Printer().handle();
    using Clock = std::chrono::steady_clock;
    Clock::duration library{}, bare{};
    for (auto _ : state) {
        auto t0 = Clock::now();
        OpenClose(printer);
        auto t1 = Clock::now();
        BareReads(printer);
        auto t2 = Clock::now();
        library += t1 - t0;
        bare += t2 - t1;
    }
    state.counters["open_close_us"] =
        benchmark::Counter(std::chrono::duration<double, std::micro>(library).count(), benchmark::Counter::kAvgIterations);
    state.counters["bare_reads_us"] =
        benchmark::Counter(std::chrono::duration<double, std::micro>(bare).count(), benchmark::Counter::kAvgIterations);
    state.counters["ratio"] = std::chrono::duration<double>(library).count() / std::chrono::duration<double>(bare).count();
}
BENCHMARK(BM_OpenCloseOverSpoolerReads)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
