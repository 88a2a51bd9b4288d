#include "company/database_files.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "company/options.h"

namespace tallyra::company {
namespace {

namespace fs = std::filesystem;

constexpr std::array endings = {"",      "-wal",      "-shm",      "-journal",
                                ".keys", ".keys-wal", ".keys-shm", ".keys-journal"};

void remove_files(const std::string& database) {
  for (const char* ending : endings) {
    std::error_code error;
    fs::remove(database + ending, error);
    if (error) throw Refusal("cannot remove '" + database + ending + "': " + error.message());
  }
}

}  // namespace

GrowingFile::GrowingFile(const std::string& database, bool replace)
    : database_(database), growing_(database + ".growing") {
  if (database.empty()) throw Refusal("no database file is named");
  const auto folder = fs::absolute(database).parent_path();
  if (!fs::is_directory(folder)) throw Refusal("there is no folder '" + folder.string() + "'");
  if (fs::is_directory(database)) throw Refusal("'" + database + "' is a folder");
  for (const char* ending : endings) {
    if (!replace && fs::exists(database + ending)) {
      throw Refusal("'" + database + ending + "' exists; say --force to replace the database");
    }
  }
  remove_files(growing_);
}

GrowingFile::~GrowingFile() {
  remove_database_quietly(growing_);
}

void remove_database_quietly(const std::string& database) noexcept {
  for (const char* ending : endings) {
    std::error_code ignored;
    fs::remove(database + ending, ignored);
  }
}

void GrowingFile::put_in_place() {
  remove_files(database_);
  std::error_code error;
  fs::rename(growing_, database_, error);
  if (error) throw Refusal("cannot create '" + database_ + "': " + error.message());
}

}  // namespace tallyra::company
