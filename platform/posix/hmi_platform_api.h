// Linux: our own substitutes for the Windows pieces the library uses.
#ifndef HMI_PLATFORM_API_H
#define HMI_PLATFORM_API_H

#include "posix/types.h"
#include "posix/crt/crt.h"
#include "posix/com/com.h"
#include "posix/msxml/msxml.h"
#include "posix/spool/winspool.h"

#endif
