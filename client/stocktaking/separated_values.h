#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::client {

// A row of separated values and the line of the file on which it begins, from 1.
struct SeparatedRow {
  std::size_t line = 0;
  std::vector<std::string> cells;
  // Its last quote is never closed: all that follows it has become a part of its last cell.
  bool open_quote = false;
};

// Rows as spreadsheets write them: separated by ',', ';' or a tab, whichever comes first in the first row;
// cells with such a mark, a quote or a line end in them stand between quotes, which are doubled inside. Empty
// rows are left out. An open quote goes to the end of the text and is told of.
std::vector<SeparatedRow> separated_rows(std::string_view text);

}  // namespace tallyra::client
