// HMIAccess: the handle a caller opens for one printer and passes to every entry point.
#ifndef HMI_ACCESS_H
#define HMI_ACCESS_H

#include <cstddef>

#include "platform/platform.h"
#include "media/media_detail_cache.h"
#include "printerdata/pop_header.h"

class HMIAccess {
public:
    explicit HMIAccess(HANDLE printer) : printerHandle(printer) {}
    HMIAccess(const HMIAccess&) = delete;
    HMIAccess& operator=(const HMIAccess&) = delete;
    virtual ~HMIAccess();

    // Builds the owned objects (the detail cache first) and, with a printer handle, loads the
    // paper-type database.
    bool Initialize();

    void UpdatePrinterHandle(HANDLE printer) { printerHandle = printer; }
    HANDLE PrinterHandle() const { return printerHandle; }
    const HMIPopHeader* PopHeader() const { return popHeader; }

    bool GetCommonInfo(_tagHMICommonInfo* out) const;
    bool GetAvailableMedia(_tagHMIAvailableMedia* buffer, size_t bufferBytes, size_t* requiredBytes) const;
    bool GetMediaInfoHeader(const WCHAR* mediaId, _tagHMIMediaInfoHeader* out) const;

    // The medium's option tree from the cache, loaded from the printer data on the first request.
    HMIXMLMediaDetail* FindOrLoadDetail(const WCHAR* mediaId) noexcept;

private:
    HANDLE printerHandle;
    HMIPopHeader* popHeader = nullptr;
    HMIXMLMediaDetailDic* mediaDetailDic = nullptr;
};

#endif
