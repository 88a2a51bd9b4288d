#include "standins/corvane/document_database.h"

#include <charconv>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "standins/corvane/connection_string.h"
#include "standins/corvane/database.h"
#include "standins/corvane/failure.h"

namespace tallyra::standins::corvane {
namespace {

using automation::Error;
using automation::Object;

constexpr std::int32_t longest_wait = 30000;  // milliseconds

// Within it a string for ADO's ODBC provider may have a whole one for ODBC.
constexpr std::string_view odbc_part = "Extended Properties";

std::string property(const Object& connection, std::string_view name) {
  const Object properties = automation::to_object(connection.get("Properties"));
  return automation::to_text(automation::to_object(properties.call("Item", name)).get("Value"));
}

// The file in full, without links in its path, as the engine itself found it.
std::string sqlite_file(const Object& connection) {
  const Query databases(connection, "PRAGMA database_list");
  std::string file;
  for (; !databases.at_end(); databases.move_next())
    if (automation::to_text(databases.value("name")) == "main")
      file = automation::to_text(databases.value("file"));
  databases.close();
  return file;
}

bool gives_wait(const std::string& connection_string) {
  const ConnectionString parts(connection_string);
  return !parts.value("Timeout").empty() ||
         !ConnectionString(parts.value(odbc_part)).value("Timeout").empty();
}

bool is_bounded(std::string_view wait) {
  std::int32_t milliseconds = 0;
  const auto [end, status] = std::from_chars(wait.data(), wait.data() + wait.size(), milliseconds);
  return status == std::errc{} && end == wait.data() + wait.size() && milliseconds <= longest_wait;
}

[[noreturn]] void refuse_link(const std::string& key_file) {
  throw Error(failure::key_database_failed,
              "The key file " + key_file + " is a symbolic link, and what it leads to is not written.");
}

bool is_link(const std::string& file) {
  std::error_code ignored;
  return std::filesystem::is_symlink(
      std::filesystem::symlink_status(std::u8string(file.begin(), file.end()), ignored));
}

}  // namespace

DocumentDatabase::DocumentDatabase(const std::string& connection_string)
    : connection_string_(connection_string), connection_(open_connection(connection_string)) {
  if (!automation::equals_folded(property(connection_, "DBMS Name"), "SQLite")) return;
  file_ = sqlite_file(connection_);
  waits_too_long_ = !gives_wait(connection_string) &&
                    !is_bounded(ConnectionString(property(connection_, odbc_part)).value("Timeout"));
  if (waits_too_long_) execute(connection_, "PRAGMA busy_timeout=" + std::to_string(longest_wait));
}

Object DocumentDatabase::open_counters() const {
  if (file_.empty()) return connection_;
  connection_.call("Close");
  const std::string key_file = file_ + ".keys";
  // Opening would already create what a link leads to. A link that is made after this look shows in the name
  // under which the engine, which follows links, has opened the file.
  if (is_link(key_file)) refuse_link(key_file);
  Object counters = open_connection(key_connection_string(key_file));
  if (sqlite_file(counters) != key_file) refuse_link(key_file);
  return counters;
}

std::string DocumentDatabase::key_connection_string(const std::string& key_file) const {
  ConnectionString parts(connection_string_);
  ConnectionString odbc(parts.value(odbc_part));
  const bool nested = !odbc.text().empty();
  for (ConnectionString* const level : {&parts, &odbc})
    for (const std::string_view keyword : {"Initial Catalog", "Database", "NoCreat"}) level->remove(keyword);
  ConnectionString& target = nested ? odbc : parts;
  target.set("Database", key_file);
  // The string, or its data source, may want no database to come into being.
  target.set("NoCreat", "0");
  if (waits_too_long_) target.set("Timeout", std::to_string(longest_wait));
  if (nested) parts.set_quoted(odbc_part, odbc.text());
  return parts.text();
}

}  // namespace tallyra::standins::corvane
