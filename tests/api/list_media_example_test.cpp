// The C example (examples/list-media.c, built against the library as a driver engineer builds it)
// run on a printer that the fixture fills: a Wine printer under Wine, a store file on Linux.
#include <gtest/gtest.h>

#include <string>

#include "support/full_medium.h"
#include "support/run_program.h"

namespace hmitest {
namespace {

ProgramRun RunExample(const std::vector<std::string>& arguments) { return RunProgram(HMI_LIST_MEDIA, arguments); }

TEST(ListMediaExample, ListsNamesAndOneMediumsQualitiesAndReportsWhatIsMissing) {
    TestPrinter printer;
    ASSERT_TRUE(WriteDatabase(printer, {{"00000007", "Full"}, {"00000008", "Nameless"}}) &&
                WriteMedium(printer, 7, FullMediumBody()) &&
                printer.SetText(MediumKey(7, "HMN").c_str(), HMI_W("de"), HMI_W("Voll")));
    ASSERT_NE(printer.Reopen(), nullptr);
    const std::string name(printer.name().begin(), printer.name().end());  // ASCII
    const auto [out, status] = RunExample({name, "de", "Full"});
    EXPECT_EQ(status, 1) << out;  // "Nameless" has no German name
    for (const char* line : {"Full\tVoll\n", "Nameless\t(no name)\n", "the medium 'Nameless' has no name in 'de'",
                             "\nFull:\n  colour mode color\n    borderless OFF\n    borderless ON\n      photo  qualities: 1 3 5\n"}) {
        EXPECT_NE(out.find(line), std::string::npos) << line << " in:\n" << out;
    }
    const auto [missing, missingStatus] = RunExample({name + "x"});
    EXPECT_EQ(missingStatus, 2);
    EXPECT_NE(missing.find("cannot open the printer '" + name + "x'"), std::string::npos) << missing;
}

}  // namespace
}  // namespace hmitest
