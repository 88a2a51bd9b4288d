#pragma once

#include <sqlite3.h>

#include "standins/ado/dialect/date_columns.h"

namespace tallyra::standins::ado {

// Knows the date columns of a connection's tables from the schema that the library has read anyway, to
// compile the first statement: nothing is asked of the database for it. Views are asked by a statement that
// is not run.
class SqliteDateColumns : public dialect::DateColumns {
 public:
  // The connection must outlive it.
  explicit SqliteDateColumns(sqlite3* database) : database_(database) {}

  // Throws Error when the schema cannot be read.
  bool is_date(std::string_view table, std::string_view column) override;

 private:
  sqlite3* database_;
};

}  // namespace tallyra::standins::ado
