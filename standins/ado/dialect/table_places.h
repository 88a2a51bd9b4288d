#pragma once

#include <cstddef>
#include <vector>

#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// Where SQLite takes a text in single quotes for the name of a table. To be asked about every token, from the
// first to the last; a token takes constant time.
class TablePlaces {
 public:
  explicit TablePlaces(const Tokens& tokens) : tokens_(tokens) {}

  // Whether token `i`, if it is a text, may be a table: where a query or a writing statement names one, or
  // with arguments behind it. Of a text that makes no sense either may be said.
  bool names_table(std::size_t i);

 private:
  bool begins_source(std::size_t i) const;
  void follow(std::size_t i);

  const Tokens& tokens_;
  std::vector<bool> lists_sources_{false};  // by parenthesis that is open: whether a comma separates tables
};

}  // namespace tallyra::standins::ado::dialect
