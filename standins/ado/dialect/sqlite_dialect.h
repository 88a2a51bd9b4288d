#pragma once

#include "standins/ado/dialect/dialect.h"

namespace tallyra::standins::ado::dialect {

inline constexpr Differences sqlite_differences{.row_identity = "rowid", .judge = judge};

class SqliteDialect : public Dialect {
 public:
  explicit SqliteDialect(DateColumns& columns) : Dialect(sqlite_differences, columns) {}
};

}  // namespace tallyra::standins::ado::dialect
