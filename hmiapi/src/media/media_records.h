// The records of the colour-mode and borderless levels: never copied out whole, but their lists are.
#ifndef HMI_MEDIA_RECORDS_H
#define HMI_MEDIA_RECORDS_H

#include <cstddef>
#include <cstdint>

#include "platform/platform.h"

struct HMIColorModeRecord {
    tagHMI_COLORMODE type;
    uint32_t reserved;
    _tagHMIAvailableBorderless availableborderlessprint;
};

struct HMIBorderlessModeRecord {
    _tagHMI_ONOFF type;
    uint32_t reserved;
    _tagHMIAvailablePrintPurpose availableprint_purpose;
};

static_assert(sizeof(HMIColorModeRecord) == 32, "size of the colour-mode record");
static_assert(offsetof(HMIColorModeRecord, availableborderlessprint) == 8, "colour-mode record layout");
static_assert(sizeof(HMIBorderlessModeRecord) == 40, "size of the borderless record");
static_assert(offsetof(HMIBorderlessModeRecord, availableprint_purpose) == 8, "borderless record layout");

#endif
