#pragma once

#include <cstddef>

#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// A column as a statement names it, by token index; 0, the index of the opening end token, means "none".
struct ColumnRef {
  std::size_t column = 0;
  std::size_t qualifier = 0;  // the table name or alias before the last dot

  explicit operator bool() const { return column != 0; }
};

// The column that is the whole operand left of the operator at `op`: a plain, qualified or parenthesised
// column, or its Max or Min. Nothing when the operand is any other expression.
ColumnRef column_before(const Tokens& tokens, std::size_t op);

// The same for the operand right of the operator.
ColumnRef column_after(const Tokens& tokens, std::size_t op);

// Whether the token binds its neighbour into an arithmetic expression.
bool binds(const Tokens& tokens, std::size_t i);

}  // namespace tallyra::standins::ado::dialect
