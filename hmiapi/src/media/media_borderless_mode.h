// The borderless level: borderless printing on or off under one colour mode, and its print purposes.
#ifndef HMI_MEDIA_BORDERLESS_MODE_H
#define HMI_MEDIA_BORDERLESS_MODE_H

#include "media/media_dictionaries.h"
#include "media/media_print_purpose.h"
#include "media/media_records.h"

class HMIXMLMediaBorderlessMode
    : public HMIXMLMediaBranch<HMIBorderlessModeRecord, HMIXMLMediaPrintPurpose, HMIXMLMediaPrintPurposeDic> {
public:
    // type starts as the invalid on/off value.
    explicit HMIXMLMediaBorderlessMode(HMIXMLNode* parent) noexcept;
    static HMIXMLNode* Create(HMIXMLNode* parent) noexcept;

    const HMIXMLMediaPrintPurposeDic& PrintPurposes() const { return dictionary; }

protected:
    bool OnParsed() override;
};

#endif
