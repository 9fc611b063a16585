// The level dictionaries: each level's typed children by their type, compared as signed 32-bit
// integers so that any value a caller passes can be looked up. They own nothing.
#ifndef HMI_MEDIA_DICTIONARIES_H
#define HMI_MEDIA_DICTIONARIES_H

#include <cstdint>
#include <functional>

#include "common/hmi_map.h"
#include "platform/platform.h"

class HMIXMLMediaColorMode;
class HMIXMLMediaBorderlessMode;
class HMIXMLMediaPrintPurpose;
class HMIXMLMediaPrintQuality;

class HMIXMLMediaColorModeDic
    : public HMIXMLMap<int32_t, const HMIXMLMediaColorMode*, 0, std::less<int32_t>> {};
class HMIXMLMediaBorderlessModeDic
    : public HMIXMLMap<int32_t, const HMIXMLMediaBorderlessMode*, 0, std::less<int32_t>> {};
class HMIXMLMediaPrintPurposeDic
    : public HMIXMLMap<int32_t, const HMIXMLMediaPrintPurpose*, 0, std::less<int32_t>> {};
class HMIXMLMediaPrintQualityDic
    : public HMIXMLMap<int32_t, const HMIXMLMediaPrintQuality*, 0, std::less<int32_t>> {};

#endif
