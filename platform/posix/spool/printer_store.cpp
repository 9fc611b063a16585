#include "printer_store.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "unicode.h"

namespace hmispool {

namespace {

// A key of a medium holds a handful of values and is scanned; the media key holds one per medium and
// is indexed from this many on.
constexpr size_t kIndexFrom = 16;

bool SameFolded(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && FoldCase(a[i]) != FoldCase(b[i])) return false;
    }
    return true;
}

}  // namespace

std::list<StoredValue>::const_iterator StoreKey::Locate(std::u16string_view name) const {
    if (index_.empty()) {
        return std::find_if(values_.begin(), values_.end(),
                            [&](const StoredValue& value) { return SameFolded(value.name, name); });
    }
    auto it = index_.find(Folded(name));
    return it == index_.end() ? values_.end() : std::list<StoredValue>::const_iterator(it->second);
}

const StoredValue* StoreKey::Find(std::u16string_view name) const {
    auto it = Locate(name);
    return it == values_.end() ? nullptr : &*it;
}

bool StoreKey::Set(std::u16string_view name, DWORD type, std::vector<BYTE> data) {
    auto found = Locate(name);
    if (found != values_.end()) {
        auto& value = const_cast<StoredValue&>(*found);
        if (value.type == type && value.data == data) return false;
        value.data = std::move(data);
        value.type = type;
        return true;
    }
    values_.push_back(StoredValue{std::u16string(name), type, std::move(data)});
    if (!index_.empty()) {
        try {
            index_.emplace(Folded(name), std::prev(values_.end()));
        } catch (...) {
            values_.pop_back();
            throw;
        }
    } else if (values_.size() >= kIndexFrom) {
        try {
            for (auto it = values_.begin(); it != values_.end(); ++it) index_.emplace(Folded(it->name), it);
        } catch (...) {
            index_.clear();  // scanned, as before, until a later value tries again
        }
    }
    return true;
}

bool StoreKey::Remove(std::u16string_view name) {
    auto found = Locate(name);
    if (found == values_.end()) return false;
    if (!index_.empty()) index_.erase(Folded(found->name));
    values_.erase(found);
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
