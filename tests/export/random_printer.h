// Generated printers as directories of files laid out as samples/sample-printer (database.xml,
// names/ID.xml, media/ID.xml), for comparing exports with the library over many shapes of data.
#ifndef HMI_TESTS_EXPORT_RANDOM_PRINTER_H
#define HMI_TESTS_EXPORT_RANDOM_PRINTER_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace exporttest {

// What a generated printer holds, by the shapes the export must handle ("all-node-color",
// "only-off", "rejected", ...): the test checks that the whole run covers each of them.
struct GeneratedPrinter {
    std::string directory;
    std::set<std::string> features;
};

// Writes the printer of seed into directory (created, or emptied first). The same seed always gives
// the same files. Each printer has 2 to 6 media, at least one of which the export keeps.
GeneratedPrinter WriteRandomPrinter(uint32_t seed, const std::string& directory);

// The features every run over enough seeds must have met.
const std::set<std::string>& ExpectedFeatures();

// How many generated printers a test compares: fewer under the sanitizers, where the tool and the
// checks run several times slower.
uint32_t GeneratedPrinterCount();

// A fresh directory under the temporary directory, removed with its contents unless Keep() was called
// (a failing test keeps its printers for the report).
class ScratchDirectory {
public:
    explicit ScratchDirectory(const std::string& name);
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::string& path() const { return path_; }
    void Keep() { keep_ = true; }

private:
    std::string path_;
    bool keep_ = false;
};

struct ExportRun {
    int status = -1;     // the tool's exit status
    std::string output;  // what it wrote to stdout and stderr
};

// Runs `hmitool export KIND --from-files DIR -o DIR.EXTENSION ARGS` for each directory, two at a time.
std::vector<ExportRun> ExportAll(const std::string& tool, const std::string& kind, const std::string& extension,
                                 const std::vector<std::string>& directories, const std::vector<std::string>& args);

// Calls work(i) for each i below count, on two threads (the machines have two cores).
void ForEachOnTwoThreads(size_t count, const std::function<void(size_t)>& work);

// Runs a shell command; its exit status and what it printed.
ExportRun RunCommand(const std::string& command);
std::string ShellQuoted(const std::string& word);

}  // namespace exporttest

#endif
