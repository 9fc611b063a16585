// The detail cache's first load on the library's objects (for the allocator hook and the thread's COM
// state, which the shared library does not share with a test on Linux): COM and allocation failure.
#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "support/fault_injection.h"
#include "support/full_medium.h"

namespace hmitest {
namespace {

class MediaDetailCache : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(WriteDatabase(printer, {{"00000007", "Full"}}));
        ASSERT_TRUE(WriteMedium(printer, 7, FullMediumBody()));
        ASSERT_NE(printer.Reopen(), nullptr);
    }

    // The medium's record and that of its deepest node are those of FullMediumBody.
    static bool HasFullTree(HMIAccess* access, HMIXMLMediaDetail* detail) {
        _tagHMIMediaInfo info;
        _tagHMIPrintQualityInfo quality;
        HMIXMLMediaColorMode* color = HMIFilterColorMode(access, detail, HMI_COLORMODE_COLOR);
        HMIXMLMediaPrintPurpose* photo =
            HMIFilterPrintPurpose(access, HMIFilterBorderless(access, color, HMI_ON), HMI_PRINTPURPOSE_PHOTO);
        return HMIGetMediaInfo(access, detail, &info) && SameBytes(info, FullMediumInfo(HMI_W("Full"))) &&
               HMIGetPrintQualityInfo(access, photo, 0, HMI_PRINTQUALITY_3, &quality) &&
               SameBytes(quality, FullRgbQuality());
    }

    TestPrinter printer;
};

// The load initialises COM for itself only: a thread without COM is left without it, one already in an
// apartment (the load's CoInitialize answers S_FALSE) or in the multithreaded one (RPC_E_CHANGED_MODE)
// is left in it, still holding exactly the test's own initialisation.
TEST_F(MediaDetailCache, FirstLoadLeavesTheThreadsComAsItFoundIt) {
    const struct { const char* name; bool entered; DWORD model; } cases[] = {
        {"no COM", false, COINIT_APARTMENTTHREADED}, {"apartment", true, COINIT_APARTMENTTHREADED},
        {"multithreaded", true, COINIT_MULTITHREADED}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        HMIAccess* access = HMIOpen(printer.handle());
        ASSERT_NE(access, nullptr);
        std::thread([&] {
            if (c.entered) {
                ASSERT_EQ(CoInitializeEx(nullptr, c.model), S_OK);
            }
            EXPECT_TRUE(HasFullTree(access, HMIFilterMedia(access, HMI_W("Full"))));
            EXPECT_EQ(CoInitializeEx(nullptr, c.model), c.entered ? S_FALSE : S_OK);
            CoUninitialize();
            if (c.entered) CoUninitialize();
        }).join();
        HMIClose(access);
    }
}

}  // namespace
}  // namespace hmitest
