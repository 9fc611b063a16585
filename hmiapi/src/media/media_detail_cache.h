// The media detail cache of an access handle: every medium's option tree built from the printer data,
// by media id, until the handle closes.
#ifndef HMI_MEDIA_DETAIL_CACHE_H
#define HMI_MEDIA_DETAIL_CACHE_H

#include "common/hmi_map.h"
#include "platform/platform.h"

class HMIPopHeader;
class HMIXMLMediaDetail;

// Keys are the ids inside the cached details' own records; the map owns nothing. The medium found last
// is tried first, since a caller asks for one medium many times in a row; a handle is used by one
// thread at a time, so the const lookup may note it.
class HMIXMLMediaDetailDic final : public HMIXMLMap<const WCHAR*, const HMIXMLMediaDetail*, 0, HMIStrLess> {
public:
    const HMIXMLMediaDetail* Find(const WCHAR* id) const noexcept override {
        if (recentId && lstrcmpW(recentId, id) == 0) return recent;
        auto it = this->find(id);
        if (it == this->end()) return nullptr;
        recentId = it->first;
        recent = it->second;
        return recent;
    }

private:
    mutable const WCHAR* recentId = nullptr;
    mutable const HMIXMLMediaDetail* recent = nullptr;
};

// Deletes every cached detail, then the cache.
void HMIDestroyMediaDetailDic(HMIXMLMediaDetailDic* cache) noexcept;

// The cached detail of mediaId, or one built from the medium's document in the printer data and
// entered into the cache. Null when the id is null, unknown to the database or longer than 64 units,
// when the document is missing or rejected, or when allocation fails; nothing is cached then.
HMIXMLMediaDetail* HMIFindOrLoadDetail(HMIXMLMediaDetailDic& cache, const HMIPopHeader& database, HANDLE printer,
                                       const WCHAR* mediaId) noexcept;

#endif
