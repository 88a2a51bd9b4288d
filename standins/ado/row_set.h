#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "automation/value.h"
#include "standins/ado/cell.h"
#include "standins/ado/column.h"
#include "standins/ado/text_arena.h"

namespace tallyra::standins::ado {

// All rows of a result, whole and in order, independent of the statement and the connection they came from.
class RowSet {
 public:
  explicit RowSet(std::vector<Column> columns);

  std::vector<Column>& columns() { return columns_; }
  const std::vector<Column>& columns() const { return columns_; }
  std::size_t row_count() const { return row_count_; }
  TextArena& texts() { return texts_; }

  // The cells of a new last row, to be filled before the next call.
  Cell* add_row() {
    if (row_count_ == blocks_.size() * rows_per_block()) add_block();
    return row(row_count_++);
  }

  Cell& cell(std::size_t row_index, std::size_t column) { return row(row_index)[column]; }
  automation::Value value(std::size_t row_index, std::size_t column) const;

 private:
  std::size_t rows_per_block() const { return std::size_t{1} << block_shift_; }
  Cell* row(std::size_t index) const {
    return blocks_[index >> block_shift_].get() + (index & (rows_per_block() - 1)) * columns_.size();
  }
  void add_block();

  std::vector<Column> columns_;
  std::vector<std::unique_ptr<Cell[]>> blocks_;
  std::size_t row_count_ = 0;
  unsigned block_shift_;
  TextArena texts_;
};

}  // namespace tallyra::standins::ado
