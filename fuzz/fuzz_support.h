// What the fuzz harnesses share: reading an input, the allocation-failure byte, and asking a handle
// everything a driver can ask through the exports.
#ifndef HMI_FUZZ_FUZZ_SUPPORT_H
#define HMI_FUZZ_FUZZ_SUPPORT_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "support/fault_injection.h"
#include "xrvhmi.h"

namespace hmifuzz {

using WString = std::basic_string<WCHAR>;

// An input consumed from the front.
class Input {
public:
    Input(const uint8_t* data, size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}
    explicit Input(std::string_view bytes) : rest_(bytes) {}
    uint8_t Byte() {
        if (rest_.empty()) return 0;
        const uint8_t b = static_cast<uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return b;
    }
    // Up to the separator (dropped) or the end.
    std::string_view Until(char separator) {
        const size_t end = rest_.find(separator);
        const std::string_view part = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        return part;
    }
    std::string_view Rest() const { return rest_; }
    bool empty() const { return rest_.empty(); }

private:
    std::string_view rest_;
};

// A text field: UTF-16LE code units after the byte-order mark FF FE, otherwise one code unit per byte.
inline WString Units(std::string_view bytes) {
    WString out;
    if (bytes.size() >= 2 && bytes.substr(0, 2) == "\xFF\xFE") {
        for (size_t i = 2; i + 1 < bytes.size(); i += 2) {
            out.push_back(static_cast<WCHAR>(static_cast<uint8_t>(bytes[i]) | static_cast<uint8_t>(bytes[i + 1]) << 8));
        }
    } else {
        for (char c : bytes) out.push_back(static_cast<uint8_t>(c));
    }
    return out;
}

// The allocation-failure byte: 0 fails nothing; otherwise its low seven bits choose the allocation
// (1 to 32 one by one, then spreading out to about 4,500), and the high bit keeps every later one failing.
class AllocationFailure {
public:
    explicit AllocationFailure(uint8_t choice) : armed_(choice != 0) {
        const long n = choice & 0x7F;
        if (armed_) hmitest::ArmAllocationFailure(n <= 32 ? n : 32 + (n - 32) * (n - 32) / 2, (choice & 0x80) != 0);
    }
    ~AllocationFailure() {
        if (armed_) hmitest::DisarmAllocationFailure();
    }
    AllocationFailure(const AllocationFailure&) = delete;
    AllocationFailure& operator=(const AllocationFailure&) = delete;

private:
    bool armed_;
};

// A level's listed values and the value its table files as invalid; no allocation, so that only the
// library's allocations fail. (Values outside an enumeration's range are the API tests' business: a
// C++ caller cannot form them.)
template <typename E>
struct Values {
    E value[16];
    size_t count = 0;
    const E* begin() const { return value; }
    const E* end() const { return value + count; }
};

template <typename List, typename E>
Values<E> ValuesOf(const List& list, bool answered, E invalid) {
    constexpr size_t kCapacity = sizeof list.values / sizeof list.values[0];
    static_assert(kCapacity < 16, "room for the invalid value");
    Values<E> values;
    for (uint64_t i = 0; answered && i < list.count && i < kCapacity; ++i) values.value[values.count++] = list.values[i];
    values.value[values.count++] = invalid;
    return values;
}

// Every quality of every variant below a print purpose.
inline void AskQualities(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose) {
    _tagHMIPrintPurposeInfo info;
    HMIGetPrintPurposeInfo(access, purpose, &info);
    for (DWORD variant = 0; variant <= 4; ++variant) {
        _tagHMIAvailablePrintQuality qualities;
        const bool answered = HMIGetAvailablePrintQuality(access, purpose, variant, &qualities);
        for (tagHMI_PRINTQUALITY q : ValuesOf(qualities, answered, HMI_PRINTQUALITY_INVALID)) {
            _tagHMIPrintQualityInfo quality;
            HMIGetPrintQualityInfo(access, purpose, variant, q, &quality);
        }
    }
}

// The whole cascade of one medium, through the node queries and through the Direct forms.
inline void AskCascade(HMIAccess* access, HMIXMLMediaDetail* detail, const WCHAR* mediaId) {
    _tagHMIMediaInfo info;
    HMIGetMediaInfo(access, detail, &info);
    if (mediaId) HMIGetMediaInfoDirect(access, mediaId, &info);
    _tagHMIAvailableColorMode colors;
    const bool colorsAnswered = HMIGetAvailableColorMode(access, detail, &colors);
    for (tagHMI_COLORMODE color : ValuesOf(colors, colorsAnswered, HMI_COLORMODE_INVALID)) {
        HMIXMLMediaColorMode* colorNode = HMIFilterColorMode(access, detail, color);
        _tagHMIAvailableBorderless onoffs;
        const bool onoffsAnswered = HMIGetAvailableBorderless(access, colorNode, &onoffs);
        for (_tagHMI_ONOFF borderless : ValuesOf(onoffs, onoffsAnswered, HMI_ONOFF_INVALID)) {
            HMIXMLMediaBorderlessMode* borderlessNode = HMIFilterBorderless(access, colorNode, borderless);
            _tagHMIAvailablePrintPurpose purposes;
            const bool purposesAnswered = HMIGetAvailablePrintPurpose(access, borderlessNode, &purposes);
            for (tagHMI_PRINTPURPOSE purpose : ValuesOf(purposes, purposesAnswered, HMI_PRINTPURPOSE_INVALID)) {
                AskQualities(access, HMIFilterPrintPurpose(access, borderlessNode, purpose));
                if (mediaId) HMIFilterPrintPurposeDirect(access, mediaId, color, borderless, purpose);
            }
            if (mediaId) HMIFilterBorderlessDirect(access, mediaId, color, borderless);
        }
        if (mediaId) HMIFilterColorModeDirect(access, mediaId, color);
    }
}

inline const WCHAR* const kLanguages[] = {HMI_W("en"), HMI_W("ja"), HMI_W("fr"), HMI_W("")};

// The database of an open handle: common information, the media list, and for every listed medium its
// header, names and cascade; then the same handle on no printer.
inline void AskDatabase(HMIAccess* access) {
    _tagHMICommonInfo common;
    HMIGetCommonInfo(access, &common);
    size_t required = 0;
    HMIGetAvailableMedia(access, nullptr, 0, &required);
    auto* media = static_cast<_tagHMIAvailableMedia*>(required ? std::malloc(required) : nullptr);
    if (media && HMIGetAvailableMedia(access, media, required, &required)) {
        for (uint64_t i = 0; i < media->count; ++i) {
            WCHAR id[65];
            std::memcpy(id, media->ids[i], sizeof id);
            id[64] = 0;
            _tagHMIMediaInfoHeader header;
            HMIGetMediaInfoHeader(access, id, &header);
            for (const WCHAR* language : kLanguages) {
                WCHAR name[8];
                size_t needed = 0;
                HMIGetMediaName(access, id, language, name, 8, &needed);
            }
            AskCascade(access, HMIFilterMedia(access, id), id);
        }
    }
    std::free(media);
    HMIUpdatePrinterHandle(access, nullptr);
    HMIGetCommonInfo(access, &common);
}

}  // namespace hmifuzz

#endif
