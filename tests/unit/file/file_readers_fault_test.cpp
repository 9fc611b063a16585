// The File readers with every allocation failing in turn (linked from the library's objects, so that
// the hook sees them), the File form of the bounded copy, and the COM frame on threads of their own.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <thread>
#include <vector>

#include "common/hmi_string.h"
#include "support/fault_injection.h"
#include "unit/file/file_test_files.h"

namespace hmitest {
namespace {

TEST(BoundedCopyFile, CopiesWhatFitsElseTheFirstUnitsWithTheFirstZeroed) {
    const struct {
        const char* src;
        size_t capacity;
        bool fits;
        std::string dst;  // the 5 units afterwards; '~' untouched
    } cases[] = {
        {"abc", 4, true, std::string("abc\0~", 5)},  {"abcd", 4, false, std::string("\0bcd~", 5)},
        {"abcde", 4, false, std::string("\0bcd~", 5)}, {"", 1, true, std::string("\0~~~~", 5)},
        {"a", 0, false, "~~~~~"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.src);
        WCHAR dst[5] = {'~', '~', '~', '~', '~'};
        EXPECT_EQ(HMIBoundedCopyFile(dst, c.capacity, W(c.src).c_str()), c.fits);
        EXPECT_EQ(WString(dst, 5), W(c.dst));
    }
    WCHAR dst[2] = {'~', '~'};
    EXPECT_FALSE(HMIBoundedCopyFile(dst, 2, nullptr));
    EXPECT_EQ(WString(dst, 2), W(std::string("\0~", 2)));
    EXPECT_FALSE(HMIBoundedCopyFile(nullptr, 2, HMI_W("a")));
}

// Each reader writes into a block of kOutBytes that the test allocates beforehand: the hook fails
// the test's own allocations too.
constexpr size_t kOutBytes = 2048;
using Read = std::function<bool(HMIAccess*, const WCHAR*, unsigned char*)>;
static_assert(sizeof(_tagHMIMediaInfo) <= kOutBytes, "the detail's record fits the block");

const std::vector<std::pair<const char*, Read>>& Readers() {
    static const std::vector<std::pair<const char*, Read>> readers = {
        {"common info", [](HMIAccess* a, const WCHAR* p, unsigned char* out) {
             return HMIGetCommonInfoFile(a, p, reinterpret_cast<_tagHMICommonInfo*>(out)) == TRUE;
         }},
        {"media list", [](HMIAccess* a, const WCHAR* p, unsigned char* out) {
             auto* media = reinterpret_cast<_tagHMIAvailableMedia*>(out);
             return HMIGetAvailableMediaFile(a, p, media, kOutBytes, nullptr) == TRUE;
         }},
        {"header", [](HMIAccess* a, const WCHAR* p, unsigned char* out) {
             auto* header = reinterpret_cast<_tagHMIMediaInfoHeader*>(out);
             return HMIGetMediaInfoHeaderFile(a, p, HMI_W("A"), header) == TRUE;
         }},
        {"name", [](HMIAccess* a, const WCHAR* p, unsigned char* out) {
             return HMIGetMediaNameFile(a, p, HMI_W("en"), reinterpret_cast<WCHAR*>(out), 8, nullptr) == TRUE;
         }},
        {"name list", [](HMIAccess* a, const WCHAR* p, unsigned char* out) {
             auto* names = reinterpret_cast<_tagHMIMediaNameList*>(out);
             return HMIEnumMediaNamesFile(a, p, names, kOutBytes, nullptr) == TRUE;
         }},
        {"detail", [](HMIAccess* a, const WCHAR* p, unsigned char* out) {
             HMIXMLMediaDetail* detail = HMIFilterMediaFile(a, HMI_W("A"), p);
             const bool read = HMIGetMediaInfo(a, detail, reinterpret_cast<_tagHMIMediaInfo*>(out)) == TRUE;
             HMICloseMediaFile(a, detail);
             return read;
         }},
    };
    return readers;
}

// Under a failed allocation a reader fails and leaves nothing behind. A list may instead leave out the
// items whose reading failed, as it leaves out items that do not fit; what it lists is still right.
TEST(FileReaders, EveryAllocationFailingInTurn) {
    TestFiles files;
    const WString path = files.Write("every", MediaXml(EveryReaderBody()));
    HMIAccess* access = HMIOpen(nullptr);
    ASSERT_NE(access, nullptr);
    std::vector<unsigned char> answer(kOutBytes), got(kOutBytes);
    for (const auto& [name, read] : Readers()) {
        SCOPED_TRACE(name);
        const bool list = std::strstr(name, "list") != nullptr;
        std::fill(answer.begin(), answer.end(), 0);
        ASSERT_TRUE(read(access, path.c_str(), answer.data()));  // also lets the DOM settle
        if (list) std::fill(answer.begin() + 8, answer.begin() + 16, 0);  // the block's own address
        bool answered = false;
        long before = 0;
        const std::function<void()> call = [&] {
            std::fill(got.begin(), got.end(), 0);
            answered = read(access, path.c_str(), got.data());
        };
        const std::function<void(bool)> check = [&](bool injected) {
            EXPECT_EQ(LiveAllocations(), before);
            if (list) std::fill(got.begin() + 8, got.begin() + 16, 0);
            const bool itemLeftOut = list && answered && got[0] == 0;  // the one item's count
            if (!injected || (answered && !itemLeftOut)) {
                EXPECT_EQ(got, answer);
            }
        };
        before = LiveAllocations();
        const long failures = ForEachAllocationFailure(call, check);
        EXPECT_GT(failures, 3);
    }
    HMIClose(access);
}

// COM for the whole call: a thread in the multithreaded apartment proceeds, a fresh thread is left
// without COM afterwards.
TEST(FileReaders, ComFrameOnThreadsOfTheirOwn) {
    TestFiles files;
    const WString path = files.Write("every", MediaXml(EveryReaderBody()));
    HMIAccess* access = HMIOpen(nullptr);
    ASSERT_NE(access, nullptr);
    std::vector<unsigned char> out(kOutBytes);
    std::thread([&] {
        ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        for (const auto& [name, read] : Readers()) EXPECT_TRUE(read(access, path.c_str(), out.data())) << name;
        CoUninitialize();
    }).join();
    std::thread([&] {
        for (const auto& [name, read] : Readers()) EXPECT_TRUE(read(access, path.c_str(), out.data())) << name;
        const HRESULT hr = CoInitialize(nullptr);
        EXPECT_EQ(hr, S_OK) << "a reader left COM initialised";
        if (SUCCEEDED(hr)) CoUninitialize();
    }).join();
    HMIClose(access);
}

}  // namespace
}  // namespace hmitest
