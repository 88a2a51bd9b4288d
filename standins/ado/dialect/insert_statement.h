#pragma once

#include <cstddef>
#include <vector>

#include "standins/ado/dialect/date_column_cache.h"
#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// `Insert Into T (A,B,...)`: what follows it fills the columns in this order.
struct InsertStatement {
  std::vector<bool> dates;  // per listed column, whether it holds dates
  std::size_t end = 0;      // index of the first token behind the column list; 0 when there is no such list
};

// Reads the head of the INSERT at token `first`, reusing the storage of `insert`. Only a list of plain column
// names counts.
void read_insert(const Tokens& tokens, std::size_t first, DateColumnCache& columns, InsertStatement& insert);

}  // namespace tallyra::standins::ado::dialect
