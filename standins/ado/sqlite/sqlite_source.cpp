#include "standins/ado/sqlite/sqlite_source.h"

#include <charconv>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "automation/error.h"
#include "automation/folded_name.h"
#include "standins/ado/ado_error.h"
#include "standins/ado/network_address.h"
#include "standins/ado/reaching_keywords.h"

namespace tallyra::standins::ado {
namespace {

constexpr std::string_view driver_name = "SQLite3";
constexpr int longest_busy_time = 1'000'000;

// As the driver reads a switch.
bool is_on(const std::string* value) {
  return value && !value->empty() &&
         std::string_view("Yy123456789Tt").find(value->front()) != std::string::npos;
}

bool names_a_file(const std::string& value) {
  if (value.find('/') != std::string::npos) return true;
  std::error_code ignored;
  return !value.empty() && std::filesystem::exists(value, ignored);
}

int read_busy_time(const std::string& value) {
  int milliseconds = 0;
  const auto [stop, error] = std::from_chars(value.data(), value.data() + value.size(), milliseconds);
  if (error != std::errc() || stop != value.data() + value.size()) return SqliteSource().busy_time;
  return milliseconds < 1 || milliseconds > longest_busy_time ? longest_busy_time : milliseconds;
}

// The value of a pragma is one word or number; anything else is no value.
bool is_word(std::string_view value) {
  for (const char c : value)
    if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))) return false;
  return !value.empty();
}

// By the first of the two words for it.
const std::string* database_named(const ConnectionSource& source) {
  for (const Keyword& keyword : source.keywords)
    if (automation::equals_folded(keyword.name, "Database") ||
        automation::equals_folded(keyword.name, "Initial Catalog"))
      return &keyword.value;
  return nullptr;
}

// For a string that names its file as the data source.
std::string as_odbc_string(const ConnectionSource& source, const std::string& path) {
  std::string text = "DRIVER={SQLite3};Database=" + path;
  for (const Keyword& keyword : source.keywords)
    if (!automation::equals_folded(keyword.name, "Data Source") &&
        !automation::equals_folded(keyword.name, "Database") &&
        !automation::equals_folded(keyword.name, "Initial Catalog"))
      text.append(1, ';').append(keyword.name).append(1, '=').append(keyword.value);
  return text;
}

void read_word(const ConnectionSource& source, std::string_view name, std::string& word) {
  if (const std::string* const value = source.find(name); value && is_word(*value)) word = *value;
}

}  // namespace

bool means_sqlite_library(const ConnectionSource& source) {
  if (source.names_provider || source.find("DSN") || is_on(source.find("BigInt")) ||
      is_on(source.find("JDConv")))
    return false;
  if (const std::string* const driver = source.find("Driver"))
    return automation::equals_folded(*driver, driver_name) && !source.find("Data Source");
  const std::string* const file = source.find("Data Source");
  return file && names_a_file(*file);
}

SqliteSource read_sqlite_source(const ConnectionSource& source) {
  refuse_reaching_keywords(source.odbc_string);
  SqliteSource result;
  const std::string* const named = database_named(source);
  const std::string* const file = named ? nullptr : source.find("Data Source");
  if (const std::string* const path = named ? named : file) result.path = *path;
  if (result.path.empty())
    throw automation::Error(provider_error::unspecified, "The connection string names no database file");
  if (is_network_address(result.path))
    throw automation::Error(provider_error::unspecified,
                            "The connection string names a network address in place of a database file");
  if (const std::string* const timeout = source.find("Timeout")) result.busy_time = read_busy_time(*timeout);
  read_word(source, "SyncPragma", result.synchronous);
  read_word(source, "JournalMode", result.journal_mode);
  result.foreign_keys = is_on(source.find("FKSupport"));
  result.long_names = is_on(source.find("LongNames"));
  // Only who says so: the driver's own default makes a file of every misspelt path.
  const std::string* const no_creation = source.find("NoCreat");
  result.may_create = no_creation && !no_creation->empty() && !is_on(no_creation);
  result.without_transactions = is_on(source.find("NoTXN"));
  result.odbc_string = source.find("Data Source") ? as_odbc_string(source, result.path) : source.odbc_string;
  return result;
}

}  // namespace tallyra::standins::ado
