#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "automation/object.h"

namespace tallyra::client {

using Row = std::vector<automation::Value>;

// What a query has answered.
struct Rows {
  std::vector<std::string> columns;
  std::vector<Row> rows;
};

// A connection of the client's own, beside those of the classes, over which it looks things up. Needs an
// Apartment and lives as long as it at most. Whatever the database answers is thrown as automation::Error.
class Reader {
 public:
  // `kind` decides how dates are written, as the classes do it.
  Reader(const std::string& connection_string, std::string kind);
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  ~Reader();

  Rows rows(const std::string& query) const;
  // No more than the first `most` of them; the others are not fetched.
  Rows first_rows(const std::string& query, std::size_t most) const;
  // Hands over row by row: no more than one is held. The query is over when it returns, by an exception too.
  // Returns the names of the columns.
  std::vector<std::string> each_row(const std::string& query,
                                    const std::function<void(const Row&)>& take) const;
  // The one number that a query such as "Select Count(*) As N From DEPARTS" answers; 0 for Null or no row.
  double number(const std::string& query) const;
  std::int64_t count(const std::string& query) const;
  bool has_table(std::string_view table) const;
  // The columns of a table that hold numbers. `key` is a column that is never Null.
  std::vector<std::string> numeric_columns(const std::string& table, std::string_view key) const;
  // The name of the engine as its driver gives it, "SQLite", "PostgreSQL", "" when it gives none.
  std::string engine() const { return property("DBMS Name"); }
  // What the driver says under a name of ADO's, "" when it says nothing.
  std::string property(const char* name) const;

  // Changes the tables of the client's own, and those of the rights; never one that a class keeps.
  void execute(const std::string& statement) const;
  void begin() const;
  void commit() const;
  void roll_back() const noexcept;

  // "'it''s'".
  static std::string text_literal(std::string_view text);
  // A day between the quotes of the kind; a day with its time, for documents that bear one.
  std::string date_literal(automation::Date date) const;
  std::string time_literal(automation::Date date) const;

 private:
  // Until `take` says that it wants no more.
  std::vector<std::string> walk(const std::string& query, const std::function<bool(const Row&)>& take) const;

  automation::Object connection_;
  std::string kind_;
};

}  // namespace tallyra::client
