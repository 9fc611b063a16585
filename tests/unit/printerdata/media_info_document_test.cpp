// Reassembly of a medium's media-information document from its numbered chunks.
#include <gtest/gtest.h>

#include <cstring>

#include "common/hmi_string.h"
#include "printerdata/media_info_document.h"
#include "support/fault_injection.h"
#include "support/media_database.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_xml_query.h"

namespace hmitest {
namespace {

const WString kDocument = W("<medium><note>first half, second half</note></medium>");

class MediaInfoDocument : public ::testing::Test {
protected:
    // The document's text, or "<none>" when nothing loaded.
    std::string Load() {
        HMIComPtr<IXMLDOMDocument2> document(LoadMediaInfoDocument(printer.Reopen(), key.c_str()));
        if (!document) return "<none>";
        WCHAR* text = nullptr;
        if (!HMIGetNodeText(document.get(), &text)) return "<empty>";
        HMIHeapString owned(text);
        return std::string(text, text + std::char_traits<WCHAR>::length(text));
    }
    bool SetCount(std::vector<unsigned char> bytes) {
        return printer.Set(key.c_str(), HMI_W(""), REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
    }
    bool SetChunk(const char* name, const WString& text) {
        return printer.Set(key.c_str(), W(name).c_str(), REG_BINARY, text.data(),
                           static_cast<DWORD>(text.size() * sizeof(WCHAR)));
    }

    HMIComApartment com;
    TestPrinter printer;
    const WString key = MediumKey(0x1A, "HMI");
};

TEST_F(MediaInfoDocument, ChunksAreJoinedInIndexOrder) {
    ASSERT_TRUE(SetCount({2, 0, 0, 0}));
    ASSERT_TRUE(SetChunk("001", kDocument.substr(20)));
    ASSERT_TRUE(SetChunk("000", kDocument.substr(0, 20)));
    ASSERT_TRUE(SetChunk("999", W("ignored")));
    EXPECT_EQ(Load(), "first half, second half");
    ASSERT_TRUE(printer.Remove(key.c_str(), HMI_W("001")));
    EXPECT_EQ(Load(), "<none>");
}

TEST_F(MediaInfoDocument, ChunkCountWidths) {
    ASSERT_TRUE(SetChunk("000", kDocument.substr(0, 10)));
    ASSERT_TRUE(SetChunk("001", kDocument.substr(10, 10)));
    ASSERT_TRUE(SetChunk("002", kDocument.substr(20)));
    struct Case {
        std::vector<unsigned char> count;
        const char* text;
    } cases[] = {
        {{3}, "first half, second half"},
        {{3, 0}, "first half, second half"},
        {{3, 0, 0, 0}, "first half, second half"},
        {{3, 0, 0, 0, 0, 0, 0, 0}, "<none>"},  // more than 4 bytes, though the number fits
        {{0, 0, 0, 0}, "<none>"},
        {{4, 0, 0, 0}, "<none>"},  // chunk 003 missing
        {{0xFF, 0xFF, 0xFF, 0xFF}, "<none>"},
        {{}, "<none>"},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(SetCount(c.count));
        EXPECT_EQ(Load(), c.text) << "count of " << c.count.size() << " bytes";
    }
    ASSERT_TRUE(printer.Remove(key.c_str(), HMI_W("")));
    EXPECT_EQ(Load(), "<none>");
}

TEST_F(MediaInfoDocument, ZeroUnitEndsTheText) {
    ASSERT_TRUE(SetCount({2}));
    ASSERT_TRUE(SetChunk("000", kDocument + WString(1, 0)));
    ASSERT_TRUE(SetChunk("001", W("<trailing/>") + WString(1, 0)));
    EXPECT_EQ(Load(), "first half, second half");
    ASSERT_TRUE(SetChunk("000", kDocument.substr(0, 20) + WString(1, 0)));
    ASSERT_TRUE(SetChunk("001", kDocument.substr(20)));
    EXPECT_EQ(Load(), "<none>");
}

TEST_F(MediaInfoDocument, ChunkThousandIsTheThousandAndFirst) {
    ASSERT_TRUE(SetCount({0xE9, 0x03}));  // 1001
    ASSERT_TRUE(SetChunk("000", W("<medium><note>")));
    for (int i = 1; i < 1000; ++i) {
        char name[8];
        std::snprintf(name, sizeof name, "%03d", i);
        ASSERT_TRUE(SetChunk(name, W("x")));
    }
    ASSERT_TRUE(SetChunk("1000", W("</note></medium>")));
    ASSERT_TRUE(SetChunk("0999", W("never read")));
    EXPECT_EQ(Load(), std::string(999, 'x'));
}

TEST_F(MediaInfoDocument, NullArgumentsAndMissingKey) {
    EXPECT_EQ(LoadMediaInfoDocument(nullptr, key.c_str()), nullptr);
    EXPECT_EQ(LoadMediaInfoDocument(printer.handle(), nullptr), nullptr);
    EXPECT_EQ(Load(), "<none>");
}

TEST_F(MediaInfoDocument, AllocationFailureAtEveryStep) {
    ASSERT_TRUE(SetCount({2}));
    ASSERT_TRUE(SetChunk("000", kDocument.substr(0, 20)));
    ASSERT_TRUE(SetChunk("001", kDocument.substr(20)));
    HANDLE handle = printer.Reopen();
    const long before = LiveAllocations();
    ForEachAllocationFailure(
        [&] {
            IXMLDOMDocument2* document = LoadMediaInfoDocument(handle, key.c_str());
            if (document) document->Release();
        },
        [&](bool) { EXPECT_EQ(LiveAllocations(), before); });
}

}  // namespace
}  // namespace hmitest
