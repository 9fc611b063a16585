// Reassembly of a medium's media-information document from its numbered chunks.
#include <gtest/gtest.h>

#include "common/hmi_string.h"
#include "printerdata/media_info_document.h"
#include "support/media_database.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_xml_query.h"

namespace hmitest {
namespace {

const WString kDocument = W("<medium><note>first half, second half</note></medium>");
const WString kZero(1, 0);
using Bytes = std::vector<unsigned char>;

class MediaInfoDocument : public ::testing::Test {
protected:
    // The document's text, or "<none>" when nothing loaded.
    std::string Load() {
        HMIComPtr<IXMLDOMDocument2> document(LoadMediaInfoDocument(printer.Reopen(), key.c_str()));
        WCHAR* text = nullptr;
        if (!document || !HMIGetNodeText(document.get(), &text)) return "<none>";
        HMIHeapString owned(text);
        return std::string(text, text + std::char_traits<WCHAR>::length(text));
    }
    // The count (none when null), then the chunks ..., 001, 000: last first, so that order must be restored.
    bool Store(const Bytes* count, std::vector<WString> chunks) {
        bool ok = count ? printer.Set(key.c_str(), HMI_W(""), REG_BINARY, count->data(), DWORD(count->size()))
                        : printer.Remove(key.c_str(), HMI_W(""));
        for (size_t i = chunks.size(); ok && i-- > 0;) {
            const WString name = W(std::string(2, '0') + char('0' + i));
            ok = printer.Set(key.c_str(), name.c_str(), REG_BINARY, chunks[i].data(), DWORD(chunks[i].size() * 2));
        }
        return ok;
    }
    HMIComApartment com;
    TestPrinter printer;
    const WString key = MediumKey(0x1A, "HMI");
};

// Counts of 1 to 4 bytes; chunks are joined in index order, a zero unit ends the text.
TEST_F(MediaInfoDocument, CountAndChunks) {
    const WString a = kDocument.substr(0, 10), b = kDocument.substr(10, 10), c = kDocument.substr(20);
    const std::string whole = "first half, second half";
    const struct { Bytes count; std::vector<WString> chunks; std::string text; } cases[] = {
        {{3}, {a, b, c}, whole}, {{3, 0}, {a, b, c}, whole}, {{3, 0, 0, 0}, {a, b, c}, whole},
        {{3, 0, 0, 0, 0, 0, 0, 0}, {a, b, c}, "<none>"},  // more than 4 bytes, though the number fits
        {{0, 0, 0, 0}, {a, b, c}, "<none>"}, {{4, 0, 0, 0}, {a, b, c}, "<none>"},  // chunk 003 missing
        {{0xFF, 0xFF, 0xFF, 0xFF}, {a, b, c}, "<none>"}, {{}, {a, b, c}, "<none>"},
        {{2}, {kDocument + kZero, W("<trailing/>") + kZero}, whole},
        {{2}, {kDocument.substr(0, 20) + kZero, c}, "<none>"},
    };
    for (const auto& k : cases) {
        ASSERT_TRUE(Store(&k.count, k.chunks));
        EXPECT_EQ(Load(), k.text) << "case #" << (&k - cases);
    }
    ASSERT_TRUE(Store(nullptr, {}));
    EXPECT_EQ(Load(), "<none>");
    EXPECT_EQ(LoadMediaInfoDocument(nullptr, key.c_str()), nullptr);
    EXPECT_EQ(LoadMediaInfoDocument(printer.handle(), nullptr), nullptr);
}

TEST_F(MediaInfoDocument, ChunkThousandIsTheThousandAndFirst) {
    const Bytes count = {0xE9, 0x03};  // 1001
    const WString never = W("never read");
    // Written first, so that a name wrongly taken for a chunk comes before the real one.
    for (const char* name : {"0999", "01", "0002", "+003", " 004", "005 "})
        ASSERT_TRUE(printer.Set(key.c_str(), W(name).c_str(), REG_BINARY, never.data(), DWORD(never.size() * 2)));
    ASSERT_TRUE(Store(&count, {W("<medium><note>")}));
    for (int i = 1; i < 1000; ++i) {
        char name[8];
        std::snprintf(name, sizeof name, "%03d", i);
        ASSERT_TRUE(printer.Set(key.c_str(), W(name).c_str(), REG_BINARY, HMI_W("x"), 2));
    }
    const WString end = W("</note></medium>");
    ASSERT_TRUE(printer.Set(key.c_str(), HMI_W("1000"), REG_BINARY, end.data(), DWORD(end.size() * 2)));
    EXPECT_EQ(Load(), std::string(999, 'x'));
}

}  // namespace
}  // namespace hmitest
