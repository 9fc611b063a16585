// Windows: what the system says of an error code, on one line.
#ifndef HMITOOL_SYSTEM_ERROR_H
#define HMITOOL_SYSTEM_ERROR_H

#include <string>

#include "text.h"

namespace hmitool {

// "error CODE: message", without the line break the system appends.
std::string SystemErrorText(DWORD code);

}  // namespace hmitool

#endif
