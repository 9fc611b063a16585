// The readers behind the File entry points. Each loads its file anew and keeps nothing; all but
// HMIReadMediaDetailFile expect COM to be initialised on the calling thread.
#ifndef HMI_FILE_READERS_H
#define HMI_FILE_READERS_H

#include <cstddef>

#include "platform/platform.h"

class HMIXMLMediaDetail;

// The database file's common information, written into *info field by field (never cleared first).
bool HMIReadCommonInfoFile(const WCHAR* path, _tagHMICommonInfo* info) noexcept;

// The ids of every "papertype_info" element; the whole buffer is zeroed before they are written.
bool HMIReadAvailableMediaFile(const WCHAR* path, _tagHMIAvailableMedia* buffer, size_t bufferBytes,
                               size_t* requiredBytes) noexcept;

// The header of the "papertype_info" element whose id is mediaId, written in place.
bool HMIReadMediaInfoHeaderFile(const WCHAR* path, const WCHAR* mediaId, _tagHMIMediaInfoHeader* header) noexcept;

// The name in language from the "iv:medianame_item" elements; sizes in WCHARs.
bool HMIReadMediaNameFile(const WCHAR* path, const WCHAR* language, WCHAR* buffer, size_t bufferChars,
                          size_t* requiredChars) noexcept;

// Every (language, name) of the "medianame_item" elements in no namespace.
bool HMIReadMediaNameListFile(const WCHAR* path, _tagHMIMediaNameList* buffer, size_t bufferBytes,
                              size_t* requiredBytes) noexcept;

// A new option tree, named mediaId, of the file's first medium; owned by the caller. Initialises COM
// around loading and parsing only.
HMIXMLMediaDetail* HMIReadMediaDetailFile(const WCHAR* mediaId, const WCHAR* path) noexcept;

#endif
