// The File entry points on three files written from the input and on one path the input names.
//
// Input: the allocation-failure byte, then fields separated by 0x1E: the language, the media id, a
// path below the files' directory, and the contents of the database file, the names file and the
// media-information document.
#ifndef HMI_FUZZ_FILE_READERS_EXERCISE_H
#define HMI_FUZZ_FILE_READERS_EXERCISE_H

#include <chrono>
#include <filesystem>
#include <fstream>

#include "fuzz/fuzz_support.h"

namespace hmifuzz {

// A private directory, removed with everything in it.
struct ScratchDirectory {
    const std::filesystem::path dir = std::filesystem::temp_directory_path() /
        ("hmi-fuzz-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    ScratchDirectory() { std::filesystem::create_directories(dir); }
    ~ScratchDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(dir, ignored);
    }
    WString Write(const char* name, std::string_view bytes) const {
        std::ofstream(dir / name, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return (dir / name).string<WCHAR>();
    }
};

// A sized File reader: the size probe, then the read into a block of the answered size.
template <typename Record, typename Read>
void AskSized(Read read) {
    size_t required = 0;
    read(nullptr, 0, &required);
    auto* block = static_cast<Record*>(required ? std::malloc(required) : nullptr);
    if (block) read(block, required, &required);
    std::free(block);
}

inline void AskFile(HMIAccess* access, const WCHAR* path, const WCHAR* language, const WCHAR* mediaId) {
    _tagHMICommonInfo common;
    HMIGetCommonInfoFile(access, path, &common);
    AskSized<_tagHMIAvailableMedia>([&](_tagHMIAvailableMedia* b, size_t n, size_t* r) {
        return HMIGetAvailableMediaFile(access, path, b, n, r);
    });
    _tagHMIMediaInfoHeader header;
    HMIGetMediaInfoHeaderFile(access, path, mediaId, &header);
    WCHAR name[8];
    size_t needed = 0;
    HMIGetMediaNameFile(access, path, language, name, 8, &needed);
    AskSized<_tagHMIMediaNameList>([&](_tagHMIMediaNameList* b, size_t n, size_t* r) {
        return HMIEnumMediaNamesFile(access, path, b, n, r);
    });
    HMIXMLMediaDetail* detail = HMIFilterMediaFile(access, mediaId, path);
    AskCascade(access, detail, nullptr);
    HMICloseMediaFile(access, detail);
}

inline void ExerciseFileReaders(const uint8_t* data, size_t size) {
    Input input(data, size);
    const uint8_t failure = input.Byte();
    const WString language = Units(input.Until('\x1e'));
    const WString mediaId = Units(input.Until('\x1e'));
    const WString named = Units(input.Until('\x1e'));
    const ScratchDirectory files;
    const WString paths[] = {files.Write("database.xml", input.Until('\x1e')), files.Write("names.xml", input.Until('\x1e')),
                             files.Write("medium.xml", input.Until('\x1e')), files.dir.string<WCHAR>() + WCHAR('/') + named};
    AllocationFailure fault(failure);
    HMIAccess* access = HMIOpen(nullptr);
    for (const WString& path : paths) AskFile(access, path.c_str(), language.c_str(), mediaId.c_str());
    HMIClose(access);
}

}  // namespace hmifuzz

#endif
