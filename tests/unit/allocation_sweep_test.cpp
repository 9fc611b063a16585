// Every entry point with each of its allocations failing in turn, once and for good: the call fails with
// its ordinary result or answers in full, leaks nothing, caches nothing half-built (the next call on
// the same handle answers right), and the handle closes clean. Linked from the library's objects so
// that the hook sees their allocations (under Wine, not those of Wine's own MSXML and spooler).
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include "support/fault_injection.h"
#include "support/full_medium.h"
#include "unit/file/file_test_files.h"

namespace hmitest {
namespace {

using Bytes = std::vector<unsigned char>;

// A call writes its answer into out (kOutBytes, zeroed) and says whether it answered; nothing the test
// does while faults are armed allocates.
using Out = unsigned char*;

template <typename R>
bool Answer(bool ok, const R& record, Out out) {
    static_assert(sizeof record <= kOutBytes, "fits");
    if (ok) std::memcpy(out, &record, sizeof record);
    return ok;
}

constexpr const WCHAR* kId = HMI_W("Full");

// The nodes on the way to the photo purpose, made by the node queries.
struct Path {
    explicit Path(HMIAccess* a)
        : detail(HMIFilterMedia(a, kId)), color(HMIFilterColorMode(a, detail, HMI_COLORMODE_COLOR)),
          on(HMIFilterBorderless(a, color, HMI_ON)), photo(HMIFilterPrintPurpose(a, on, HMI_PRINTPURPOSE_PHOTO)) {}
    HMIXMLMediaDetail* detail;
    HMIXMLMediaColorMode* color;
    HMIXMLMediaBorderlessMode* on;
    HMIXMLMediaPrintPurpose* photo;
};

template <typename R, typename Node, typename Get>
bool Record(HMIAccess* a, Node* node, Get get, Out out) {
    R r;
    std::memset(&r, 0, sizeof r);
    return Answer(node && get(a, node, &r), r, out);
}

struct Row {
    const char* name;
    bool cold;  // the call itself loads the medium (no call before it on the handle)
    std::function<bool(HMIAccess*, Out)> call;
};

std::vector<Row> PrinterRows(HANDLE printer) {
    const auto info = [](HMIAccess* a, HMIXMLMediaDetail* d, Out out) { return Record<_tagHMIMediaInfo>(a, d, HMIGetMediaInfo, out); };
    const auto onoffs = [](HMIAccess* a, HMIXMLMediaColorMode* c, Out out) {
        return Record<_tagHMIAvailableBorderless>(a, c, HMIGetAvailableBorderless, out);
    };
    const auto purposes = [](HMIAccess* a, HMIXMLMediaBorderlessMode* b, Out out) {
        return Record<_tagHMIAvailablePrintPurpose>(a, b, HMIGetAvailablePrintPurpose, out);
    };
    const auto purpose = [](HMIAccess* a, HMIXMLMediaPrintPurpose* p, Out out) {
        return Record<_tagHMIPrintPurposeInfo>(a, p, HMIGetPrintPurposeInfo, out);
    };
    return {
        {"HMIOpen", true, [printer](HMIAccess*, Out out) {
             HMIAccess* opened = HMIOpen(printer);
             _tagHMICommonInfo common{};
             const bool ok = opened && HMIGetCommonInfo(opened, &common);
             HMIClose(opened);
             return Answer(ok, common, out);
         }},
        {"HMIUpdatePrinterHandle", false, [printer](HMIAccess* a, Out out) {
             WCHAR name[16] = {};
             size_t required = 0;
             return Answer(HMIUpdatePrinterHandle(a, printer) && HMIGetMediaName(a, kId, HMI_W("en"), name, 16, &required), name, out);
         }},
        {"HMIClose", false, [printer](HMIAccess*, Out out) {
             HMIAccess* other = HMIOpen(printer);
             const bool filled = HMIFilterMedia(other, kId) != nullptr;
             HMIClose(other);
             return Answer(filled, filled, out);
         }},
        {"HMIGetCommonInfo", false, [](HMIAccess* a, Out out) {
             _tagHMICommonInfo r{};
             return Answer(HMIGetCommonInfo(a, &r), r, out);
         }},
        {"HMIGetAvailableMedia", false, [](HMIAccess* a, Out out) {
             unsigned char block[HMI_AVAILABLE_MEDIA_BYTES(1)] = {};
             size_t required = 0;
             const bool ok = HMIGetAvailableMedia(a, reinterpret_cast<_tagHMIAvailableMedia*>(block), sizeof block, &required);
             std::memset(block + 8, 0, 8);
             return Answer(ok, block, out);
         }},
        {"HMIGetMediaInfoHeader", false, [](HMIAccess* a, Out out) {
             _tagHMIMediaInfoHeader r{};
             return Answer(HMIGetMediaInfoHeader(a, kId, &r), r, out);
         }},
        {"HMIGetMediaName", false, [](HMIAccess* a, Out out) {
             WCHAR name[16] = {};
             size_t required = 0;
             return Answer(HMIGetMediaName(a, kId, HMI_W("en"), name, 16, &required), name, out);
         }},
        {"HMIFilterMedia", true, [info](HMIAccess* a, Out out) { return info(a, HMIFilterMedia(a, kId), out); }},
        {"HMIGetMediaInfo", false, [info](HMIAccess* a, Out out) { return info(a, Path(a).detail, out); }},
        {"HMIGetMediaInfoDirect", true, [](HMIAccess* a, Out out) {
             _tagHMIMediaInfo r{};
             return Answer(HMIGetMediaInfoDirect(a, kId, &r), r, out);
         }},
        {"HMIGetAvailableColorMode", false, [](HMIAccess* a, Out out) {
             return Record<_tagHMIAvailableColorMode>(a, Path(a).detail, HMIGetAvailableColorMode, out);
         }},
        {"HMIFilterColorMode", false, [onoffs](HMIAccess* a, Out out) { return onoffs(a, Path(a).color, out); }},
        {"HMIFilterColorModeDirect", true, [onoffs](HMIAccess* a, Out out) {
             return onoffs(a, HMIFilterColorModeDirect(a, kId, HMI_COLORMODE_COLOR), out);
         }},
        {"HMIGetAvailableBorderless", false, [onoffs](HMIAccess* a, Out out) { return onoffs(a, Path(a).color, out); }},
        {"HMIFilterBorderless", false, [purposes](HMIAccess* a, Out out) { return purposes(a, Path(a).on, out); }},
        {"HMIFilterBorderlessDirect", true, [purposes](HMIAccess* a, Out out) {
             return purposes(a, HMIFilterBorderlessDirect(a, kId, HMI_COLORMODE_COLOR, HMI_ON), out);
         }},
        {"HMIGetAvailablePrintPurpose", false, [purposes](HMIAccess* a, Out out) { return purposes(a, Path(a).on, out); }},
        {"HMIFilterPrintPurpose", false, [purpose](HMIAccess* a, Out out) { return purpose(a, Path(a).photo, out); }},
        {"HMIFilterPrintPurposeDirect", true, [purpose](HMIAccess* a, Out out) {
             return purpose(a, HMIFilterPrintPurposeDirect(a, kId, HMI_COLORMODE_COLOR, HMI_ON, HMI_PRINTPURPOSE_PHOTO), out);
         }},
        {"HMIGetPrintPurposeInfo", false, [purpose](HMIAccess* a, Out out) { return purpose(a, Path(a).photo, out); }},
        {"HMIGetAvailablePrintQuality", false, [](HMIAccess* a, Out out) {
             _tagHMIAvailablePrintQuality r{};
             return Answer(HMIGetAvailablePrintQuality(a, Path(a).photo, 0, &r), r, out);
         }},
        {"HMIGetPrintQualityInfo", false, [](HMIAccess* a, Out out) {
             _tagHMIPrintQualityInfo r;
             std::memset(&r, 0, sizeof r);
             return Answer(HMIGetPrintQualityInfo(a, Path(a).photo, 0, HMI_PRINTQUALITY_3, &r), r, out);
         }},
    };
}

// The row's answer, or empty when it did not answer.
Bytes Call(const Row& row, HMIAccess* access, Bytes& out) {
    std::fill(out.begin(), out.end(), 0);
    return row.call(access, out.data()) ? out : Bytes();
}

// Sweeps one row on fresh handles; the number of runs in which a failure was injected.
long Sweep(const Row& row, HANDLE printer, bool persistent) {
    Bytes out(kOutBytes), got(kOutBytes);
    HMIAccess* access = HMIOpen(printer);
    const Bytes expected = Call(row, access, out);
    HMIClose(access);
    EXPECT_FALSE(expected.empty());
    long before = 0;
    const auto open = [&] {
        access = HMIOpen(printer);
        if (!row.cold) row.call(access, out.data());
    };
    bool answered = false;
    const std::function<void()> call = [&] {
        std::fill(got.begin(), got.end(), 0);
        answered = row.call(access, got.data());
    };
    const std::function<void(bool)> check = [&](bool injected) {
        EXPECT_TRUE(answered ? got == expected : injected);
        EXPECT_EQ(Call(row, access, out), expected);
        HMIClose(access);
        EXPECT_EQ(LiveAllocations(), before);
        open();
    };
    before = LiveAllocations();
    open();
    const long points = ForEachAllocationFailure(call, check, persistent);
    HMIClose(access);
    return points;
}

TEST(AllocationSweep, EveryEntryPoint) {
    TestPrinter printer;
    ASSERT_TRUE(WriteDatabase(printer, {{"00000007", "Full"}}) && WriteMedium(printer, 7, FullMediumBody()) &&
                printer.SetText(MediumKey(7, "HMN").c_str(), HMI_W("en"), HMI_W("Full name")));
    const HANDLE handle = printer.Reopen();
    ASSERT_NE(handle, nullptr);

    const TestFiles files;
    const WString path = files.Write("every", MediaXml(EveryReaderBody()));
    std::vector<Row> rows = PrinterRows(handle);
    for (const auto& [name, read] : FileReaders()) {
        rows.push_back({name, true, [&path, read = read, list = std::strstr(name, "list") != nullptr](HMIAccess* a, Out out) {
                            if (!read(a, path.c_str(), out, nullptr)) return false;
                            if (list) std::memset(out + 8, 0, 8);  // the block's own address
                            return true;
                        }});
    }
    long points[2] = {0, 0};
    for (const Row& row : rows) {
        for (bool persistent : {false, true}) {
            SCOPED_TRACE(::testing::Message() << row.name << (persistent ? " persistent" : " transient"));
            points[persistent] += Sweep(row, handle, persistent);
        }
    }
    std::printf("allocation failure points: %ld transient, %ld persistent, over %zu calls\n", points[0], points[1],
                rows.size());
    EXPECT_GT(points[0], 500);
}

}  // namespace
}  // namespace hmitest
