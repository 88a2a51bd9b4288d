#include "client/session.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "automation/value.h"
#include "client/database/connection_text.h"
#include "client/file_path.h"
#include "client/platform/database_path.h"
#include "client/usage_error.h"
#include "company/database_place.h"

namespace tallyra::client {
namespace {

// Throws UsageError when what is named is no file that can be read.
void require_file(const std::string& path, const std::string& named_as, MissingFile missing) {
  std::error_code error;
  const auto file = file_path(path);
  if (std::filesystem::is_directory(file, error))
    throw UsageError(named_as + ": that is a directory; give the file of the database in it");
  if (missing == MissingFile::allowed && !std::filesystem::exists(file, error)) return;
  if (!std::filesystem::exists(file, error))
    throw UsageError(named_as +
                     ": no such file; give the path of an SQLite file or a connection string such as "
                     "'DRIVER={SQLite3};Database=stock.db'; 'init' makes a new database");
  if (!std::ifstream(file)) throw UsageError(named_as + ": the file cannot be read");
}

// A file that is there is meant, and so is a name of one piece whose word before the '=' no driver knows.
bool means_connection(std::string_view db) {
  constexpr auto first_words =
      std::to_array<std::string_view>({"driver",    "provider",        "dsn",
                                       "filedsn",   "server",          "servername",
                                       "host",      "hostaddr",        "port",
                                       "database",  "dbname",          "data source",
                                       "file name", "initial catalog", "extended properties",
                                       "user",      "username",        "user id",
                                       "uid",       "password",        "pwd",
                                       "sslmode",   "timeout",         "pqopt"});
  if (!company::is_connection_string(db)) return false;
  std::error_code error;
  if (std::filesystem::is_regular_file(file_path(db), error)) return false;
  const std::string word = automation::trimmed(db.substr(0, db.find('=')));
  return db.find(';') != std::string_view::npos || automation::is_one_of(first_words, word);
}

}  // namespace

std::string connection_string_for(std::string_view db, std::string_view origin, MissingFile missing) {
  const std::string named_as = std::string(origin) + " '" + shown_connection(db) + "'";
  if (means_connection(db)) {
    if (const auto file = sqlite_file(db); file && *file != ":memory:")
      require_file(*file, named_as, missing);
    return std::string(db);
  }
  if (db.find_first_of(";{}") != std::string_view::npos)
    throw UsageError(named_as + ": the path of a database file cannot have ';', '{' or '}' in it");
  const std::string path = driver_path(std::string(db));
  require_file(std::string(db), named_as, missing);
  return "DRIVER={SQLite3};Database=" + path;
}

void set_session(const automation::Object& object, std::string_view prog_id, const Session& session) {
  const auto set = [&](std::string_view property, const std::string& value, std::string_view option) {
    try {
      object.put(property, value);
    } catch (const automation::Error& error) {
      if (error.number() != automation::error_number::no_such_member) throw;
      if (option.empty()) return;
      throw UsageError(std::string(prog_id) + " has no property " + std::string(property) + ": leave " +
                       std::string(option) + " out");
    }
  };
  if (session.connection_string) set("ConnectionString", *session.connection_string, "--db");
  if (session.user) set("UserID", *session.user, "--user");
  if (session.language) set("Language", *session.language, "--language");
  set("SystemDatabase", session.database_kind, session.kind_given ? "--kind" : "");
}

}  // namespace tallyra::client
