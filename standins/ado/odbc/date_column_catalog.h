#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standins/ado/dialect/date_columns.h"
#include "standins/ado/odbc/odbc_api.h"

namespace tallyra::standins::ado {

// Knows the date columns of the tables of one connection, from the database's own catalog. A table is looked
// up when it is asked about for the first time.
class DateColumnCatalog : public dialect::DateColumns {
 public:
  // The statement handle is used during is_date only and must have no open result then.
  // `stores_small_letters`: the engine's catalog knows names that nobody quotes in small letters only.
  DateColumnCatalog(SQLHSTMT statement, bool stores_small_letters)
      : statement_(statement), stores_small_letters_(stores_small_letters) {}

  bool is_date(std::string_view table, std::string_view column) override;
  // To be called after what may have changed a table: a statement, or a rollback.
  void forget() { date_columns_.clear(); }

 private:
  using Columns = std::vector<std::string>;  // folded names

  Columns read_date_columns(std::string_view table) const;

  SQLHSTMT statement_;
  bool stores_small_letters_;
  std::unordered_map<std::string, Columns> date_columns_;  // by folded table name
};

}  // namespace tallyra::standins::ado
