#pragma once

#include <cstddef>
#include <optional>

#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// `TOP n` or `TOP (n)`, by token index.
struct TopClause {
  std::size_t first;
  std::size_t last;
  std::size_t count;
};

// The TOP clause of the SELECT at token `select`, also behind ALL or DISTINCT. Nothing for a column that is
// merely called top, for a count that is no plain number, and for PERCENT and WITH TIES, which no LIMIT can
// express.
std::optional<TopClause> read_top(const Tokens& tokens, std::size_t select);

}  // namespace tallyra::standins::ado::dialect
