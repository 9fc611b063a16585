// Reference counting shared by all DOM objects, on the substitute's allocator. Counts are plain
// integers: as with MSXML's rental-threaded documents, a document and every object handed out from it
// are used by one thread at a time, and a parse makes thousands of them.
#ifndef HMI_POSIX_MSXML_DOM_OBJECT_H
#define HMI_POSIX_MSXML_DOM_OBJECT_H

#include <atomic>
#include "posix/com/allocation.h"
#include "posix/msxml/msxml.h"

// Trees and parse-error objects alive, for the tests: a node, list or document left alive keeps its
// tree, so only these few objects are counted, not each node.
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
    virtual ~ComObject() = default;

protected:
    ComObject() noexcept = default;

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
    ULONG refs_ = 1;
};

#endif
