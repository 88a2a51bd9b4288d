#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "automation/object.h"

namespace tallyra::client {

// What a client hands to an object before its first call. A value that was not given leaves the property as
// the class made it.
struct Session {
  std::optional<std::string> connection_string;
  std::optional<std::string> user;
  std::optional<std::string> language;
  std::string database_kind = "MSACCESS";
  bool kind_given = false;
  // What --db has said, for commands that are told to the person; "" when the database is named elsewhere.
  std::string db_word = {};
};

// Whether the file of an SQLite database may be missing: for who makes it, it may.
enum class MissingFile { refused, allowed };

// The connection string for --db: a text that begins with a keyword and '=' is one already, anything else is
// the path of an SQLite file. Throws UsageError when there is no such file, also when a connection string for
// SQLite names it: the engine would make an empty one. `origin` says in its text where the database was
// named.
std::string connection_string_for(std::string_view db, std::string_view origin = "--db",
                                  MissingFile missing = MissingFile::refused);

// Sets ConnectionString, UserID, Language and SystemDatabase, in this order. Throws UsageError when the class
// has no property for a value that was given; the default database kind is set only where there is one.
void set_session(const automation::Object& object, std::string_view prog_id, const Session& session);

}  // namespace tallyra::client
