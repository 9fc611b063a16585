#include <cstdlib>

#include "posix/crt/crt.h"

void HMISettleHeap() noexcept {
    // glibc keeps freed small blocks apart, unmerged, until a request beyond its small sizes; one of
    // 4 KB merges them now. (Freeing 64 KB would too, but would also give memory back to the system.)
    void* block = std::malloc(4 << 10);
    __asm__ __volatile__("" : : "r"(block) : "memory");  // the pair is not to be optimised away
    std::free(block);
}
