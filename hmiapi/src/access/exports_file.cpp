// The File entry points: readers that answer from XML files named by the caller.
#include "access/export_guard.h"
#include "access/hmi_access.h"
#include "file/file_readers.h"
#include "media/media_detail.h"
#include "xml/hmi_com_apartment.h"

namespace {

// The frame of the boolean File readers: an open handle with its database, COM for the whole read.
template <typename Read>
BOOL RunFileReader(const HMIAccess* access, Read read) {
    return HMIGuardedBool([&] {
        if (!access || !access->PopHeader()) return false;
        const HMIComApartment com;
        return com.ok() && read();
    });
}

}  // namespace

extern "C" {

BOOL HMIGetCommonInfoFile(HMIAccess* access, const WCHAR* path, _tagHMICommonInfo* out) {
    return RunFileReader(access, [&] { return HMIReadCommonInfoFile(path, out); });
}

BOOL HMIGetAvailableMediaFile(HMIAccess* access, const WCHAR* path, _tagHMIAvailableMedia* buffer,
                              size_t bufferBytes, size_t* requiredBytes) {
    return RunFileReader(access, [&] { return HMIReadAvailableMediaFile(path, buffer, bufferBytes, requiredBytes); });
}

BOOL HMIGetMediaInfoHeaderFile(HMIAccess* access, const WCHAR* path, const WCHAR* mediaId,
                               _tagHMIMediaInfoHeader* out) {
    return RunFileReader(access, [&] { return HMIReadMediaInfoHeaderFile(path, mediaId, out); });
}

BOOL HMIGetMediaNameFile(HMIAccess* access, const WCHAR* path, const WCHAR* language, WCHAR* buffer,
                         size_t bufferChars, size_t* requiredChars) {
    return RunFileReader(access,
                         [&] { return HMIReadMediaNameFile(path, language, buffer, bufferChars, requiredChars); });
}

BOOL HMIEnumMediaNamesFile(HMIAccess* access, const WCHAR* path, _tagHMIMediaNameList* buffer, size_t bufferBytes,
                           size_t* requiredBytes) {
    return RunFileReader(access, [&] { return HMIReadMediaNameListFile(path, buffer, bufferBytes, requiredBytes); });
}

HMIXMLMediaDetail* HMIFilterMediaFile(HMIAccess* access, const WCHAR* mediaId, const WCHAR* path) {
    return HMIGuarded<HMIXMLMediaDetail*>(nullptr, [&]() -> HMIXMLMediaDetail* {
        return access ? HMIReadMediaDetailFile(mediaId, path) : nullptr;
    });
}

void HMICloseMediaFile(HMIAccess* access, HMIXMLMediaDetail* detail) {
    HMIGuarded<int>(0, [&] {
        if (!access || !detail) return 0;
        delete detail;
        HMISettleHeap();
        return 0;
    });
}

}  // extern "C"
