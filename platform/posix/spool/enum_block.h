// The block EnumPrinterDataExW fills: the PRINTER_ENUM_VALUESW array, then each value's name (at a
// 2-byte boundary) and data (at an 8-byte boundary) in the order of the entries.
#ifndef HMI_SPOOL_ENUM_BLOCK_H
#define HMI_SPOOL_ENUM_BLOCK_H

#include <cstdint>

#include "printer_store.h"

namespace hmispool {

// Exact size of the block for the key's values (64-bit: it may exceed a DWORD).
uint64_t EnumBlockSize(const StoreKey& key);

// Fills a block of at least EnumBlockSize(key) bytes.
void FillEnumBlock(const StoreKey& key, BYTE* block);

}  // namespace hmispool

#endif
