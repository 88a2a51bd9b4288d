#include "client/session.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "automation/error.h"
#include "automation/value.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

bool is_keyword_part(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == ' ' || c == '_';
}

bool is_connection_string(std::string_view text) {
  const std::size_t equals = text.find('=');
  return equals != std::string_view::npos && equals != 0 &&
         std::ranges::all_of(text.substr(0, equals), is_keyword_part);
}

bool is_file(std::string_view path) {
  std::error_code error;
  return std::filesystem::is_regular_file(std::filesystem::path(std::u8string(path.begin(), path.end())),
                                          error);
}

}  // namespace

std::string connection_string_for(std::string_view db) {
  if (is_connection_string(db)) return std::string(db);
  if (db.find_first_of(";{}") != std::string_view::npos)
    throw UsageError("--db '" + std::string(db) +
                     "': the path of a database file cannot have ';', '{' or '}' in it");
  if (!is_file(db))
    throw UsageError("--db '" + std::string(db) +
                     "': no such file; give the path of an SQLite file or a connection string such as "
                     "'DRIVER={SQLite3};Database=stock.db'");
  return "DRIVER={SQLite3};Database=" + std::string(db);
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
