// The XML fuzzer's seeds, replayed through its harness. A seed's name says what its document must do:
// "load_" loads, "fail_" does not, "any_" may do either (a DTD: refused on Linux, accepted by Wine).
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/xml_text_exercise.h"

namespace {

bool StartsWith(const std::string& text, const char* prefix) { return text.rfind(prefix, 0) == 0; }

TEST(FuzzSeedReplay, SeedsRunThroughTheHarnessAsTheirNamesSay) {
#ifndef HMI_FUZZ_CORPUS_DIR
    GTEST_SKIP() << "HMI_FUZZ_CORPUS_DIR is not defined for this build";
#else
    int replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(HMI_FUZZ_CORPUS_DIR)) {
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        const bool loaded = hmifuzz::ExerciseXmlText(bytes.data(), bytes.size());
        if (StartsWith(name, "load_")) {
            EXPECT_TRUE(loaded);
        } else if (StartsWith(name, "fail_")) {
            EXPECT_FALSE(loaded);
        }
        ++replayed;
    }
    EXPECT_GE(replayed, 5);
#endif
}

}  // namespace
