// HMIComPtr<I>: owner of one COM interface reference. It takes over references handed out by
// factories and DOM out-arguments and never calls AddRef.
#ifndef HMI_XML_COM_PTR_H
#define HMI_XML_COM_PTR_H

#include "platform/platform.h"

template <typename I>
class HMIComPtr {
public:
    HMIComPtr() noexcept = default;
    explicit HMIComPtr(I* owned) noexcept : ptr(owned) {}
    virtual ~HMIComPtr() { reset(); }
    HMIComPtr(const HMIComPtr&) = delete;
    HMIComPtr& operator=(const HMIComPtr&) = delete;

    I* get() const noexcept { return ptr; }
    I* operator->() const noexcept { return ptr; }
    explicit operator bool() const noexcept { return ptr != nullptr; }

    // Releases any held reference, then hands out the address for an out-argument.
    I** put() noexcept {
        reset();
        return &ptr;
    }

    // Passes the reference to the caller.
    I* detach() noexcept {
        I* owned = ptr;
        ptr = nullptr;
        return owned;
    }

    void reset() noexcept {
        if (I* owned = detach()) owned->Release();
    }

private:
    I* ptr = nullptr;
};

#endif
