// HMIGetMediaName: names by language from the medium's name key, with the size-probe arithmetic.
#include <gtest/gtest.h>

#include <vector>

#include "support/media_database.h"

namespace hmitest {
namespace {

class MediaName : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(WriteDatabase(printer, {{"0000001A", "PhotoGlossyPro"}, {"1a", "LowerCaseNumber"}}));
        const WString key = MediumKey(0x1A, "HMN"), odd = W("Photo Glossy");
        ASSERT_TRUE(printer.SetText(key.c_str(), HMI_W("en"), HMI_W("Photo Gloss")));  // 11 + terminator
        ASSERT_TRUE(printer.Set(key.c_str(), HMI_W("de"), REG_SZ, odd.data(), 25));
        ASSERT_NE(access = HMIOpen(printer.Reopen()), nullptr);
    }
    void TearDown() override { HMIClose(access); }
    TestPrinter printer;
    HMIAccess* access = nullptr;
};

// 25 stored bytes: the count rounds down before the terminator's unit is added. The entry "1a" is
// read from subkey ...\1a but its names from ...\0000001A\HMN.
TEST_F(MediaName, ProbeCopyAndFailures) {
    const struct {
        const char* id;
        const WCHAR* language;
        size_t chars;  // 0: a null buffer; 99: a null required
        int result;
        size_t required;  // 99: untouched
        const char* text;
    } cases[] = {
        {"PhotoGlossyPro", HMI_W("en"), 0, 0, 13, ""}, {"PhotoGlossyPro", HMI_W("en"), 11, 0, 13, ""},
        {"PhotoGlossyPro", HMI_W("en"), 12, 1, 0, "Photo Gloss"},
        {"PhotoGlossyPro", HMI_W("en"), 13, 1, 0, "Photo Gloss"},
        {"PhotoGlossyPro", HMI_W("de"), 0, 0, 13, ""}, {"LowerCaseNumber", HMI_W("en"), 32, 1, 0, "Photo Gloss"},
        {"PhotoGlossyPro", HMI_W("fr"), 32, 0, 0, ""}, {"Unknown", HMI_W("en"), 32, 0, 99, ""},
        {"PhotoGlossyPro", nullptr, 32, 0, 99, ""}, {nullptr, HMI_W("en"), 32, 0, 99, ""},
        {"PhotoGlossyPro", HMI_W("en"), 99, 0, 99, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << "case #" << (&c - cases));
        std::vector<WCHAR> buffer(c.chars + 1, 0x7777);
        size_t required = 99;
        const WString id = c.id ? W(c.id) : WString();
        EXPECT_EQ(HMIGetMediaName(access, c.id ? id.c_str() : nullptr, c.language, c.chars ? buffer.data() : nullptr,
                                  c.chars, c.chars == 99 ? nullptr : &required), c.result);
        EXPECT_EQ(required, c.required);
        const WString text = W(c.text);
        std::vector<WCHAR> want(c.chars + 1, 0x7777);
        std::copy(text.c_str(), text.c_str() + (c.result ? text.size() + 1 : 0), want.begin());
        EXPECT_EQ(buffer, want);  // nothing written past the name's terminator, nothing on failure
    }
}

}  // namespace
}  // namespace hmitest
