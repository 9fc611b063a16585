// hmitool check FILE: whether the library accepts the medium of a media-information file, and if
// not, which element breaks which rule.
#include <cstdio>
#include <string>

#include "command.h"
#include "media_file.h"
#include "text.h"

namespace hmitool {
namespace {

int RunCheck(const std::vector<std::string>& args, const Options& options) {
    MediumFile file;
    switch (file.Load(args[0])) {
        case MediumFile::Outcome::kUnreadable:
            std::fprintf(stderr, "hmitool: %s\n", MediumFile::UnreadableMessage(args[0]).c_str());
            return kUnreadable;
        case MediumFile::Outcome::kRejected:
            if (options.json) {
                std::printf("{\"accepted\": false, \"element\": %s, \"reason\": %s}\n",
                            JsonQuote(file.rejectedElement()).c_str(), JsonQuote(file.rejectionReason()).c_str());
            } else {
                std::printf("rejected: %s\n", file.Rejection().c_str());
            }
            return kRejected;
        case MediumFile::Outcome::kBuilt:
            break;
    }
    std::puts(options.json ? "{\"accepted\": true}" : "ok");
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("check", "FILE", "whether the medium of a media-information file is accepted, and if not why",
                RunCheck);

}  // namespace hmitool
