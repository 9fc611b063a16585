// What every File reader shares: the handle and argument checks, and files that must not load.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <vector>

#include "dom/dom_fixture.h"
#include "unit/file/file_test_files.h"

namespace hmitest {
namespace {

// One reader called on a path with poisoned outputs: whether it answered, and whether it left the
// caller's memory as it was.
struct Answer {
    bool answered;
    bool untouched;
};
using Reader = std::function<Answer(HMIAccess*, const WCHAR*)>;

template <typename T>
bool Poisoned(const T& memory) {
    return std::all_of(reinterpret_cast<const unsigned char*>(&memory),
                       reinterpret_cast<const unsigned char*>(&memory) + sizeof memory,
                       [](unsigned char byte) { return byte == 0xCD; });
}

template <typename T, typename Call>
Answer WithPoisoned(Call call) {
    T out;
    size_t required = 0xCDCDCDCDCDCDCDCDu;
    std::memset(&out, 0xCD, sizeof out);
    const BOOL result = call(&out, &required);
    return {result == TRUE, Poisoned(out) && Poisoned(required)};
}

const std::vector<std::pair<const char*, Reader>>& Readers() {
    static const std::vector<std::pair<const char*, Reader>> readers = {
        {"common info", [](HMIAccess* a, const WCHAR* p) {
             return WithPoisoned<_tagHMICommonInfo>([&](auto* out, size_t*) { return HMIGetCommonInfoFile(a, p, out); });
         }},
        {"media list", [](HMIAccess* a, const WCHAR* p) {
             return WithPoisoned<unsigned char[1024]>([&](auto* out, size_t* required) {
                 return HMIGetAvailableMediaFile(a, p, reinterpret_cast<_tagHMIAvailableMedia*>(out), 1024, required);
             });
         }},
        {"header", [](HMIAccess* a, const WCHAR* p) {
             return WithPoisoned<_tagHMIMediaInfoHeader>(
                 [&](auto* out, size_t*) { return HMIGetMediaInfoHeaderFile(a, p, HMI_W("A"), out); });
         }},
        {"name", [](HMIAccess* a, const WCHAR* p) {
             return WithPoisoned<WCHAR[8]>(
                 [&](auto* out, size_t* required) { return HMIGetMediaNameFile(a, p, HMI_W("en"), *out, 8, required); });
         }},
        {"name list", [](HMIAccess* a, const WCHAR* p) {
             return WithPoisoned<unsigned char[1024]>([&](auto* out, size_t* required) {
                 return HMIEnumMediaNamesFile(a, p, reinterpret_cast<_tagHMIMediaNameList*>(out), 1024, required);
             });
         }},
        {"detail", [](HMIAccess* a, const WCHAR* p) {
             HMIXMLMediaDetail* detail = HMIFilterMediaFile(a, HMI_W("A"), p);
             HMICloseMediaFile(a, detail);
             return Answer{detail != nullptr, true};
         }},
    };
    return readers;
}

class FileReaders : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_NE(access, nullptr); }
    void TearDown() override { HMIClose(access); }

    TestFiles files;
    HMIAccess* access = HMIOpen(nullptr);
};

TEST_F(FileReaders, EveryReaderAnswersFromOneFileButNotWithoutHandleOrPath) {
    const WString path = files.Write("every", MediaXml(EveryReaderBody()));
    for (const auto& [name, read] : Readers()) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(read(access, path.c_str()).answered);
        const Answer noHandle = read(nullptr, path.c_str()), noPath = read(access, nullptr);
        EXPECT_FALSE(noHandle.answered || noPath.answered);
        EXPECT_TRUE(noHandle.untouched && noPath.untouched);
    }
    size_t required = 7;
    WCHAR name[8];
    EXPECT_EQ(HMIGetCommonInfoFile(access, path.c_str(), nullptr), FALSE);
    EXPECT_EQ(HMIGetMediaInfoHeaderFile(access, path.c_str(), nullptr, nullptr), FALSE);
    EXPECT_EQ(HMIGetMediaNameFile(access, path.c_str(), nullptr, name, 8, &required), FALSE);
    EXPECT_EQ(HMIGetMediaNameFile(access, path.c_str(), HMI_W("en"), name, 8, nullptr), TRUE);
    EXPECT_EQ(required, 7u);
    HMICloseMediaFile(nullptr, nullptr);
}

// XML input is hostile: the readers inherit the loader's refusal of DTDs, external entities and
// documents nested beyond its depth limit, and fail on what cannot be read.
TEST_F(FileReaders, HostileAndUnreadableFilesAnswerNothing) {
    for (const HostileFile& file : HostileFiles(files)) {
        if (!file.refusedUnderWine && domtest::RunsOnWine()) continue;
        for (const auto& [name, read] : Readers()) {
            SCOPED_TRACE(file.name + ", " + name);
            const Answer answer = read(access, file.path.c_str());
            EXPECT_FALSE(answer.answered);
            EXPECT_TRUE(answer.untouched);
        }
    }
    _tagHMICommonInfo info{};
    const WString entity = files.Path("entity");
    if (HMIGetCommonInfoFile(access, entity.c_str(), &info)) {
        EXPECT_NE(WString(info.product_id), W("SECRET"));
    }
}

}  // namespace
}  // namespace hmitest
