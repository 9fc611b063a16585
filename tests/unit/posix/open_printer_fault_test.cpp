// OpenPrinterW reads and parses the whole store file: most allocations of an open are in the store
// substitute, which exists only on Linux.
#include <gtest/gtest.h>

#include <functional>

#include "support/fault_injection.h"
#include "support/full_medium.h"

namespace hmitest {
namespace {

TEST(AllocationSweep, OpenPrinterAndTheStoreParser) {
    TestPrinter printer;
    ASSERT_TRUE(WriteDatabase(printer, {{"00000007", "Full"}}) && WriteMedium(printer, 7, FullMediumBody()));
    ASSERT_NE(printer.Reopen(), nullptr);
    WString name = printer.name();
    _tagHMICommonInfo expected = Poisoned<_tagHMICommonInfo>(), got = expected;
    bool answered = false;
    const std::function<void()> call = [&] {
        HANDLE handle = nullptr;
        answered = OpenPrinterW(name.data(), &handle, nullptr);
        HMIAccess* access = answered ? HMIOpen(handle) : nullptr;
        answered = access && HMIGetCommonInfo(access, &got);
        HMIClose(access);
        if (handle) ClosePrinter(handle);
    };
    call();
    ASSERT_TRUE(answered);
    expected = got;
    long before = 0;
    const std::function<void(bool)> check = [&](bool injected) {
        EXPECT_TRUE(answered ? SameBytes(got, expected) : injected);
        EXPECT_EQ(LiveAllocations(), before);
    };
    for (bool persistent : {false, true}) {
        before = LiveAllocations();
        const long points = ForEachAllocationFailure(call, check, persistent);
        std::printf("OpenPrinterW and HMIOpen: %ld allocation failure points (%s)\n", points,
                    persistent ? "persistent" : "transient");
        EXPECT_GT(points, 100);
    }
}

}  // namespace
}  // namespace hmitest
