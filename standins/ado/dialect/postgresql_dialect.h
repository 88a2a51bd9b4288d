#pragma once

#include <vector>

#include "standins/ado/dialect/dialect.h"
#include "standins/ado/dialect/postgresql_guard.h"

namespace tallyra::standins::ado::dialect {

// PostgreSQL's words for what it shares with no other engine:
//
//   [Name]                "name", because it stores a name that nobody quotes in small letters
//   Delete T Where ...    Delete From T Where ...
//   Set T.COL=            Set COL=
void reword_for_postgresql(const Tokens& tokens, std::vector<Rewording>& rewordings);

// A subquery of row addresses is joined row by row; an array of them is looked up at once.
inline constexpr Differences postgresql_differences{.row_identity = "ctid",
                                                    .judge = judge_for_postgresql,
                                                    .rows_begin = "=ANY(ARRAY(",
                                                    .rows_end = "))",
                                                    .member_begin = "(",
                                                    .reword = reword_for_postgresql};

class PostgresqlDialect : public Dialect {
 public:
  explicit PostgresqlDialect(DateColumns& columns) : Dialect(postgresql_differences, columns) {}
};

}  // namespace tallyra::standins::ado::dialect
