#pragma once

#include <string>
#include <vector>

#include "automation/value.h"

namespace tallyra::client {

enum class Align { left, right };

struct Column {
  std::string name;  // the key in JSON, the heading elsewhere
  Align align = Align::left;
};

// What a verb has to show: printed as text, as comma-separated values or as JSON.
struct Table {
  std::string name;   // the key in JSON, a word
  std::string title;  // the line above it in text; none when it is empty
  std::vector<Column> columns;
  std::vector<std::vector<automation::Value>> rows;
  // Texts that do not fit are wrapped, not shortened: for what has to be read to its end.
  bool wraps = false;
};

// Numbers stand right.
inline Column number_column(std::string name) {
  return {std::move(name), Align::right};
}

enum class OutputFormat { text, csv, json };

// `width` is that of the terminal, to which tables are fitted: by shortening or wrapping texts, and where
// that does not do, with the columns of each row below each other; 0 prints them as wide as they are. JSON is
// one object, {"name": [{"column": value, ...}, ...], ...}; tables of comma-separated values follow each
// other with an empty line between them.
std::string printed(const std::vector<Table>& tables, OutputFormat format, std::size_t width);

}  // namespace tallyra::client
