#include "printer_store.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "unicode.h"

namespace hmispool {

const StoredValue* StoreKey::Find(std::u16string_view name) const {
    auto it = index_.find(Folded(name));
    return it == index_.end() ? nullptr : &*it->second;
}

bool StoreKey::Set(std::u16string_view name, DWORD type, std::vector<BYTE> data) {
    std::u16string folded = Folded(name);
    auto it = index_.find(folded);
    if (it != index_.end()) {
        StoredValue& value = *it->second;
        if (value.type == type && value.data == data) return false;
        value.data = std::move(data);
        value.type = type;
        return true;
    }
    values_.push_back(StoredValue{std::u16string(name), type, std::move(data)});
    try {
        index_.emplace(std::move(folded), std::prev(values_.end()));
    } catch (...) {
        values_.pop_back();
        throw;
    }
    return true;
}

bool StoreKey::Remove(std::u16string_view name) {
    auto it = index_.find(Folded(name));
    if (it == index_.end()) return false;
    values_.erase(it->second);
    index_.erase(it);
    return true;
}

PrinterStore::PrinterStore() { Create(std::u16string_view()); }

const StoreKey* PrinterStore::Find(std::u16string_view path) const {
    if (recentKey_ && recentKey_->path() == path) return recentKey_;
    auto it = lookup_.find(Folded(path));
    if (it == lookup_.end()) return nullptr;
    recentKey_ = it->second;
    return recentKey_;
}

StoreKey* PrinterStore::Find(std::u16string_view path) {
    return const_cast<StoreKey*>(static_cast<const PrinterStore&>(*this).Find(path));
}

std::vector<std::u16string> PrinterStore::Subkeys(std::u16string_view path) const {
    std::vector<std::u16string> names;
    const std::u16string prefix = path.empty() ? std::u16string() : Folded(path) + u'\\';
    for (auto it = keys_.lower_bound(prefix); it != keys_.end() && it->first.compare(0, prefix.size(), prefix) == 0;
         ++it) {
        const std::u16string_view rest = std::u16string_view(it->first).substr(prefix.size());
        if (rest.empty() || rest.find(u'\\') != std::u16string_view::npos) continue;
        names.push_back(it->second.path().substr(it->second.path().size() - rest.size()));
    }
    return names;
}

StoreKey& PrinterStore::Create(std::u16string_view path) {
    // Ancestors first, so that each level keeps the spelling it was first created with.
    size_t end = 0;
    for (;;) {
        end = path.find(u'\\', end);
        std::u16string_view prefix = path.substr(0, end);
        std::u16string folded = Folded(prefix);
        auto it = keys_.find(folded);
        if (it == keys_.end()) it = keys_.emplace(std::move(folded), StoreKey(std::u16string(prefix))).first;
        lookup_.emplace(it->first, &it->second);  // also when a failed earlier call left it out
        if (end == std::u16string_view::npos) return it->second;
        ++end;
    }
}

bool PrinterStore::Delete(std::u16string_view path) {
    recentKey_ = nullptr;
    if (path.empty()) {
        lookup_.clear();
        keys_.clear();
        Create(path);
        return true;
    }
    std::u16string folded = Folded(path);
    lookup_.erase(folded);
    bool existed = keys_.erase(folded) != 0;
    folded.push_back(u'\\');
    auto it = keys_.lower_bound(folded);
    while (it != keys_.end() && it->first.compare(0, folded.size(), folded) == 0) {
        lookup_.erase(it->first);
        it = keys_.erase(it);
    }
    return existed;
}

size_t KeyDepth(std::u16string_view path) {
    return path.empty() ? 0 : 1 + static_cast<size_t>(std::count(path.begin(), path.end(), u'\\'));
}

bool NormalizeKeyPath(std::u16string_view path, std::u16string& out) {
    out.clear();
    if (!path.empty() && path.front() == u'\\') return false;
    for (size_t i = 0; i < path.size(); ++i) {
        if (path[i] == u'\\' && (out.empty() || out.back() == u'\\')) continue;
        out.push_back(path[i]);
    }
    if (!out.empty() && out.back() == u'\\') out.pop_back();
    return true;
}

}  // namespace hmispool
