// The one allocator of the substitutes: plain malloc behind the test hook that can refuse it.
#ifndef HMI_POSIX_COM_ALLOCATION_H
#define HMI_POSIX_COM_ALLOCATION_H

#include <cstddef>
#include <new>
#include <utility>

void* HMIComAlloc(std::size_t size) noexcept;
void* HMIComRealloc(void* block, std::size_t size) noexcept;
void HMIComFree(void* block) noexcept;

// While one exists, the calling thread's allocations ignore the test hook: for one-time set-up of
// process state that could not recover from a half-finished initialisation.
class HMIComUnrefusedAllocations {
public:
    HMIComUnrefusedAllocations() noexcept;
    ~HMIComUnrefusedAllocations();
    HMIComUnrefusedAllocations(const HMIComUnrefusedAllocations&) = delete;
    HMIComUnrefusedAllocations& operator=(const HMIComUnrefusedAllocations&) = delete;
};

// Objects whose constructors cannot throw, on the allocator above; null when it refuses.
template <typename T, typename... Args>
T* HMIComNew(Args&&... args) noexcept {
    void* block = HMIComAlloc(sizeof(T));
    return block ? new (block) T(std::forward<Args>(args)...) : nullptr;
}

template <typename T>
void HMIComDelete(T* object) noexcept {
    if (!object) return;
    object->~T();
    HMIComFree(object);
}

#endif
