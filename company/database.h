#pragma once

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::company {

// What the driver said, with the statement that it refused.
struct DatabaseError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A connection to an SQLite file over ODBC, text as UTF-8 through the narrow functions. Closed by the
// destructor; rows that were not committed are then discarded.
class Database {
 public:
  explicit Database(const std::string& path);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void execute(const std::string& sql);
  // All rows of a query as text; NULL comes back as an empty text.
  std::vector<std::vector<std::string>> query(const std::string& sql);

  void begin();
  void commit();

  SQLHDBC handle() const { return connection_; }

 private:
  SQLHENV environment_ = SQL_NULL_HENV;
  SQLHDBC connection_ = SQL_NULL_HDBC;
  bool in_transaction_ = false;
};

enum class Kind { text, number, integer };

struct Column {
  std::string_view name;
  Kind kind;
};

// A prepared INSERT into one table with bound parameters.
class Insert {
 public:
  Insert(Database& database, std::string_view table, std::initializer_list<Column> columns);
  ~Insert();
  Insert(const Insert&) = delete;
  Insert& operator=(const Insert&) = delete;

  // One value per column, in column order; nullptr writes NULL. A text longer than 255 bytes, a value of
  // another kind than the column's or a wrong count throws std::logic_error.
  template <typename... Values>
  void row(const Values&... values) {
    if (sizeof...(values) != cells_.size()) throw std::logic_error("values do not match the columns");
    std::size_t column = 0;
    (put(cells_[column++], values), ...);
    run();
  }

 private:
  struct Cell {
    Kind kind;
    SQLLEN length = 0;
    double number = 0;
    SQLBIGINT integer = 0;
    std::array<char, 256> text{};
  };

  static void put(Cell& cell, std::string_view value);
  static void put(Cell& cell, double value);
  static void put(Cell& cell, std::nullptr_t) { cell.length = SQL_NULL_DATA; }
  static void put(Cell& cell, std::integral auto value) { put_integer(cell, value); }
  static void put_integer(Cell& cell, std::int64_t value);
  void run();

  SQLHSTMT statement_ = SQL_NULL_HSTMT;
  std::string sql_;
  std::vector<Cell> cells_;
};

}  // namespace tallyra::company
