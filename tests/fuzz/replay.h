// Replays a fuzz target's seeds and kept findings (fuzz/corpus/<target>/, fuzz/regressions/<target>/)
// through its harness; the sanitizers, or a harness's own check, fail a run that goes wrong.
#ifndef HMI_TEST_FUZZ_REPLAY_H
#define HMI_TEST_FUZZ_REPLAY_H

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace hmitest {

template <typename Harness>
void ReplayFuzzInputs(const char* target, Harness harness) {
    int replayed = 0;
    for (const char* kind : {"corpus", "regressions"}) {
        const std::filesystem::path dir = std::filesystem::path(HMI_FUZZ_DIR) / kind / target;
        if (!std::filesystem::is_directory(dir)) continue;
        for (const auto& entry : std::filesystem::directory_iterator(dir)) {
            SCOPED_TRACE(entry.path().string());
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
            harness(bytes.data(), bytes.size());
            ++replayed;
        }
    }
    EXPECT_GE(replayed, 3) << target;
}

}  // namespace hmitest

#endif
