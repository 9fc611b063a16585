// The exported entry points: argument checks, then the handle's workers, inside the export boundary.
#include <memory>
#include <new>

#include "access/export_guard.h"
#include "access/hmi_access.h"
#include "printerdata/media_name.h"

extern "C" {

HMIAccess* HMIOpen(HANDLE printerHandle) {
    return HMIGuarded<HMIAccess*>(nullptr, [&]() -> HMIAccess* {
        std::unique_ptr<HMIAccess> access(new (std::nothrow) HMIAccess(printerHandle));
        if (!access || !access->Initialize()) return nullptr;
        return access.release();
    });
}

BOOL HMIUpdatePrinterHandle(HMIAccess* access, HANDLE printerHandle) {
    return HMIGuardedBool([&] {
        if (!access) return false;
        access->UpdatePrinterHandle(printerHandle);
        return true;
    });
}

void HMIClose(HMIAccess* access) {
    HMIGuarded<int>(0, [&] {
        delete access;
        return 0;
    });
}

BOOL HMIGetCommonInfo(HMIAccess* access, _tagHMICommonInfo* out) {
    return HMIGuardedBool([&] { return access && access->GetCommonInfo(out); });
}

BOOL HMIGetAvailableMedia(HMIAccess* access, _tagHMIAvailableMedia* buffer, size_t bufferBytes,
                          size_t* requiredBytes) {
    return HMIGuardedBool([&] { return access && access->GetAvailableMedia(buffer, bufferBytes, requiredBytes); });
}

BOOL HMIGetMediaInfoHeader(HMIAccess* access, const WCHAR* mediaId, _tagHMIMediaInfoHeader* out) {
    return HMIGuardedBool([&] { return access && access->GetMediaInfoHeader(mediaId, out); });
}

BOOL HMIGetMediaName(HMIAccess* access, const WCHAR* mediaId, const WCHAR* language, WCHAR* buffer,
                     size_t bufferChars, size_t* requiredChars) {
    return HMIGuardedBool([&] {
        return access && access->PopHeader() &&
               ReadMediaName(access->PrinterHandle(), *access->PopHeader(), mediaId, language, buffer, bufferChars,
                             requiredChars);
    });
}

}  // extern "C"
