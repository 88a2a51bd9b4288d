#pragma once

#include <string_view>

namespace tallyra::standins::ado::dialect {

// Which columns of the connected database hold dates.
class DateColumns {
 public:
  virtual ~DateColumns() = default;

  // Names come without delimiters and in the case the statement writes them: compare without regard to case.
  // False for a table or column that does not exist. A dialect remembers the answers until a statement
  // changes the schema. May throw (the exception leaves `rewrite`); must not call the dialect that asks.
  virtual bool is_date(std::string_view table, std::string_view column) = 0;
};

}  // namespace tallyra::standins::ado::dialect
