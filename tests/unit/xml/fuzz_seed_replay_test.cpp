// The XML fuzzer's seeds, replayed through its harness. A seed's name says what its document must do:
// "load_" loads, "fail_" does not, "any_" may do either (a DTD: refused on Linux, accepted by Wine).
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/xml_text_exercise.h"

namespace {

TEST(FuzzSeedReplay, SeedsRunThroughTheHarnessAsTheirNamesSay) {
    int replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(HMI_FUZZ_CORPUS_DIR)) {
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        const bool loaded = hmifuzz::ExerciseXmlText(bytes.data(), bytes.size());
        if (name.rfind("load_", 0) == 0 || name.rfind("fail_", 0) == 0) {
            EXPECT_EQ(loaded, name[0] == 'l');
        }
        ++replayed;
    }
    EXPECT_GE(replayed, 5);
}

}  // namespace
