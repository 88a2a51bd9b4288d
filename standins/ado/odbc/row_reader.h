#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standins/ado/odbc/odbc_api.h"
#include "standins/ado/row_set.h"

namespace tallyra::standins::ado {

// What decides how values are asked of a driver.
struct DriverTraits {
  // The SQLite driver holds every value as text anyway, and its conversions lose what does not fit the
  // column.
  bool is_sqlite = false;
  // A bound column that proved too narrow can be read again, in any order.
  bool rereads_bound_columns = false;
  // Its names come in small letters, its commits are to be doubted.
  bool is_postgresql = false;
};

// Reads results into row sets; made once per connection and used for one result after the other, so that its
// buffers are.
class RowReader {
 public:
  explicit RowReader(DriverTraits traits) : traits_(traits) {}

  // Reads the statement's open result of `column_count` columns to its end. Leaves the cursor open and the
  // columns bound. Throws Error.
  std::unique_ptr<RowSet> read(SQLHSTMT statement, int column_count);

 private:
  struct Transfer {
    SQLSMALLINT c_type;
    std::size_t offset;  // of its buffer, when bound
    std::size_t width;
    SQLLEN indicator;
    bool bound;
  };

  void plan(const std::vector<Column>& columns);
  void bind(SQLHSTMT statement);
  Cell read_cell(SQLHSTMT statement, RowSet& rows, std::size_t column);
  Cell cell_from_buffer(DataType type, const Transfer& transfer, TextArena& arena) const;
  Cell read_long(SQLHSTMT statement, RowSet& rows, std::size_t column);

  DriverTraits traits_;
  std::vector<Transfer> transfers_;
  std::vector<char> buffer_;
  std::string long_value_;
};

}  // namespace tallyra::standins::ado
