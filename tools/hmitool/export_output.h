// Where an export goes: standard output ("-"), a path that is not a regular file (a device or a pipe,
// written in place), or a regular file (replaced only once the new one is complete).
#ifndef HMITOOL_EXPORT_OUTPUT_H
#define HMITOOL_EXPORT_OUTPUT_H

#include <string>

namespace hmitool {

// False with a one-line error naming the path and the reason.
bool WriteExport(const std::string& path, const std::string& bytes, std::string* error);

}  // namespace hmitool

#endif
