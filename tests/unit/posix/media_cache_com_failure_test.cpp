// Linux only: Windows offers no way to make CoInitialize fail on a healthy thread.
#include <gtest/gtest.h>

#include "posix/testhooks.h"
#include "support/full_medium.h"

namespace hmitest {
namespace {

// A CoInitialize failure other than another apartment model fails the load, and nothing is cached.
TEST(MediaDetailCacheCom, FailedCoInitializeFailsTheLoad) {
    TestPrinter printer;
    ASSERT_TRUE(WriteDatabase(printer, {{"00000007", "Full"}}) && WriteMedium(printer, 7, FullMediumBody()));
    HMIAccess* access = HMIOpen(printer.Reopen());
    ASSERT_NE(access, nullptr);
    for (HRESULT failure : {E_OUTOFMEMORY, E_UNEXPECTED}) {
        _tagHMIMediaInfo info;
        HMITestForceCoInitializeResult(failure);
        HMIXMLMediaDetail* detail = HMIFilterMedia(access, HMI_W("Full"));
        const BOOL direct = HMIGetMediaInfoDirect(access, HMI_W("Full"), &info);
        HMITestForceCoInitializeResult(S_OK);
        EXPECT_EQ(detail, nullptr) << std::hex << failure;
        EXPECT_EQ(direct, 0) << std::hex << failure;
    }
    EXPECT_NE(HMIFilterMedia(access, HMI_W("Full")), nullptr);
    HMIClose(access);
}

}  // namespace
}  // namespace hmitest
