#pragma once

#include <string>
#include <string_view>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {

// What a dialect that has seen nothing yet makes of the text.
inline std::string rewritten(std::string_view sql) {
  StockColumns columns;
  standins::ado::dialect::SqliteDialect dialect(columns);
  return std::string(dialect.rewrite(sql));
}

struct Rewriting {
  std::string_view text;
  std::string_view sqlite;
};

}  // namespace tallyra::tests::dialect
