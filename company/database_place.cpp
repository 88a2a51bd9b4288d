#include "company/database_place.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "automation/folded_name.h"
#include "company/database_files.h"
#include "company/options.h"
#include "standins/ado/network_address.h"
#include "standins/corvane/connection_string.h"

namespace tallyra::company {
namespace {

namespace fs = std::filesystem;

bool is_there(const std::string& file) {
  std::error_code ignored;
  return fs::exists(file, ignored);
}

// What a connection string says, or the string for ODBC within it.
class Said {
 public:
  explicit Said(const std::string& connection_string)
      : outer_(connection_string), inner_(outer_.value("Extended Properties")) {}

  std::string value(std::string_view keyword) const {
    const std::string outer = outer_.value(keyword);
    return outer.empty() ? inner_.value(keyword) : outer;
  }

 private:
  standins::corvane::ConnectionString outer_;
  standins::corvane::ConnectionString inner_;
};

// By the strings that mean SQLite to ADO: they name its driver, or a file where others name a data source.
std::string sqlite_file_of(const std::string& connection_string) {
  const Said said(connection_string);
  if (!said.value("DSN").empty()) return {};
  const std::string database = said.value("Database");
  std::string named = database.empty() ? said.value("Initial Catalog") : database;
  const std::string driver = said.value("Driver");
  if (automation::equals_folded(driver, "SQLite3")) return named;
  const std::string file = said.value("Data Source");
  if (!driver.empty() || !said.value("Provider").empty()) return {};
  if (file.find('/') == std::string::npos && (file.empty() || !is_there(file))) return {};
  return named.empty() ? file : named;
}

void require_storable(const std::string& file) {
  if (standins::ado::is_network_address(file))
    throw Refusal("a network address names no database here: give a connection string");
  if (file == ":memory:") throw Refusal("a database in memory is gone when this program ends");
}

}  // namespace

bool is_connection_string(std::string_view text) {
  const auto belongs_to_a_keyword = [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == ' ' || c == '_';
  };
  const std::size_t equals = text.find('=');
  return equals != std::string_view::npos && equals != 0 &&
         std::ranges::all_of(text.substr(0, equals), belongs_to_a_keyword);
}

DatabasePlace::DatabasePlace(const std::string& text) {
  if (text.empty()) throw Refusal("no database is named");
  if (is_connection_string(text) && !is_there(text)) {
    connection_string = text;
    file = sqlite_file_of(text);
    require_storable(file);
    return;
  }
  require_storable(text);
  if (fs::is_directory(text)) throw Refusal("'" + text + "' is a folder");
  standins::corvane::ConnectionString parts("DRIVER={SQLite3}");
  parts.set("Database", text);
  // Without it the driver waits for whoever holds the lock longer than a person would.
  parts.set("Timeout", "10000");
  connection_string = parts.text();
  file = text;
}

PresentFile::PresentFile(const std::string& file) {
  if (file.empty() || is_there(file)) return;
  const auto folder = fs::absolute(file).parent_path();
  if (!fs::is_directory(folder)) throw Refusal("there is no folder '" + folder.string() + "'");
  if (!std::ofstream(file, std::ios::binary)) throw Refusal("cannot create '" + file + "'");
  made_ = file;
}

PresentFile::~PresentFile() {
  if (!made_.empty()) remove_database_quietly(made_);
}

}  // namespace tallyra::company
