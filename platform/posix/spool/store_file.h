// Where store files live and how they are read and replaced.
#ifndef HMI_SPOOL_STORE_FILE_H
#define HMI_SPOOL_STORE_FILE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace hmispool {

// The store file of a printer name: the name itself when it contains '/' or ends in ".reg",
// otherwise <name>.reg in $HMI_PRINTER_STORE, by default $XDG_DATA_HOME/xrvhmi/printers with
// XDG_DATA_HOME defaulting to ~/.local/share. False with a reason when there is none.
bool ResolveStorePath(std::u16string_view name, std::string& path, std::string& reason);

// The largest store file read; a printer's data is a few hundred kilobytes.
constexpr size_t kMaxStoreFileBytes = size_t{64} << 20;

// The whole store file; false with the reason when it cannot be read, is not a regular file (a
// device or a pipe never ends) or is larger than kMaxStoreFileBytes.
bool ReadStoreFile(const std::string& path, std::string& bytes, std::string& reason);

// Replaces the file at path with bytes: a temporary file in the same directory is written, flushed
// and renamed over it, so readers see the old or the new file, never a part. False with errno set;
// the temporary file is removed then.
bool ReplaceFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace hmispool

#endif
