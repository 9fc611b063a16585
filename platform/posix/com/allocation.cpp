#include "posix/com/allocation.h"

#include <atomic>
#include <cstdlib>
#include "posix/testhooks.h"

namespace {
std::atomic<bool (*)()> failureHook{nullptr};
thread_local int unrefusedScopes = 0;

bool Refused() {
    bool (*hook)() = failureHook.load(std::memory_order_acquire);
    return hook && unrefusedScopes == 0 && hook();
}
}  // namespace

void HMITestSetAllocationFailureHook(bool (*shouldFail)()) { failureHook.store(shouldFail, std::memory_order_release); }

HMIComUnrefusedAllocations::HMIComUnrefusedAllocations() noexcept { ++unrefusedScopes; }
HMIComUnrefusedAllocations::~HMIComUnrefusedAllocations() { --unrefusedScopes; }

void* HMIComAlloc(std::size_t size) noexcept { return Refused() ? nullptr : std::malloc(size ? size : 1); }

void* HMIComRealloc(void* block, std::size_t size) noexcept {
    return Refused() ? nullptr : std::realloc(block, size ? size : 1);
}

void HMIComFree(void* block) noexcept { std::free(block); }
