// libFuzzer entry of one target; the build names its harness header and function.
#include HMI_FUZZ_HARNESS

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    HMI_FUZZ_EXERCISE(data, size);
    return 0;
}
