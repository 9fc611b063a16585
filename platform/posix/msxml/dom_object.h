// Reference counting shared by all DOM objects, on the substitute's allocator.
#ifndef HMI_POSIX_MSXML_DOM_OBJECT_H
#define HMI_POSIX_MSXML_DOM_OBJECT_H

#include <atomic>
#include "posix/com/allocation.h"
#include "posix/msxml/msxml.h"

inline std::atomic<long> hmiLiveDomObjects{0};

template <typename Interface>
class ComObject : public Interface {
public:
    ULONG AddRef() override { return ++refs_; }
    ULONG Release() override {
        ULONG left = --refs_;
        if (left == 0) HMIComDelete(this);
        return left;
    }
    virtual ~ComObject() { --hmiLiveDomObjects; }

protected:
    ComObject() noexcept { ++hmiLiveDomObjects; }

    // Answers IUnknown and the listed interfaces, all reached through this one object.
    HRESULT Answer(REFIID riid, void** object, std::initializer_list<const IID*> ids) {
        if (!object) return E_POINTER;
        *object = nullptr;
        bool known = riid == IID_IUnknown;
        for (const IID* id : ids) known = known || riid == *id;
        if (!known) return E_NOINTERFACE;
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }

private:
    std::atomic<ULONG> refs_{1};
};

#endif
