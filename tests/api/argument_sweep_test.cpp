// Arguments at and beyond their edges for the entry points that take sizes or plain pointers; the
// node queries' null nodes, enumerations and variants are swept in media_queries_test.cpp, the File
// readers' null handles and paths in file_readers_test.cpp.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <vector>

#include "support/full_medium.h"
#include "unit/file/file_test_files.h"

namespace hmitest {
namespace {

constexpr unsigned char kPoison = 0xCD;
constexpr size_t kPoisonSize = 0xCDCDCDCDCDCDCDCDu;
constexpr size_t kLargeBytes = 1 << 16;

class ArgumentSweep : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(WriteDatabase(printer, {{"00000007", "Full"}}) && WriteMedium(printer, 7, FullMediumBody()) &&
                    printer.SetText(MediumKey(7, "HMN").c_str(), HMI_W("en"), HMI_W("Full name")));
        access = HMIOpen(printer.Reopen());
        ASSERT_NE(access, nullptr);
    }
    void TearDown() override { HMIClose(access); }

    TestPrinter printer;
    TestFiles files;
    HMIAccess* access = nullptr;
};

// A sized call: size counts units of unitBytes; a success needs `slack` units less than the size it
// reports (a stored name's reported size counts one unit past its terminator) and sets the size to
// `reportedOnSuccess` (kPoisonSize: leaves it alone).
struct Sized {
    const char* name;
    size_t unitBytes, slack, reportedOnSuccess;
    std::function<BOOL(void* buffer, size_t units, size_t* required)> call;
};

// Every size around the reported one, a real large buffer and, for the name readers (which write only
// the name), the largest size there is: below the threshold the call fails, reports the size and writes
// nothing; from it on it answers the same bytes.
TEST_F(ArgumentSweep, SizedCallsAroundTheirRequiredSize) {
    const WString database = files.Write("every", MediaXml(EveryReaderBody()));
    const Sized calls[] = {
        {"HMIGetAvailableMedia", 1, 0, kPoisonSize, [&](void* b, size_t n, size_t* r) {
             return HMIGetAvailableMedia(access, static_cast<_tagHMIAvailableMedia*>(b), n, r);
         }},
        {"HMIGetMediaName", 2, 1, 0, [&](void* b, size_t n, size_t* r) {
             return HMIGetMediaName(access, HMI_W("Full"), HMI_W("en"), static_cast<WCHAR*>(b), n, r);
         }},
        {"HMIGetAvailableMediaFile", 1, 0, kPoisonSize, [&](void* b, size_t n, size_t* r) {
             return HMIGetAvailableMediaFile(access, database.c_str(), static_cast<_tagHMIAvailableMedia*>(b), n, r);
         }},
        {"HMIGetMediaNameFile", 2, 0, kPoisonSize, [&](void* b, size_t n, size_t* r) {
             return HMIGetMediaNameFile(access, database.c_str(), HMI_W("en"), static_cast<WCHAR*>(b), n, r);
         }},
        {"HMIEnumMediaNamesFile", 1, 0, kPoisonSize, [&](void* b, size_t n, size_t* r) {
             return HMIEnumMediaNamesFile(access, database.c_str(), static_cast<_tagHMIMediaNameList*>(b), n, r);
         }},
    };
    std::vector<unsigned char> buffer(kLargeBytes + 64);
    for (const Sized& c : calls) {
        SCOPED_TRACE(c.name);
        size_t required = 0;
        ASSERT_FALSE(c.call(nullptr, 0, &required));
        ASSERT_GT(required, c.slack + 1);
        const size_t threshold = required - c.slack, answerBytes = threshold * c.unitBytes;
        std::fill(buffer.begin(), buffer.end(), kPoison);
        size_t ignored = 0;
        ASSERT_TRUE(c.call(buffer.data(), threshold, &ignored));
        const std::vector<unsigned char> answer(buffer.begin(), buffer.begin() + answerBytes);

        std::vector<size_t> sizes = {0, 1, required - 1, required, required + 1, kLargeBytes / c.unitBytes};
        if (c.unitBytes == 2) sizes.insert(sizes.end(), {size_t{1} << 31, SIZE_MAX});
        for (size_t units : sizes) {
            SCOPED_TRACE(units);
            std::fill(buffer.begin(), buffer.end(), kPoison);
            size_t reported = kPoisonSize;
            const bool fits = units >= threshold;
            EXPECT_EQ(c.call(buffer.data(), units, &reported), fits);
            EXPECT_EQ(reported, fits ? c.reportedOnSuccess : required);
            if (fits) {
                EXPECT_TRUE(std::equal(answer.begin(), answer.end(), buffer.begin()));
            } else {
                EXPECT_EQ(std::count(buffer.begin(), buffer.end(), kPoison), long(buffer.size()));
            }
        }
        size_t reported = kPoisonSize;
        EXPECT_FALSE(c.call(nullptr, required, &reported));  // no buffer, whatever its size
        EXPECT_EQ(reported, required);
        EXPECT_FALSE(c.call(buffer.data(), 0, nullptr));  // nowhere to report the size
    }
}

// The database's own entry points with each pointer null in turn (and without a handle) fail and
// write nothing.
TEST_F(ArgumentSweep, NullPointersOfTheDatabaseEntryPoints) {
    auto common = Poisoned<_tagHMICommonInfo>();
    auto header = Poisoned<_tagHMIMediaInfoHeader>();
    WCHAR name[16];
    std::memset(name, kPoison, sizeof name);
    size_t required = kPoisonSize;
    const WCHAR* id = HMI_W("Full");
    const WCHAR* en = HMI_W("en");
    const struct {
        const char* what;
        std::function<BOOL(HMIAccess*)> call;
    } nulls[] = {
        {"common info: out", [&](HMIAccess* a) { return HMIGetCommonInfo(a, nullptr); }},
        {"header: id", [&](HMIAccess* a) { return HMIGetMediaInfoHeader(a, nullptr, &header); }},
        {"header: out", [&](HMIAccess* a) { return HMIGetMediaInfoHeader(a, id, nullptr); }},
        {"update: access", [&](HMIAccess*) { return HMIUpdatePrinterHandle(nullptr, printer.handle()); }},
    };
    for (const auto& n : nulls) {
        SCOPED_TRACE(n.what);
        EXPECT_FALSE(n.call(access));
    }
    EXPECT_FALSE(HMIGetCommonInfo(nullptr, &common));
    EXPECT_FALSE(HMIGetMediaInfoHeader(nullptr, id, &header));
    EXPECT_FALSE(HMIGetMediaName(nullptr, id, en, name, 16, &required));
    EXPECT_FALSE(HMIGetAvailableMedia(nullptr, nullptr, 0, &required));
    HMIClose(nullptr);
    EXPECT_TRUE(SameBytes(common, Poisoned<_tagHMICommonInfo>()) && SameBytes(header, Poisoned<_tagHMIMediaInfoHeader>()));
    EXPECT_EQ(std::count(reinterpret_cast<unsigned char*>(name), reinterpret_cast<unsigned char*>(name + 16), kPoison),
              long(sizeof name));
    EXPECT_EQ(required, kPoisonSize);
}

}  // namespace
}  // namespace hmitest
