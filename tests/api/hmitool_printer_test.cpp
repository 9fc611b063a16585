// hmitool on a printer of the platform's own kind: a spooler printer under Wine, named beyond the ANSI
// code page so that only the wide command line reaches it; a store file on Linux.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "support/media_database.h"
#include "support/run_program.h"
#include "xrvhmi.h"
#ifdef _WIN32
#include <windows.h>
#endif

namespace hmitest {
namespace {

const std::string kSources = HMI_SAMPLES_DIR "/sample-printer";

// What the library reads of the printer: the media count and a name in a non-ASCII language.
void ExpectSampleMedia(TestPrinter& printer) {
    HMIAccess* access = HMIOpen(printer.Reopen());
    ASSERT_NE(access, nullptr);
    size_t required = 0;
    HMIGetAvailableMedia(access, nullptr, 0, &required);
    std::vector<uint64_t> block((required + 7) / 8);
    auto* media = reinterpret_cast<_tagHMIAvailableMedia*>(block.data());
    ASSERT_TRUE(HMIGetAvailableMedia(access, media, required, &required));
    EXPECT_EQ(media->count, 27u);
    WCHAR name[64] = {};
    size_t chars = 0;
    EXPECT_TRUE(HMIGetMediaName(access, HMI_W("PhotoLuster"), HMI_W("ja"), name, 64, &chars));
    EXPECT_EQ(WString(name), WString(HMI_W("\u5199\u771f\u7528\u7d19 \u30e9\u30b9\u30bf\u30fc")));
    _tagHMIMediaInfoHeader header;
    EXPECT_FALSE(HMIGetMediaInfoHeader(access, HMI_W("Replaced"), &header));  // the old database is gone
    HMIClose(access);
}

TEST(HmitoolPrinter, PacksTheSampleIntoAPrinterAndReadsItBackByItsName) {
    TestPrinter printer(HMI_W("B\u00fcro \u5199 "));
    ASSERT_TRUE(printer.ok() && WriteDatabase(printer, {{"0000004F", "Replaced"}}));
    ASSERT_NE(printer.Reopen(), nullptr);  // on Linux, the store is written back as the handle closes
    const std::string name = Utf8(printer.name());
    const ProgramRun packed = RunProgram(HMI_TOOL, {"pack", "--keep-rejected", kSources, name});
    ASSERT_EQ(packed.status, 0) << packed.output;
    EXPECT_NE(packed.output.find(": 27 media, 194 document chunks"), std::string::npos) << packed.output;
    ExpectSampleMedia(printer);

    const ProgramRun names = RunProgram(HMI_TOOL, {"names", name, "PhotoLuster"});
    EXPECT_EQ(names.status, 0) << names.output;
    EXPECT_NE(names.output.find("fr   Papier photo lustr\u00e9\n"), std::string::npos) << names.output;
    const ProgramRun medium = RunProgram(HMI_TOOL, {"show", name, "PhotoLuster"});
    EXPECT_EQ(medium.status, 0);
    EXPECT_EQ(medium.output.rfind("medium PhotoLuster\n", 0), 0u) << medium.output.substr(0, 200);
    // The rejected sample medium is stored, and reported.
    EXPECT_EQ(RunProgram(HMI_TOOL, {"show", name, "MetallicFilmNoThreeposition"}).status, 1);
}

TEST(HmitoolPrinter, RefusedSourcesLeaveThePrinterAsItWas) {
    TestPrinter printer;
    ASSERT_TRUE(printer.ok());
    ASSERT_TRUE(WriteDatabase(printer, {{"00000007", "Kept"}}));
    const ProgramRun refused = RunProgram(HMI_TOOL, {"pack", kSources, Utf8(printer.name())});
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.output.find("rejected by the library"), std::string::npos) << refused.output;
    HMIAccess* access = HMIOpen(printer.Reopen());
    ASSERT_NE(access, nullptr);
    _tagHMIMediaInfoHeader header;
    EXPECT_TRUE(HMIGetMediaInfoHeader(access, HMI_W("Kept"), &header));
    HMIClose(access);
}

#ifdef _WIN32
// regedit is the importer of Windows; on Linux the store reads the same file (the CLI test).
TEST(HmitoolPrinter, RegeditImportsAPackedStoreWithEveryNameIntact) {
    TestPrinter printer(HMI_W("Regedit \u00e9 "));
    ASSERT_TRUE(printer.ok());
    const std::string name = Utf8(printer.name());
    // A file name beyond the ANSI code page as well: the tool writes it through the wide API.
    const std::wstring file = L"hmitool-r\u00e9gedit-" + std::to_wstring(GetCurrentProcessId()) + L".reg";
    const ProgramRun packed =
        RunProgram(HMI_TOOL, {"pack", "--keep-rejected", "--printer-key", name, kSources, Utf8(file)});
    ASSERT_EQ(packed.status, 0) << packed.output;
    EXPECT_EQ(_wsystem((L"regedit /s \"" + file + L"\"").c_str()), 0);
    EXPECT_EQ(_wremove(file.c_str()), 0);
    ExpectSampleMedia(printer);
}
#endif

}  // namespace
}  // namespace hmitest
