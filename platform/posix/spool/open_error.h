// The reason why the last OpenPrinterW on this thread failed (HMISpoolLastOpenError).
#ifndef HMI_SPOOL_OPEN_ERROR_H
#define HMI_SPOOL_OPEN_ERROR_H

namespace hmispool {

// printf-style; long reasons are cut. Never allocates, so it works when memory is short.
void SetOpenError(const char* format, ...) __attribute__((format(printf, 1, 2)));
void ClearOpenError();
const char* OpenError();

}  // namespace hmispool

#endif
