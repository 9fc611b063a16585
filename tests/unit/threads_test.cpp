// The thread rules: distinct handles at once on several threads, each filling its own detail cache; the
// File readers at once on the same file; every thread's COM, entered by it or not, left as it was found.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <thread>
#include <vector>

#include "file/file_test_files.h"
#include "support/full_medium.h"

namespace hmitest {
namespace {

constexpr int kThreads = 6;  // every printer (i % 2) with every COM state (i % 3)

// Runs work on kThreads threads at once, each with its own handle on printers[i % 2] (or on none);
// thread i first enters no COM, an apartment or the multithreaded apartment. Whether each thread
// answered right and found its COM as it left it.
std::vector<char> OnThreads(const std::function<bool(HMIAccess*)>& work, const TestPrinter* printers = nullptr) {
    std::vector<char> ok(kThreads, 0);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            const bool entered = i % 3 != 0;
            const DWORD model = i % 3 == 2 ? COINIT_MULTITHREADED : COINIT_APARTMENTTHREADED;
            if (entered && CoInitializeEx(nullptr, model) != S_OK) return;
            HMIAccess* access = HMIOpen(printers ? printers[i % 2].handle() : nullptr);
            const bool answered = access && work(access);
            HMIClose(access);
            ok[i] = answered && CoInitializeEx(nullptr, model) == (entered ? S_FALSE : S_OK);
            CoUninitialize();
            if (entered) CoUninitialize();
        });
    }
    for (std::thread& thread : threads) thread.join();
    return ok;
}

// Every level of the medium, from its detail down to a print quality, gives FullMediumBody's records.
bool HasFullTree(HMIAccess* access, const WString& id) {
    _tagHMIMediaInfo info;
    _tagHMIAvailableBorderless onoffs;
    _tagHMIAvailablePrintPurpose purposes;
    _tagHMIPrintPurposeInfo purpose;
    _tagHMIPrintQualityInfo quality;
    HMIXMLMediaDetail* detail = HMIFilterMedia(access, id.c_str());
    HMIXMLMediaColorMode* color = HMIFilterColorMode(access, detail, HMI_COLORMODE_COLOR);
    HMIXMLMediaBorderlessMode* on = HMIFilterBorderless(access, color, HMI_ON);
    HMIXMLMediaPrintPurpose* photo = HMIFilterPrintPurpose(access, on, HMI_PRINTPURPOSE_PHOTO);
    return HMIGetMediaInfo(access, detail, &info) && SameBytes(info, FullMediumInfo(id.c_str())) &&
           HMIGetAvailableBorderless(access, color, &onoffs) && SameBytes(onoffs, FullColorBorderless()) &&
           HMIGetAvailablePrintPurpose(access, on, &purposes) && SameBytes(purposes, FullOnPurposes()) &&
           HMIGetPrintPurposeInfo(access, photo, &purpose) && SameBytes(purpose, FullPhotoPurpose()) &&
           HMIGetPrintQualityInfo(access, photo, 0, HMI_PRINTQUALITY_3, &quality) &&
           SameBytes(quality, FullRgbQuality());
}

TEST(Threads, DistinctHandlesQueryEveryLevelAtOnce) {
    TestPrinter printers[2];
    for (TestPrinter& printer : printers) {
        ASSERT_TRUE(WriteDatabase(printer, {{"00000001", "M1"}, {"00000002", "M2"}, {"00000003", "M3"}}));
        for (DWORD number : {1u, 2u, 3u}) ASSERT_TRUE(WriteMedium(printer, number, FullMediumBody()));
        ASSERT_NE(printer.Reopen(), nullptr);
    }
    _tagHMICommonInfo common = Poisoned<_tagHMICommonInfo>();
    HMIAccess* single = HMIOpen(printers[0].handle());
    ASSERT_TRUE(HMIGetCommonInfo(single, &common));
    HMIClose(single);
    EXPECT_EQ(OnThreads([&](HMIAccess* access) {
        _tagHMICommonInfo info = Poisoned<_tagHMICommonInfo>();
        _tagHMIMediaInfoHeader header;
        bool ok = HMIGetCommonInfo(access, &info) && SameBytes(info, common) &&
                  HMIGetMediaInfoHeader(access, HMI_W("M2"), &header) && header.media_number == 2;
        for (const char* id : {"M1", "M2", "M3", "M1"}) ok = ok && HasFullTree(access, W(id));  // the last cached
        return ok;
    }, printers), std::vector<char>(kThreads, 1));
}

TEST(Threads, FileReadersAnswerOnSeveralThreadsAtOnce) {
    const TestFiles files;
    const WString path = files.Write("every", MediaXml(EveryReaderBody()));
    // The reader's answer with its required size; a list's own address (bytes 8 to 15) left out.
    const auto answer = [&](HMIAccess* access, size_t reader) {
        const auto& [name, read] = FileReaders()[reader];
        std::vector<unsigned char> out(kOutBytes + sizeof(size_t), 0xCD);
        if (!read(access, path.c_str(), out.data(), reinterpret_cast<size_t*>(out.data() + kOutBytes))) out.clear();
        if (std::strstr(name, "list") && !out.empty()) std::fill(out.begin() + 8, out.begin() + 16, 0);
        return out;
    };
    std::vector<std::vector<unsigned char>> expected;
    HMIAccess* single = HMIOpen(nullptr);
    for (size_t reader = 0; reader < FileReaders().size(); ++reader) {
        expected.push_back(answer(single, reader));
        ASSERT_FALSE(expected.back().empty()) << FileReaders()[reader].first;
    }
    HMIClose(single);
    EXPECT_EQ(OnThreads([&](HMIAccess* access) {
        bool ok = true;
        for (size_t r = 0; r < expected.size(); ++r) ok = ok && answer(access, r) == expected[r];
        return ok;
    }), std::vector<char>(kThreads, 1));
}

}  // namespace
}  // namespace hmitest
