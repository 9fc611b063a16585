// Generated printers as directories of files laid out as samples/sample-printer (database.xml,
// names/ID.xml, media/ID.xml), for comparing exports with the library over many shapes of data.
#ifndef HMI_TESTS_EXPORT_RANDOM_PRINTER_H
#define HMI_TESTS_EXPORT_RANDOM_PRINTER_H

#include <cstdint>
#include <set>
#include <string>

namespace exporttest {

// Writes the printer of seed into directory (created, or emptied first): the same seed always gives the
// same files. Each has 2 to 6 media, at least one of which the export keeps. Returns the shapes the
// export must handle that it holds ("all-node-color", "only-off", "rejected", ...).
std::set<std::string> WriteRandomPrinter(uint32_t seed, const std::string& directory);

// The shapes every run over enough seeds must have met.
const std::set<std::string>& ExpectedFeatures();

}  // namespace exporttest

#endif
