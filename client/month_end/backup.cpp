#include "client/month_end/backup.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "automation/clock.h"
#include "automation/convert.h"
#include "automation/folded_name.h"
#include "client/file_path.h"
#include "client/month_end/backup_copy.h"
#include "client/month_end/interruption.h"
#include "client/refusal.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

constexpr const char* by_hand =
    "back the database up by the means of its engine (pg_dump of PostgreSQL, BACKUP DATABASE of SQL Server, "
    "a copy of "
    "the file of Access while nobody is at work) and run this without --backup";

// Nobody writes while it lives: the first statement of a transaction takes the write lock.
class NobodyWrites {
 public:
  explicit NobodyWrites(const Reader& reader) : reader_(reader) {
    reader_.begin();
    try {
      reader_.count("Select Count(*) As N From sqlite_master");
    } catch (...) {
      reader_.roll_back();
      throw;
    }
  }
  ~NobodyWrites() { reader_.roll_back(); }
  NobodyWrites(const NobodyWrites&) = delete;
  NobodyWrites& operator=(const NobodyWrites&) = delete;

 private:
  const Reader& reader_;
};

std::string file_of(const Reader& reader) {
  if (!automation::equals_folded(reader.engine(), "SQLite"))
    throw Refusal("--backup copies databases of SQLite alone; " + std::string(by_hand));
  std::string file;
  reader.each_row("PRAGMA database_list", [&](const Row& row) {
    if (row.size() > 2 && shown_text(row[1]) == "main") file = shown_text(row[2]);
  });
  if (file.empty()) throw Refusal("--backup: this database is no file; nothing was done");
  return file;
}

// In "2024/01/31 10:00:00" everything that is no digit.
std::string without_signs(std::string text) {
  std::erase_if(text, [](char c) { return c < '0' || c > '9'; });
  return text;
}

void stop_when_interrupted() {
  if (Interruptions::count() > 0)
    throw Refusal("interrupted while the database was copied: the copy is removed, nothing else was done",
                  exit_interrupted);
}

// With what was committed and stands in the log beside the file still.
void copy_files(const std::string& from, const std::string& to) {
  for (const char* suffix : {"", "-wal"}) {
    if (!copy_open_database(from + suffix, to + suffix))
      throw Refusal("--backup: this system cannot copy a database that is in use; " + std::string(by_hand));
    stop_when_interrupted();
  }
}

std::string connection_to(const std::string& file) {
  return "DRIVER={SQLite3};Database=" + file;
}

Backup compare(const Reader& original, const std::string& file) {
  Backup backup{file};
  const Reader copy(connection_to(file), "MSACCESS");
  const Rows tables = original.rows("Select name From sqlite_master Where type='table' Order By name");
  for (const Row& row : tables.rows) {
    stop_when_interrupted();
    const std::string query = "Select Count(*) As N From \"" + shown_text(row[0]) + "\"";
    const std::int64_t rows = original.count(query);
    if (copy.count(query) != rows)
      throw Refusal("the copy '" + file + "' is not equal to the database: the table " + shown_text(row[0]) +
                    " differs; nothing was done");
    ++backup.tables;
    backup.rows += rows;
  }
  if (const Rows told = copy.rows("Pragma quick_check");
      told.rows.empty() || shown_text(told.rows.front().at(0)) != "ok")
    throw Refusal("the copy '" + file + "' is damaged; nothing was done");
  const std::string quantities = "Select Sum(QTY) As N From STKTRANDT";
  if (original.number(quantities) != copy.number(quantities))
    throw Refusal("the copy '" + file +
                  "' is not equal to the database: quantities differ; nothing was done");
  // Whoever restores it, on another machine perhaps, finds nobody at work.
  if (copy.has_table("TALLYRALOCK")) copy.execute("Delete From TALLYRALOCK");
  return backup;
}

bool is_there(const std::string& file) {
  std::error_code ignored;
  return std::filesystem::exists(file_path(file), ignored);
}

constexpr std::string_view unfinished_mark = ".unfinished";
constexpr const char* kinds_of_file[] = {"-wal", ".keys-wal", ".keys", ""};

// Half a copy is none: its files bear names that say so until all is compared, and go with this object unless
// they are finished.
class UnfinishedCopy {
 public:
  explicit UnfinishedCopy(std::string copy)
      : copy_(std::move(copy)), file_(copy_ + std::string(unfinished_mark)) {}
  ~UnfinishedCopy() {
    std::error_code ignored;
    for (const char* kind : kinds_of_file) std::filesystem::remove(file_path(file_ + kind), ignored);
    std::filesystem::remove(file_path(file_ + "-shm"), ignored);
  }
  UnfinishedCopy(const UnfinishedCopy&) = delete;
  UnfinishedCopy& operator=(const UnfinishedCopy&) = delete;

  const std::string& file() const { return file_; }
  // The database itself last: where it is, all is.
  void finish() const {
    for (const char* kind : kinds_of_file)
      if (is_there(file_ + kind)) std::filesystem::rename(file_path(file_ + kind), file_path(copy_ + kind));
  }

 private:
  std::string copy_;
  std::string file_;
};

// What processes have left that were killed while they copied. Returns how many files.
std::size_t remove_unfinished(const std::string& beginning) {
  const auto folder = std::filesystem::absolute(file_path(beginning)).parent_path();
  const std::string name = path_text(file_path(beginning).filename());
  std::vector<std::filesystem::path> found;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
    const std::string other = path_text(entry.path().filename());
    if (other.starts_with(name) && other.find(unfinished_mark) != std::string::npos)
      found.push_back(entry.path());
  }
  for (const auto& path : found) std::filesystem::remove(path, ignored);
  return found.size();
}

// The numbers that were issued lie in a file of their own.
void copy_numbers(const std::string& from, const std::string& to) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(file_path(from), ignored)) return;
  const Reader numbers(connection_to(from), "MSACCESS");
  const NobodyWrites nobody_writes(numbers);
  copy_files(from, to);
}

}  // namespace

Backup back_up(const Reader& reader, const std::string& before_what) {
  const std::string file = file_of(reader);
  std::string moment;
  automation::append_time_stamp(moment, automation::now());
  const std::string copy = file + ".before-" + before_what + "-" + without_signs(moment);
  if (is_there(copy)) throw Refusal("'" + copy + "' is there already; nothing was done");
  const Interruptions interruptions;
  const std::size_t removed = remove_unfinished(file + ".before-" + before_what);
  const NobodyWrites nobody_writes(reader);
  const UnfinishedCopy unfinished(copy);
  copy_files(file, unfinished.file());
  Backup backup = compare(reader, unfinished.file());
  copy_numbers(file + ".keys", unfinished.file() + ".keys");
  stop_when_interrupted();
  unfinished.finish();
  backup.file = copy;
  backup.removed = removed;
  return backup;
}

}  // namespace tallyra::client
