// The store-file target: the store it reads exists only on Linux.
#include "fuzz/replay.h"
#include "fuzz/store_file_exercise.h"

namespace hmitest {
namespace {

TEST(FuzzReplay, StoreFile) { ReplayFuzzInputs("store_file", hmifuzz::ExerciseStoreFile); }

}  // namespace
}  // namespace hmitest
