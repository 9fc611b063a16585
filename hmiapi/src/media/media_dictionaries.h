// The level dictionaries: each level's typed children by their type, compared as signed 32-bit
// integers so that any value a caller passes can be looked up. They own nothing, and hold a handful
// of entries each.
#ifndef HMI_MEDIA_DICTIONARIES_H
#define HMI_MEDIA_DICTIONARIES_H

#include <cstdint>

#include "common/hmi_small_map.h"
#include "platform/platform.h"

class HMIXMLMediaColorMode;
class HMIXMLMediaBorderlessMode;
class HMIXMLMediaPrintPurpose;
class HMIXMLMediaPrintQuality;

class HMIXMLMediaColorModeDic : public HMIXMLSmallMap<int32_t, const HMIXMLMediaColorMode*> {};
class HMIXMLMediaBorderlessModeDic : public HMIXMLSmallMap<int32_t, const HMIXMLMediaBorderlessMode*> {};
class HMIXMLMediaPrintPurposeDic : public HMIXMLSmallMap<int32_t, const HMIXMLMediaPrintPurpose*> {};
class HMIXMLMediaPrintQualityDic : public HMIXMLSmallMap<int32_t, const HMIXMLMediaPrintQuality*> {};

#endif
