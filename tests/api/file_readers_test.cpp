// What every File reader shares: the handle and argument checks, and files that must not load.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "dom/dom_fixture.h"
#include "unit/file/file_test_files.h"

namespace hmitest {
namespace {

// Calls read with its outputs poisoned: whether it answered, and whether it left them as they were.
struct Answer {
    bool answered;
    bool untouched;
};

Answer Call(const FileReader& read, HMIAccess* access, const WCHAR* path) {
    std::vector<unsigned char> out(kOutBytes, 0xCD);
    size_t required = 0xCDCDCDCDCDCDCDCDu;
    const bool answered = read(access, path, out.data(), &required);
    const bool untouched = std::all_of(out.begin(), out.end(), [](unsigned char byte) { return byte == 0xCD; });
    return {answered, untouched && required == 0xCDCDCDCDCDCDCDCDu};
}

class FileReaderFrame : public FileTest {};

TEST_F(FileReaderFrame, EveryReaderAnswersFromOneFileButNotWithoutHandleOrPath) {
    const WString path = files.Write("every", MediaXml(EveryReaderBody()));
    for (const auto& [name, read] : FileReaders()) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(Call(read, access, path.c_str()).answered);
        const Answer noHandle = Call(read, nullptr, path.c_str()), noPath = Call(read, access, nullptr);
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
TEST_F(FileReaderFrame, HostileAndUnreadableFilesAnswerNothing) {
    for (const HostileFile& file : HostileFiles(files)) {
        if (!file.refusedUnderWine && domtest::RunsOnWine()) continue;
        for (const auto& [name, read] : FileReaders()) {
            SCOPED_TRACE(file.name + ", " + name);
            const Answer answer = Call(read, access, file.path.c_str());
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
