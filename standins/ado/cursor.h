#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/value.h"
#include "standins/ado/row_set.h"

namespace tallyra::standins::ado {

// A position in the rows of an open recordset. Its Fields and Field objects hold on to it, also when the
// recordset is gone; once it is closed every use throws Error 3704.
class Cursor {
 public:
  Cursor(std::unique_ptr<RowSet> rows, bool forward_only)
      : rows_(std::move(rows)), forward_only_(forward_only) {}

  // Stands at the first of new rows, which must have as many columns.
  void restart(std::unique_ptr<RowSet> rows) {
    rows_ = std::move(rows);
    at_ = 0;
  }
  // Lets the rows go.
  void close() { rows_.reset(); }

  bool forward_only() const { return forward_only_; }
  const std::vector<Column>& columns() const { return rows().columns(); }
  // The index of a column by its name, whatever the case. Throws 3265.
  std::size_t column_index(std::string_view name) const;
  std::size_t column_index(std::int32_t ordinal) const;
  std::size_t row_count() const { return rows().row_count(); }

  // An empty recordset is at both.
  bool before_first() const { return at_ < 0 || row_count() == 0; }
  bool after_last() const { return at_ >= count(); }

  // Throws 3021 when there is no such row to move to, -2147217884 for a step back in a forward-only
  // recordset.
  void move_first();
  void move_last();
  void move_next();
  void move_previous();
  // By a number of rows; ends before the first or behind the last when there are not as many.
  void move(std::int64_t distance);

  // Counted from 1; only at a row.
  std::int64_t absolute_position() const { return at_ + 1; }
  void go_to(std::int64_t absolute_position);

  // The current row's value. Throws 3021 when there is no current row.
  automation::Value value(std::size_t column) const;

 private:
  const RowSet& rows() const;
  std::ptrdiff_t count() const { return static_cast<std::ptrdiff_t>(row_count()); }

  std::unique_ptr<RowSet> rows_;
  std::ptrdiff_t at_ = 0;
  const bool forward_only_;
};

}  // namespace tallyra::standins::ado
