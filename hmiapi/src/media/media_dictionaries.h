// The level dictionaries: each level's typed children by their type. They own nothing.
#ifndef HMI_MEDIA_DICTIONARIES_H
#define HMI_MEDIA_DICTIONARIES_H

#include <functional>

#include "common/hmi_map.h"
#include "platform/platform.h"

class HMIXMLMediaColorMode;
class HMIXMLMediaBorderlessMode;
class HMIXMLMediaPrintPurpose;
class HMIXMLMediaPrintQuality;

class HMIXMLMediaColorModeDic
    : public HMIXMLMap<tagHMI_COLORMODE, const HMIXMLMediaColorMode*, 0, std::less<tagHMI_COLORMODE>> {};
class HMIXMLMediaBorderlessModeDic
    : public HMIXMLMap<_tagHMI_ONOFF, const HMIXMLMediaBorderlessMode*, 0, std::less<_tagHMI_ONOFF>> {};
class HMIXMLMediaPrintPurposeDic
    : public HMIXMLMap<tagHMI_PRINTPURPOSE, const HMIXMLMediaPrintPurpose*, 0, std::less<tagHMI_PRINTPURPOSE>> {};
class HMIXMLMediaPrintQualityDic
    : public HMIXMLMap<tagHMI_PRINTQUALITY, const HMIXMLMediaPrintQuality*, 0, std::less<tagHMI_PRINTQUALITY>> {};

#endif
