#pragma once

#include <string>

#include "automation/object.h"

namespace tallyra::standins::corvane {

// The database whose documents get numbers, over a connection of its own. Which engine it is and which file
// it lies in is asked of the connection, whose string may say neither.
class DocumentDatabase {
 public:
  // Opens the connection. On SQLite a wait for another's lock then ends after 30 seconds, unless the string
  // itself gives a time; one that the data source gives counts when it is shorter. Throws Error.
  explicit DocumentDatabase(const std::string& connection_string);

  const automation::Object& connection() const { return connection_; }

  // An open connection to where the counters of the document numbers are kept. SQLite locks whole files, and
  // a number must be issuable while the caller holds a write transaction on the database: there, a file of
  // its own beside the database, "<file>.keys", and the connection to the documents is closed. Elsewhere the
  // table TABLEKEYS of the database itself, which then locks by row: the connection to the documents serves.
  // Throws Error, also when the name of the key file is a symbolic link.
  automation::Object open_counters() const;

 private:
  std::string key_connection_string(const std::string& key_file) const;

  std::string connection_string_;
  automation::Object connection_;
  std::string file_;  // of an SQLite database; empty for another engine and a database in memory
  bool waits_too_long_ = false;
};

}  // namespace tallyra::standins::corvane
