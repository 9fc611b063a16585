// One media-information document, stored in chunks for the only medium of a database, then asked
// through HMIFilterMedia and every query below it.
//
// Input: the allocation-failure byte, the chunk size (16 units times one more than the byte), then
// the document (as in Units).
#ifndef HMI_FUZZ_MEDIA_DOCUMENT_EXERCISE_H
#define HMI_FUZZ_MEDIA_DOCUMENT_EXERCISE_H

#include "fuzz/fuzz_support.h"
#include "support/media_database.h"

namespace hmifuzz {

inline void ExerciseMediaDocument(const uint8_t* data, size_t size) {
    Input input(data, size);
    const uint8_t failure = input.Byte();
    const size_t chunkUnits = 16 * (1 + size_t{input.Byte()});
    hmitest::TestPrinter printer;
    if (!printer.ok() || !hmitest::WriteDatabase(printer, {{"0000002A", "M"}}) ||
        !hmitest::WriteMediaDocument(printer, 0x2A, Units(input.Rest()), chunkUnits)) {
        return;
    }
    AllocationFailure fault(failure);
    HMIAccess* access = HMIOpen(printer.handle());
    AskCascade(access, HMIFilterMedia(access, HMI_W("M")), HMI_W("M"));
    HMIClose(access);
}

}  // namespace hmifuzz

#endif
