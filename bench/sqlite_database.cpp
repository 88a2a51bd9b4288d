#include "bench/sqlite_database.h"

#include <stdexcept>

namespace tallyra::bench {
namespace {

void read_column(sqlite3_stmt* row, int column) {
  switch (sqlite3_column_type(row, column)) {
    case SQLITE_INTEGER: sqlite3_column_int64(row, column); break;
    case SQLITE_FLOAT: sqlite3_column_double(row, column); break;
    case SQLITE_NULL: break;
    default: sqlite3_column_blob(row, column); sqlite3_column_bytes(row, column);
  }
}

}  // namespace

SqliteDatabase::SqliteDatabase(const std::string& path, int wait_milliseconds) {
  sqlite3* opened = nullptr;
  const int result =
      sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  handle_.reset(opened);
  if (result != SQLITE_OK) throw std::runtime_error(std::string(sqlite3_errstr(result)) + ": " + path);
  sqlite3_busy_timeout(opened, wait_milliseconds);
}

void SqliteDatabase::fail() const {
  throw std::runtime_error(sqlite3_errmsg(handle_.get()));
}

void SqliteDatabase::execute(const char* sql) {
  if (sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) fail();
}

SqliteStatement SqliteDatabase::prepare(std::string_view sql) {
  sqlite3_stmt* made = nullptr;
  if (sqlite3_prepare_v2(handle_.get(), sql.data(), static_cast<int>(sql.size()), &made, nullptr) !=
      SQLITE_OK)
    fail();
  return SqliteStatement(made);
}

void SqliteDatabase::drain(sqlite3_stmt* statement) {
  const int columns = sqlite3_column_count(statement);
  int result = sqlite3_step(statement);
  for (; result == SQLITE_ROW; result = sqlite3_step(statement))
    for (int column = 0; column < columns; ++column) read_column(statement, column);
  if (result != SQLITE_DONE) fail();
}

std::int64_t SqliteDatabase::number(std::string_view sql) {
  const SqliteStatement query = prepare(sql);
  if (sqlite3_step(query.get()) != SQLITE_ROW) fail();
  return sqlite3_column_int64(query.get(), 0);
}

}  // namespace tallyra::bench
