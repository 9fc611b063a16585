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
        const WString key = MediumKey(0x1A, "HMN");
        ASSERT_TRUE(printer.SetText(key.c_str(), HMI_W("en"), HMI_W("Photo Gloss")));  // 11 + terminator
        const WString odd = W("Photo Glossy");
        ASSERT_TRUE(printer.Set(key.c_str(), HMI_W("de"), REG_SZ, odd.data(), 25));
        access = HMIOpen(printer.Reopen());
        ASSERT_NE(access, nullptr);
    }
    void TearDown() override { HMIClose(access); }

    TestPrinter printer;
    HMIAccess* access = nullptr;
};

TEST_F(MediaName, ProbeThenCopy) {
    size_t required = 99;
    EXPECT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), HMI_W("en"), nullptr, 0, &required), 0);
    EXPECT_EQ(required, 13u);

    std::vector<WCHAR> buffer(14, 0x7777);
    required = 99;
    ASSERT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), HMI_W("en"), buffer.data(), 13, &required), 1);
    EXPECT_EQ(required, 0u);
    EXPECT_EQ(WString(buffer.data()), W("Photo Gloss"));
    EXPECT_EQ(buffer[12], 0x7777);  // the stored 24 bytes end at element 11

    std::vector<WCHAR> exact(12, 0x7777);
    EXPECT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), HMI_W("en"), exact.data(), 12, &required), 1);
    std::vector<WCHAR> small(11, 0x7777);
    EXPECT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), HMI_W("en"), small.data(), 11, &required), 0);
    EXPECT_EQ(required, 13u);
    // 25 stored bytes: the count rounds down before the terminator's unit is added.
    EXPECT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), HMI_W("de"), nullptr, 0, &required), 0);
    EXPECT_EQ(required, 13u);
}

TEST_F(MediaName, FailuresAndWhatTheyReport) {
    WCHAR buffer[32];
    size_t required = 99;
    EXPECT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), HMI_W("fr"), buffer, 32, &required), 0);
    EXPECT_EQ(required, 0u);
    required = 99;
    EXPECT_EQ(HMIGetMediaName(access, HMI_W("Unknown"), HMI_W("en"), buffer, 32, &required), 0);
    EXPECT_EQ(required, 99u);
    EXPECT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), nullptr, buffer, 32, &required), 0);
    EXPECT_EQ(HMIGetMediaName(access, nullptr, HMI_W("en"), buffer, 32, &required), 0);
    EXPECT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), HMI_W("en"), buffer, 32, nullptr), 0);
    EXPECT_EQ(required, 99u);
}

TEST_F(MediaName, NameKeyIsNamedByTheParsedNumber) {
    // The entry "1a" is read from subkey ...\1a but its names from ...\0000001A\HMN.
    WCHAR buffer[32];
    size_t required = 0;
    ASSERT_EQ(HMIGetMediaName(access, HMI_W("LowerCaseNumber"), HMI_W("en"), buffer, 32, &required), 1);
    EXPECT_EQ(WString(buffer), W("Photo Gloss"));
}

TEST_F(MediaName, ReadsThroughTheCurrentPrinterHandle) {
    TestPrinter other;
    ASSERT_TRUE(other.SetText(MediumKey(0x1A, "HMN").c_str(), HMI_W("en"), HMI_W("Other")));
    ASSERT_EQ(HMIUpdatePrinterHandle(access, other.Reopen()), 1);
    WCHAR buffer[32];
    size_t required = 0;
    ASSERT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), HMI_W("en"), buffer, 32, &required), 1);
    EXPECT_EQ(WString(buffer), W("Other"));
    ASSERT_EQ(HMIUpdatePrinterHandle(access, nullptr), 1);
    EXPECT_EQ(HMIGetMediaName(access, HMI_W("PhotoGlossyPro"), HMI_W("en"), buffer, 32, &required), 0);
}

}  // namespace
}  // namespace hmitest
