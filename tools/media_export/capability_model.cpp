#include "capability_model.h"

#include <algorithm>

#include "paper_sizes.h"

namespace mediaexport {

bool Offer::Has(int value) const { return std::find(values.begin(), values.end(), value) != values.end(); }

const Node* Node::Child(int value) const {
    const auto at = std::find(below.values.begin(), below.values.end(), value);
    if (at == below.values.end() || children.empty()) return nullptr;
    return &children[static_cast<size_t>(at - below.values.begin())];
}

bool Medium::Supports(int paperSize) const {
    return PaperSizeOf(paperSize) && !(unsupportedSizes >> paperSize & 1u);
}

bool Medium::SupportsAnySize() const {
    for (int size = 0; size < kPaperSizeCount; ++size) {
        if (Supports(size)) return true;
    }
    return false;
}

bool ParseQualityVariant(const std::string& word, QualityVariant* variant) {
    static const char* const kWords[] = {"rgb", "cmyk4d", "cmyk1d", "index"};
    for (DWORD i = 0; i < 4; ++i) {
        if (word == kWords[i]) {
            *variant = static_cast<QualityVariant>(i);
            return true;
        }
    }
    return false;
}

}  // namespace mediaexport
