// HMIXMLMap: the library's keyed container (HMIXMLSmallMap keeps its contract for a level's few
// entries). Unique keys, the first entry for a key stays; values are pointers it does not own. String
// keys point into the objects they index.
#ifndef HMI_COMMON_MAP_H
#define HMI_COMMON_MAP_H

#include <map>
#include <new>

#include "platform/platform.h"

struct HMIStrLess {
    bool operator()(const WCHAR* a, const WCHAR* b) const { return lstrcmpW(a, b) < 0; }
};

template <typename K, typename V, int Unused, typename Compare>
class HMIXMLMap : public std::map<K, V, Compare> {
public:
    // Adds the pair when the key is absent; an equal key keeps its first entry. False only when the
    // entry cannot be allocated.
    virtual bool Insert(K key, V value) noexcept {
        try {
            this->emplace(key, value);
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    virtual V Find(K key) const noexcept {
        auto it = this->find(key);
        return it == this->end() ? V() : it->second;
    }
};

#endif
