// The texts of a database.xml as written, read with the library's own XML layer: what the File readers
// do not give (a medium's number, its valid switch) and what pack stores unchanged.
#ifndef HMITOOL_DATABASE_ENTRIES_H
#define HMITOOL_DATABASE_ENTRIES_H

#include <string>
#include <vector>

#include "text.h"

namespace hmitool {

struct DatabaseEntry {
    WString id, number, valid, visible, checksum;
};

// common: db_format_ver, product_id and pop-db-time; missing texts are empty. False when the file does
// not load.
bool ReadDatabaseEntries(const std::string& path, std::vector<DatabaseEntry>* entries, WString (&common)[3]);

}  // namespace hmitool

#endif
