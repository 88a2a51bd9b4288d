#include "company/database_place.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "automation/folded_name.h"
#include "company/database_files.h"
#include "company/options.h"
#include "standins/corvane/connection_string.h"

namespace tallyra::samples::company {
namespace {

namespace fs = std::filesystem;

bool is_there(const std::string& file) {
  std::error_code ignored;
  return fs::exists(file, ignored);
}

std::string sqlite_file_of(const std::string& connection_string) {
  const standins::corvane::ConnectionString parts(connection_string);
  return automation::equals_folded(parts.value("Driver"), "SQLite3") ? parts.value("Database") : "";
}

}  // namespace

DatabasePlace::DatabasePlace(const std::string& text) {
  if (text.empty()) throw Refusal("no database is named");
  if (text.find('=') != std::string::npos && !is_there(text)) {
    connection_string = text;
    file = sqlite_file_of(text);
    return;
  }
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

}  // namespace tallyra::samples::company
