// The fuzz targets that reach the Windows paths (under Wine through XRVHMI.dll, whose own runtime the
// allocation-failure byte does not reach).
#include "fuzz/file_readers_exercise.h"
#include "fuzz/media_document_exercise.h"
#include "fuzz/printer_data_exercise.h"
#include "fuzz/replay.h"

namespace hmitest {
namespace {

TEST(FuzzReplay, PrinterData) { ReplayFuzzInputs("printer_data", hmifuzz::ExercisePrinterData); }
TEST(FuzzReplay, MediaDocument) { ReplayFuzzInputs("media_document", hmifuzz::ExerciseMediaDocument); }
TEST(FuzzReplay, FileReaders) { ReplayFuzzInputs("file_readers", hmifuzz::ExerciseFileReaders); }

}  // namespace
}  // namespace hmitest
