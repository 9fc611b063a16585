#include "access/hmi_access.h"

#include <cstring>
#include <memory>
#include <new>

#include "common/hmi_list_buffer.h"
#include "printerdata/printer_data_read.h"

HMIAccess::~HMIAccess() {
    delete popHeader;
    HMIDestroyMediaDetailDic(mediaDetailDic);
}

bool HMIAccess::Initialize() {
    mediaDetailDic = new (std::nothrow) HMIXMLMediaDetailDic();
    if (!mediaDetailDic) return false;
    std::unique_ptr<HMIPopHeader> database(new (std::nothrow) HMIPopHeader());
    if (!database) return false;
    if (printerHandle && !database->Load(printerHandle)) return false;
    popHeader = database.release();
    return true;
}

bool HMIAccess::GetCommonInfo(_tagHMICommonInfo* out) const {
    if (!popHeader || !out || !popHeader->CommonInfo()) return false;
    std::memcpy(out, popHeader->CommonInfo(), sizeof *out);
    return true;
}

bool HMIAccess::GetAvailableMedia(_tagHMIAvailableMedia* buffer, size_t bufferBytes, size_t* requiredBytes) const {
    const _tagHMIAvailableMedia* media = popHeader ? popHeader->AvailableMedia() : nullptr;
    if (!media) return false;
    const uint64_t required = HMI_AVAILABLE_MEDIA_BYTES(media->count);
    if (!HMIListBufferFits(buffer, bufferBytes, required, requiredBytes)) return false;
    std::memcpy(buffer, media, required);
    buffer->ids = reinterpret_cast<WCHAR(*)[65]>(reinterpret_cast<std::byte*>(buffer) + sizeof *buffer);
    return true;
}

bool HMIAccess::GetMediaInfoHeader(const WCHAR* mediaId, _tagHMIMediaInfoHeader* out) const {
    return popHeader && popHeader->GetMediaInfoHeader(mediaId, out);
}

HMIXMLMediaDetail* HMIAccess::FindOrLoadDetail(const WCHAR* mediaId) noexcept {
    if (!popHeader || !mediaDetailDic) return nullptr;
    return HMIFindOrLoadDetail(*mediaDetailDic, *popHeader, printerHandle, mediaId);
}
