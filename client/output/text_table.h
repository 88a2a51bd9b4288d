#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "client/output/table.h"

namespace tallyra::client {

// What happens to cells for which there is no room.
enum class Fit { shortening, wrapping };

// Cells in columns that stand straight, also with wide characters and texts of several lines.
class TextTable {
 public:
  TextTable() = default;
  explicit TextTable(std::vector<Align> alignment) : alignment_(std::move(alignment)) {}

  void add_row(const std::vector<std::string>& cells);
  void add_row(std::initializer_list<std::string_view> cells) { add_row({cells.begin(), cells.end()}); }

  // Shortens or wraps the cells of the widest left columns until a row takes no more than `width` columns of
  // a terminal. Where that would leave cells that cannot be read it does nothing and returns false.
  bool fit(std::size_t width, Fit how = Fit::shortening);

  // Draws a line under the first row.
  void append_with_heading(std::string& out) const { append(out, true); }
  void append_to(std::string& out) const { append(out, false); }

 private:
  using Cell = std::vector<std::string>;
  using Row = std::vector<Cell>;

  bool is_right(std::size_t column) const {
    return column < alignment_.size() && alignment_[column] == Align::right;
  }
  void append(std::string& out, bool heading) const;
  void append_row(std::string& out, const Row& row) const;
  void append_rule(std::string& out) const;
  void shorten(std::size_t column);
  void wrap(std::size_t column);

  std::vector<Align> alignment_;
  std::vector<Row> rows_;
  std::vector<std::size_t> widths_;
};

}  // namespace tallyra::client
