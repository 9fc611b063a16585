// HMIAccess: the handle a caller opens for one printer and passes to every entry point.
#ifndef HMI_ACCESS_H
#define HMI_ACCESS_H

#include <cstddef>

#include "platform/platform.h"
#include "printerdata/pop_header.h"

class HMIAccess {
public:
    explicit HMIAccess(HANDLE printer) : printerHandle(printer) {}
    HMIAccess(const HMIAccess&) = delete;
    HMIAccess& operator=(const HMIAccess&) = delete;
    virtual ~HMIAccess();

    // Builds the owned objects and, with a printer handle, loads the paper-type database.
    bool Initialize();

    void UpdatePrinterHandle(HANDLE printer) { printerHandle = printer; }
    HANDLE PrinterHandle() const { return printerHandle; }
    const HMIPopHeader* PopHeader() const { return popHeader; }

    bool GetCommonInfo(_tagHMICommonInfo* out) const;
    bool GetAvailableMedia(_tagHMIAvailableMedia* buffer, size_t bufferBytes, size_t* requiredBytes) const;
    bool GetMediaInfoHeader(const WCHAR* mediaId, _tagHMIMediaInfoHeader* out) const;

private:
    HANDLE printerHandle;
    HMIPopHeader* popHeader = nullptr;
};

#endif
