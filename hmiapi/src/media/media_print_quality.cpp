#include "media/media_print_quality.h"

#include "media/media_level_fields.h"
#include "media/tag_vocabulary.h"

bool HMIXMLMediaPrintQuality::OnParsed() {
    if (!HMIReadRequiredAttribute(*this, HMI_W("type"), HMIPrintQualityConverter, &info.type)) return false;
    if (!HMIReadRequiredAttribute(*this, HMI_W("threeposition"), HMIPrintQuality3PosConverter, &info.threeposition)) {
        return false;
    }
    HMIReadHexValue(*this, HMI_W("operationflag"), &info.operationflag);
    HMIReadTextValue(*this, HMI_W("output_icc"), info.output_icc);
    HMIReadDecimalValue(*this, HMI_W("bit"), &info.bit);
    HMIReadTextValue(*this, HMI_W("app_filter_id"), info.app_filter_id);
    return HMIReadListValue(*this, HMI_W("availableresolution"), HMITagLongConverter(), &info.availableresolution) &&
           HMIReadListValue(*this, HMI_W("availableclearcoat"), HMIClearCoatConverter, &info.availableclearcoat);
}
