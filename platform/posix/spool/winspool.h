// The spooler's printer-data functions as the library sees them: libhmispool's C header and the
// error codes it answers with.
#ifndef HMI_POSIX_WINSPOOL_H
#define HMI_POSIX_WINSPOOL_H

#include <cstddef>
#include "posix/spool/hmispool.h"
#include "posix/types.h"

#ifndef ERROR_INVALID_PRINTER_NAME
#define ERROR_INVALID_PRINTER_NAME 1801L
#endif
#ifndef ERROR_BAD_PATHNAME
#define ERROR_BAD_PATHNAME 161L
#endif
#ifndef ERROR_NOACCESS
#define ERROR_NOACCESS 998L
#endif

static_assert(sizeof(PRINTER_ENUM_VALUESW) == 32, "PRINTER_ENUM_VALUESW has the Windows x64 size");
static_assert(offsetof(PRINTER_ENUM_VALUESW, pValueName) == 0, "Windows x64 layout");
static_assert(offsetof(PRINTER_ENUM_VALUESW, cbValueName) == 8, "Windows x64 layout");
static_assert(offsetof(PRINTER_ENUM_VALUESW, dwType) == 12, "Windows x64 layout");
static_assert(offsetof(PRINTER_ENUM_VALUESW, pData) == 16, "Windows x64 layout");
static_assert(offsetof(PRINTER_ENUM_VALUESW, cbData) == 24, "Windows x64 layout");

#endif
