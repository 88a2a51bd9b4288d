#pragma once

#include <string>

#include "standins/ado/connection_string.h"

namespace tallyra::standins::ado {

// What a connection string says of an SQLite database, by the keywords of its ODBC driver.
struct SqliteSource {
  std::string path = {};               // Database, or Initial Catalog
  int busy_time = 100000;              // Timeout: milliseconds to wait for a lock of another connection
  std::string synchronous = "NORMAL";  // SyncPragma
  std::string journal_mode = {};       // JournalMode; empty: as the database has it
  bool foreign_keys = false;           // FKSupport: whether they are held
  bool long_names = false;             // LongNames: columns with the names of their tables
  bool may_create = false;             // NoCreat=0: a file that is not there comes into being
  bool without_transactions = false;   // NoTXN: every statement stands at once
  std::string odbc_string = {};        // means the same to the ODBC driver
};

// Whether the string means SQLite's own library: it names no provider and no data source, and for a driver
// the one registered as SQLite3; or it names a file as `Data Source`, with a folder separator in it or one
// that is there. Strings with the keywords that only the ODBC driver knows how to follow (BigInt, JDConv) are
// left to it.
bool means_sqlite_library(const ConnectionSource& source);

// Throws Error when no database is named, and for what `refuse_reaching_keywords` refuses.
SqliteSource read_sqlite_source(const ConnectionSource& source);

}  // namespace tallyra::standins::ado
