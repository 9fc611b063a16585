// The sixteen keyword converters: constant data, complete before the library's first call.
#ifndef HMI_MEDIA_TAG_VOCABULARY_H
#define HMI_MEDIA_TAG_VOCABULARY_H

#include "media/tag_converter.h"

extern const HMITagIDConverter<_tagHMI_ONOFF> HMIOnOffConverter;
extern const HMITagIDConverter<tagHMI_COLORMODE> HMIColorModeConverter;
extern const HMITagIDConverter<tagHMI_PRINTPURPOSE> HMIPrintPurposeConverter;
extern const HMITagIDConverter<tagHMI_PRINTQUALITY> HMIPrintQualityConverter;
extern const HMITagIDConverter<tagHMI_PRINTQUALITY3POS> HMIPrintQuality3PosConverter;
extern const HMITagIDConverter<tagHMI_CLEARCOAT> HMIClearCoatConverter;
extern const HMITagIDConverter<tagHMI_DUPLEXPRINT> HMIDuplexPrintConverter;
extern const HMITagIDConverter<tagHMI_CARTRIDGE> HMICartridgeConverter;
extern const HMITagIDConverter<tagHMI_APPHAGAKIMEDIA> HMIAppHagakiMediaConverter;
extern const HMITagIDConverter<tagHMI_HAGAKIAUTODUPLEXMODE> HMIHagakiAutoDuplexModeConverter;
extern const HMITagIDConverter<tagHMI_MEDIACATEGORY> HMIMediaCategoryConverter;
extern const HMITagIDConverter<_tagHMI_PAPERSIZE> HMIPaperSizeConverter;
extern const HMITagIDConverter<_tagHMI_LOCALE> HMILocaleConverter;
extern const HMITagIDConverter<_tagHMI_BKINKTYPE> HMIBkInkTypeConverter;
extern const HMITagIDConverter<_tagHMI_INPUTBIN> HMIInputBinConverter;
extern const HMITagIDConverter<_tagHMI_FINISHER> HMIFinisherConverter;

#endif
