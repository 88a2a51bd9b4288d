#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tallyra::bench {

using Cells = std::vector<std::string>;

struct Column {
  std::string title;
  std::size_t width;  // on the console; longer texts push the rest of their line to the right
  bool is_number;     // stands at the right there
};

// One line, without its end.
std::string console_head(const std::vector<Column>& columns);
std::string console_row(const std::vector<Column>& columns, const Cells& cells);

// The whole table, as documents have it.
std::string markdown_table(const std::vector<Column>& columns, const std::vector<Cells>& rows);

}  // namespace tallyra::bench
