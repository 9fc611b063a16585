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

// A call appends its answers to out (kOutBytes, zeroed) and says whether all of them were given;
// nothing the test does while faults are armed allocates.
class Answers {
public:
    explicit Answers(unsigned char* out) : out_(out) {}
    template <typename R>
    bool Add(bool ok, const R& record) {
        if (!ok || at_ + sizeof record > kOutBytes) return false;
        std::memcpy(out_ + at_, &record, sizeof record);
        at_ += sizeof record;
        return true;
    }

private:
    unsigned char* out_;
    size_t at_ = 0;
};

constexpr const WCHAR* kId = HMI_W("Full");

// Fills a zeroed record with get and adds it.
template <typename R, typename Get>
bool Ask(Answers& answers, Get get) {
    R r;
    std::memset(&r, 0, sizeof r);
    return answers.Add(get(&r), r);
}

bool AskDatabase(HMIAccess* a, Answers& answers) {
    WCHAR name[16] = {};
    size_t required = 0;
    unsigned char media[HMI_AVAILABLE_MEDIA_BYTES(1)] = {};
    const bool listed = HMIGetAvailableMedia(a, reinterpret_cast<_tagHMIAvailableMedia*>(media), sizeof media, &required);
    std::memset(media + 8, 0, 8);  // the block's own address
    return Ask<_tagHMICommonInfo>(answers, [&](auto* r) { return HMIGetCommonInfo(a, r); }) &&
           answers.Add(listed, media) &&
           Ask<_tagHMIMediaInfoHeader>(answers, [&](auto* r) { return HMIGetMediaInfoHeader(a, kId, r); }) &&
           answers.Add(HMIGetMediaName(a, kId, HMI_W("en"), name, 16, &required), name);
}

// Every node query on the way to the photo purpose and every record below it.
bool AskNodes(HMIAccess* a, Answers& answers) {
    HMIXMLMediaDetail* detail = HMIFilterMedia(a, kId);
    HMIXMLMediaColorMode* color = HMIFilterColorMode(a, detail, HMI_COLORMODE_COLOR);
    HMIXMLMediaBorderlessMode* on = HMIFilterBorderless(a, color, HMI_ON);
    HMIXMLMediaPrintPurpose* photo = HMIFilterPrintPurpose(a, on, HMI_PRINTPURPOSE_PHOTO);
    return Ask<_tagHMIMediaInfo>(answers, [&](auto* r) { return HMIGetMediaInfo(a, detail, r); }) &&
           Ask<_tagHMIAvailableColorMode>(answers, [&](auto* r) { return HMIGetAvailableColorMode(a, detail, r); }) &&
           Ask<_tagHMIAvailableBorderless>(answers, [&](auto* r) { return HMIGetAvailableBorderless(a, color, r); }) &&
           Ask<_tagHMIAvailablePrintPurpose>(answers, [&](auto* r) { return HMIGetAvailablePrintPurpose(a, on, r); }) &&
           Ask<_tagHMIPrintPurposeInfo>(answers, [&](auto* r) { return HMIGetPrintPurposeInfo(a, photo, r); }) &&
           Ask<_tagHMIAvailablePrintQuality>(answers, [&](auto* r) { return HMIGetAvailablePrintQuality(a, photo, 0, r); }) &&
           Ask<_tagHMIPrintQualityInfo>(answers, [&](auto* r) {
               return HMIGetPrintQualityInfo(a, photo, 0, HMI_PRINTQUALITY_3, r);
           });
}

struct Row {
    const char* name;
    bool cold;  // the call itself loads the medium (no call before it on the handle)
    std::function<bool(HMIAccess*, Answers&)> call;
};

std::vector<Row> PrinterRows(HANDLE printer) {
    return {
        {"HMIOpen", true, [printer](HMIAccess*, Answers& out) {
             HMIAccess* opened = HMIOpen(printer);
             const bool ok = opened && AskDatabase(opened, out);
             HMIClose(opened);
             return ok;
         }},
        {"HMIUpdatePrinterHandle", false, [printer](HMIAccess* a, Answers& out) {
             return HMIUpdatePrinterHandle(a, printer) && AskDatabase(a, out);
         }},
        {"HMIClose with a filled cache", false, [printer](HMIAccess*, Answers& out) {
             HMIAccess* other = HMIOpen(printer);
             const bool filled = HMIFilterMedia(other, kId) != nullptr;
             HMIClose(other);
             return out.Add(filled, filled);
         }},
        {"the database queries", false, AskDatabase},
        {"the node queries, cached", false, AskNodes},
        {"HMIFilterMedia", true, AskNodes},
        {"HMIGetMediaInfoDirect", true, [](HMIAccess* a, Answers& out) {
             return Ask<_tagHMIMediaInfo>(out, [&](auto* r) { return HMIGetMediaInfoDirect(a, kId, r); });
         }},
        {"HMIFilterColorModeDirect", true, [](HMIAccess* a, Answers& out) {
             HMIXMLMediaColorMode* c = HMIFilterColorModeDirect(a, kId, HMI_COLORMODE_COLOR);
             return Ask<_tagHMIAvailableBorderless>(out, [&](auto* r) { return HMIGetAvailableBorderless(a, c, r); });
         }},
        {"HMIFilterBorderlessDirect", true, [](HMIAccess* a, Answers& out) {
             HMIXMLMediaBorderlessMode* b = HMIFilterBorderlessDirect(a, kId, HMI_COLORMODE_COLOR, HMI_ON);
             return Ask<_tagHMIAvailablePrintPurpose>(out, [&](auto* r) { return HMIGetAvailablePrintPurpose(a, b, r); });
         }},
        {"HMIFilterPrintPurposeDirect", true, [](HMIAccess* a, Answers& out) {
             HMIXMLMediaPrintPurpose* p = HMIFilterPrintPurposeDirect(a, kId, HMI_COLORMODE_COLOR, HMI_ON, HMI_PRINTPURPOSE_PHOTO);
             return Ask<_tagHMIPrintPurposeInfo>(out, [&](auto* r) { return HMIGetPrintPurposeInfo(a, p, r); });
         }},
    };
}

// The row's answer, or empty when it did not answer.
Bytes Call(const Row& row, HMIAccess* access, Bytes& out) {
    std::fill(out.begin(), out.end(), 0);
    Answers answers(out.data());
    return row.call(access, answers) ? out : Bytes();
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
        Answers ignored(out.data());
        if (!row.cold) row.call(access, ignored);
    };
    bool answered = false;
    const std::function<void()> call = [&] {
        std::fill(got.begin(), got.end(), 0);
        Answers answers(got.data());
        answered = row.call(access, answers);
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
        rows.push_back({name, true, [&path, read = read, list = std::strstr(name, "list") != nullptr](HMIAccess* a, Answers& out) {
                            unsigned char block[kOutBytes] = {};
                            const bool ok = read(a, path.c_str(), block, nullptr);
                            if (list) std::memset(block + 8, 0, 8);  // the block's own address
                            return out.Add(ok, block);
                        }});
    }
    long points[2] = {0, 0};
    for (const Row& row : rows) {
        for (bool persistent : {false, true}) {
            SCOPED_TRACE(::testing::Message() << row.name << (persistent ? " persistent" : " transient"));
            points[persistent] += Sweep(row, handle, persistent);
        }
    }
    std::printf("allocation failure points: %ld transient, %ld persistent, over %zu sweeps of the 29 entry points\n", points[0], points[1],
                rows.size());
    EXPECT_GT(points[0], 500);
}

}  // namespace
}  // namespace hmitest
