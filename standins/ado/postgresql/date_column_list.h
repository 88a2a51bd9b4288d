#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "standins/ado/dialect/date_columns.h"
#include "standins/ado/postgresql/wire.h"

namespace tallyra::standins::ado {

// The date columns of all tables that a session sees by their bare names, read together when the first is
// asked about.
class DateColumnList : public dialect::DateColumns {
 public:
  // `read` gives the rows of a query: table and column. It is called within `is_date` and `know`.
  using Read = std::function<Result(const std::string& sql)>;

  explicit DateColumnList(Read read) : read_(std::move(read)) {}

  bool is_date(std::string_view table, std::string_view column) override;
  // Reads the list, unless it is there.
  void know();
  // To be called after what may have changed a table: a statement, or a rollback.
  void forget() { known_ = false; }

 private:
  Read read_;
  std::unordered_set<std::string> columns_;  // "table.column", folded
  bool known_ = false;
};

}  // namespace tallyra::standins::ado
