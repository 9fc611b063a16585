#include "ppd_choices.h"

#include "constraint_plan.h"
#include "paper_sizes.h"

namespace mediaexport {

const ChoiceWord kColorModels[2] = {{HMI_COLORMODE_COLOR, "RGB", "<</cupsColorSpace 1/cupsColorOrder 0>>setpagedevice"},
                                   {HMI_COLORMODE_MONOCHROME, "Gray", "<</cupsColorSpace 0/cupsColorOrder 0>>setpagedevice"}};
const ChoiceWord kPurposes[3] = {{HMI_PRINTPURPOSE_PHOTO, "photo", ""}, {HMI_PRINTPURPOSE_PROOF, "proof", ""},
                                {HMI_PRINTPURPOSE_CAD, "cad", ""}};
const ChoiceWord kQualities[5] = {{HMI_PRINTQUALITY_1, "1", ""}, {HMI_PRINTQUALITY_2, "2", ""},
                                 {HMI_PRINTQUALITY_3, "3", ""}, {HMI_PRINTQUALITY_4, "4", ""},
                                 {HMI_PRINTQUALITY_5, "5", ""}};
const ChoiceWord kInputSlots[5] = {{HMI_INPUTBIN_AUTO, "AUTO", "<</MediaPosition 0>>setpagedevice"},
                                  {HMI_INPUTBIN_MANUAL03, "MANUAL03", "<</MediaPosition 1>>setpagedevice"},
                                  {HMI_INPUTBIN_ASF, "asf", "<</MediaPosition 2>>setpagedevice"},
                                  {HMI_INPUTBIN_MANUAL, "manual", "<</MediaPosition 3>>setpagedevice"},
                                  {HMI_INPUTBIN_DISCTRAY, "DISCTRAY", "<</MediaPosition 10>>setpagedevice"}};
const ChoiceWord kCartridges[6] = {{HMI_CARTRIDGE_COLOR, "color", ""},       {HMI_CARTRIDGE_BK, "bk", ""},
                                  {HMI_CARTRIDGE_PHOTO, "photo", ""},       {HMI_CARTRIDGE_BKCOLOR, "bkcolor", ""},
                                  {HMI_CARTRIDGE_PHOTOCOLOR, "photocolor", ""}, {HMI_CARTRIDGE_AUTO, "auto", ""}};
const ChoiceWord kDuplexModes[3] = {{kOneSided, "None", "<</Duplex false>>setpagedevice"},
                                   {kTwoSided, "DuplexNoTumble", "<</Duplex true/Tumble false>>setpagedevice"},
                                   {kTwoSided, "DuplexTumble", "<</Duplex true/Tumble true>>setpagedevice"}};

const char* KeywordOf(ChoiceWords words, int value) {
    for (const ChoiceWord& word : words) {
        if (word.value == value) return word.keyword;
    }
    return words.words[0].keyword;
}

std::string SizeName(int size, bool borderless) {
    const PaperSize& paper = *PaperSizeOf(size);
    return borderless ? FullbleedName(paper) : paper.ppd;
}

}  // namespace mediaexport
