// The colour-mode level: one colour mode of a medium, and its borderless modes.
#ifndef HMI_MEDIA_COLOR_MODE_H
#define HMI_MEDIA_COLOR_MODE_H

#include "media/media_borderless_mode.h"
#include "media/media_dictionaries.h"
#include "media/media_records.h"

class HMIXMLMediaColorMode
    : public HMIXMLMediaBranch<HMIColorModeRecord, HMIXMLMediaBorderlessMode, HMIXMLMediaBorderlessModeDic> {
public:
    // type starts as the invalid colour mode.
    explicit HMIXMLMediaColorMode(HMIXMLNode* parent) noexcept;
    static HMIXMLNode* Create(HMIXMLNode* parent) noexcept;

    const HMIXMLMediaBorderlessModeDic& BorderlessModes() const { return dictionary; }

protected:
    bool OnParsed() override;
};

#endif
