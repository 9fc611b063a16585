// A medium's option cascade as a driver sees it: asked only through the exports, level by level,
// for every value of each level's available list and its default.
#ifndef HMITOOL_CASCADE_WRITER_H
#define HMITOOL_CASCADE_WRITER_H

#include <string>

#include "outline_writer.h"
#include "xrvhmi.h"

namespace hmitool {

// A branch is marked "all" when the filter returns for its value the node it returns for the level's
// "all" value; a value the filter gives nothing for is marked as having no branch.
void WriteCascade(OutlineWriter& out, HMIAccess* access, HMIXMLMediaDetail* detail, const std::string& mediaId);

}  // namespace hmitool

#endif
