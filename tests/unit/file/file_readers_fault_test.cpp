// The File readers with every allocation failing in turn (linked from the library's objects, so that
// the hook sees them; the test allocates what it needs beforehand).
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

#include "support/fault_injection.h"
#include "unit/file/file_test_files.h"

namespace hmitest {
namespace {

static_assert(sizeof(_tagHMIMediaInfo) <= kOutBytes, "the detail's record fits the block");

// Under a failed allocation a reader fails and leaves nothing behind, or answers in full: a list never
// leaves out an item whose reading failed.
TEST(FileReaders, EveryAllocationFailingInTurn) {
    TestFiles files;
    const WString path = files.Write("every", MediaXml(EveryReaderBody()));
    HMIAccess* access = HMIOpen(nullptr);
    ASSERT_NE(access, nullptr);
    std::vector<unsigned char> answer(kOutBytes), got(kOutBytes);
    for (const auto& [name, read] : FileReaders()) {
        SCOPED_TRACE(name);
        const bool list = std::strstr(name, "list") != nullptr;
        std::fill(answer.begin(), answer.end(), 0);
        ASSERT_TRUE(read(access, path.c_str(), answer.data(), nullptr));  // also lets the DOM settle
        if (list) std::fill(answer.begin() + 8, answer.begin() + 16, 0);  // the block's own address
        bool answered = false;
        long before = 0;
        const std::function<void()> call = [&] {
            std::fill(got.begin(), got.end(), 0);
            answered = read(access, path.c_str(), got.data(), nullptr);
        };
        const std::function<void(bool)> check = [&](bool injected) {
            EXPECT_EQ(LiveAllocations(), before);
            if (list) std::fill(got.begin() + 8, got.begin() + 16, 0);
            if (!injected || answered) {
                EXPECT_EQ(got, answer);
            }
        };
        before = LiveAllocations();
        const long failures = ForEachAllocationFailure(call, check);
        EXPECT_GT(failures, 0);
    }
    HMIClose(access);
}

}  // namespace
}  // namespace hmitest
