// libFuzzer entry: a document given as text, loaded and queried through the XML access layer.
#include "fuzz/xml_text_exercise.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    hmifuzz::ExerciseXmlText(data, size);
    return 0;
}
