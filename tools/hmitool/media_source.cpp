#include "media_source.h"

namespace hmitool {

std::unique_ptr<MediaSource> OpenMediaSource(const std::string& name, const Options& options) {
    return options.fromFiles ? OpenFileSource(name) : OpenPrinterSource(name);
}

}  // namespace hmitool
