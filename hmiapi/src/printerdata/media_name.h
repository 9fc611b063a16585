// A medium's name in one language, from the name key of the printer data.
#ifndef HMI_PRINTERDATA_MEDIA_NAME_H
#define HMI_PRINTERDATA_MEDIA_NAME_H

#include <cstddef>

#include "printerdata/pop_header.h"

// Copies the stored bytes as they are, without adding a terminator the stored name lacks.
// On a too-small buffer fails with *requiredChars = stored characters + 1; on other failures after
// the medium was found, with *requiredChars = 0.
bool ReadMediaName(HANDLE printer, const HMIPopHeader& database, const WCHAR* mediaId, const WCHAR* language,
                   WCHAR* buffer, size_t bufferChars, size_t* requiredChars);

#endif
