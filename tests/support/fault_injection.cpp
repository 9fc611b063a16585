#include "support/fault_injection.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace hmitest {
void InstallPlatformAllocationHook(bool (*shouldFail)());  // per platform, in support/<platform>/
}

namespace {

std::atomic<bool> armed{false}, failPersistent{false}, injected{false};
std::atomic<long> counter{0}, failAtCount{0}, live{0};

bool ShouldFail() {
    if (!armed.load(std::memory_order_relaxed)) return false;
    const long n = ++counter;
    const bool fail = n == failAtCount || (failPersistent && n > failAtCount);
    if (fail) injected = true;
    return fail;
}

void* Allocate(std::size_t size) {
    void* p = ShouldFail() ? nullptr : std::malloc(size ? size : 1);
    if (p) ++live;
    return p;
}

void Release(void* p) {
    if (p) --live, std::free(p);
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

long LiveAllocations() { return live; }

long ForEachAllocationFailure(const std::function<void()>& call, const std::function<void(bool)>& check,
                              bool persistent) {
    for (long n = 1;; ++n) {
        ArmAllocationFailure(n, persistent);
        call();
        const bool hit = DisarmAllocationFailure();
        check(hit);
        if (!hit) return n - 1;
    }
}

}  // namespace hmitest

void* operator new(std::size_t size) {
    if (void* p = Allocate(size)) return p;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* p) noexcept { Release(p); }
void operator delete[](void* p) noexcept { Release(p); }
void operator delete(void* p, std::size_t) noexcept { Release(p); }
void operator delete[](void* p, std::size_t) noexcept { Release(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { Release(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { Release(p); }
