// The printer data of one printer in memory. Keys and value names compare case-insensitively and
// keep the spelling they were first written with; values keep the order of their first writing.
#ifndef HMI_SPOOL_PRINTER_STORE_H
#define HMI_SPOOL_PRINTER_STORE_H

#include <cstddef>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "posix/types.h"

namespace hmispool {

struct StoredValue {
    std::u16string name;
    DWORD type;
    std::vector<BYTE> data;
};

class StoreKey {
public:
    explicit StoreKey(std::u16string path) : path_(std::move(path)) {}

    const std::u16string& path() const { return path_; }
    const std::list<StoredValue>& values() const { return values_; }
    const StoredValue* Find(std::u16string_view name) const;
    // Both return whether the key changed.
    bool Set(std::u16string_view name, DWORD type, std::vector<BYTE> data);
    bool Remove(std::u16string_view name);

private:
    std::list<StoredValue>::const_iterator Locate(std::u16string_view name) const;

    std::u16string path_;
    // A list, so that removing a value neither shifts the others nor renumbers the index.
    std::list<StoredValue> values_;
    // Folded name -> value, for a key of many values; empty (the values are scanned) or complete.
    std::unordered_map<std::u16string, std::list<StoredValue>::iterator> index_;
};

class PrinterStore {
public:
    PrinterStore();
    PrinterStore(const PrinterStore&) = delete;  // the lookup points into the keys
    PrinterStore& operator=(const PrinterStore&) = delete;

    // Paths are canonical (NormalizeKeyPath); "" is the printer's own key, which always exists. The
    // key found last is tried first: readers ask for several values of one key in a row.
    const StoreKey* Find(std::u16string_view path) const;
    StoreKey* Find(std::u16string_view path);
    // Creates the key and its missing ancestors.
    StoreKey& Create(std::u16string_view path);
    // Deletes the key with its subkeys; deleting the root empties the store. Returns whether it existed.
    bool Delete(std::u16string_view path);

    // The last components of the key's direct subkeys, as first spelled, ordered by folded name.
    std::vector<std::u16string> Subkeys(std::u16string_view path) const;
    // Every key, ordered by folded path (a parent before its subkeys).
    const std::map<std::u16string, StoreKey>& keys() const { return keys_; }

private:
    std::map<std::u16string, StoreKey> keys_;  // folded path -> key, in order for listing and writing
    std::unordered_map<std::u16string, StoreKey*> lookup_;  // the same keys, for finding one
    mutable StoreKey* recentKey_ = nullptr;  // found last; matched by its own spelling
};

// The registry's limit on key levels; it also bounds the work of creating a key's ancestors.
constexpr size_t kMaxKeyDepth = 512;
size_t KeyDepth(std::u16string_view path);  // 0 for the root

// Canonical key path: components joined by single backslashes, without a trailing one; repeated
// backslashes collapse, as the registry does. False for a path that starts with a backslash.
bool NormalizeKeyPath(std::u16string_view path, std::u16string& out);

}  // namespace hmispool

#endif
