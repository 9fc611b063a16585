// HMIXMLSmallMap: the contract of HMIXMLMap (unique keys, the first entry for a key stays, values are
// pointers it does not own) over a vector kept sorted by key: for the few entries of a level's
// dictionary, looked up on every query, without a tree of nodes to chase.
#ifndef HMI_COMMON_SMALL_MAP_H
#define HMI_COMMON_SMALL_MAP_H

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

template <typename K, typename V>
class HMIXMLSmallMap {
public:
    using Entry = std::pair<K, V>;

    // Adds the pair when the key is absent; an equal key keeps its first entry. False only when the
    // entry cannot be allocated.
    bool Insert(K key, V value) noexcept {
        const auto at = LowerBound(key);
        if (at != entries_.end() && at->first == key) return true;
        try {
            entries_.insert(at, Entry(key, value));
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    V Find(K key) const noexcept {
        const auto at = LowerBound(key);
        return at != entries_.end() && at->first == key ? at->second : V();
    }

    // In key order.
    typename std::vector<Entry>::const_iterator begin() const noexcept { return entries_.begin(); }
    typename std::vector<Entry>::const_iterator end() const noexcept { return entries_.end(); }
    size_t size() const noexcept { return entries_.size(); }
    void clear() noexcept { std::vector<Entry>().swap(entries_); }

private:
    // A scan: a dictionary holds a handful of entries, too few for a binary search to pay.
    typename std::vector<Entry>::const_iterator LowerBound(K key) const noexcept {
        return std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return !(entry.first < key); });
    }

    std::vector<Entry> entries_;
};

#endif
