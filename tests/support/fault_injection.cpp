#include "support/fault_injection.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace hmitest {
void InstallPlatformAllocationHook(bool (*shouldFail)());  // per platform, in support/<platform>/
}

namespace {

std::atomic<bool> armed{false};
std::atomic<long> counter{0};
std::atomic<long> failAtCount{0};
std::atomic<bool> failPersistent{false};
std::atomic<bool> injected{false};
std::atomic<long> live{0};

bool ShouldFail() {
    if (!armed.load(std::memory_order_relaxed)) return false;
    long n = ++counter;
    if (n == failAtCount || (failPersistent && n > failAtCount)) {
        injected = true;
        return true;
    }
    return false;
}

void* Allocate(std::size_t size) {
    if (ShouldFail()) return nullptr;
    void* p = std::malloc(size ? size : 1);
    if (p) ++live;
    return p;
}

void Release(void* p) {
    if (!p) return;
    --live;
    std::free(p);
}

}  // namespace

namespace hmitest {

void ArmAllocationFailure(long failAt, bool persistent) {
    counter = 0;
    failAtCount = failAt;
    failPersistent = persistent;
    injected = false;
    InstallPlatformAllocationHook(&ShouldFail);
    armed = true;
}

bool DisarmAllocationFailure() {
    armed = false;
    InstallPlatformAllocationHook(nullptr);
    return injected;
}

long AllocationsSinceArm() { return counter; }

long LiveAllocations() { return live; }

long ForEachAllocationFailure(const std::function<void()>& call, const std::function<void(bool)>& check,
                              bool persistent) {
    long failures = 0;
    for (long n = 1;; ++n) {
        ArmAllocationFailure(n, persistent);
        call();
        bool hit = DisarmAllocationFailure();
        check(hit);
        if (!hit) break;
        ++failures;
    }
    return failures;
}

}  // namespace hmitest

void* operator new(std::size_t size) {
    if (void* p = Allocate(size)) return p;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    if (void* p = Allocate(size)) return p;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* p) noexcept { Release(p); }
void operator delete[](void* p) noexcept { Release(p); }
void operator delete(void* p, std::size_t) noexcept { Release(p); }
void operator delete[](void* p, std::size_t) noexcept { Release(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { Release(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { Release(p); }
