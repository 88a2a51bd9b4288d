#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

namespace tallyra::bench {

struct StatementFinalizer {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using SqliteStatement = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

// A database file through the engine's own library. Errors are std::runtime_error with the engine's words.
class SqliteDatabase {
 public:
  // Makes the file where it is not there, as the driver does. Waits as long for a lock.
  explicit SqliteDatabase(const std::string& path, int wait_milliseconds = 100'000);

  void execute(const char* sql);
  SqliteStatement prepare(std::string_view sql);
  // Steps to the end and reads every column of every row in the form in which it is stored.
  void drain(sqlite3_stmt* statement);
  // The first column of the first row.
  std::int64_t number(std::string_view sql);
  bool in_transaction() const { return sqlite3_get_autocommit(handle_.get()) == 0; }

 private:
  struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };

  [[noreturn]] void fail() const;

  std::unique_ptr<sqlite3, Closer> handle_;
};

}  // namespace tallyra::bench
