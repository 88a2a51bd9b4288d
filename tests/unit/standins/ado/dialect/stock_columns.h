#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "standins/ado/dialect/date_columns.h"
#include "standins/ado/dialect/keyword.h"

namespace tallyra::tests::dialect {

// The date columns of the stock tables, and how often it was asked.
class StockColumns : public standins::ado::dialect::DateColumns {
 public:
  bool is_date(std::string_view table, std::string_view column) override {
    ++asked;
    return std::any_of(dates.begin(), dates.end(), [&](const Column& date) {
      return standins::ado::dialect::same_name(date.table, table) &&
             standins::ado::dialect::same_name(date.column, column);
    });
  }

  std::size_t asked = 0;

 private:
  struct Column {
    std::string_view table;
    std::string_view column;
  };

  static constexpr auto dates = std::to_array<Column>({
      {"STKTRANHD", "TRANDT"},
      {"STKTRANHD", "STATUSDT"},
      {"STKTRANHD", "ADDDT"},
      {"STKTRANHD", "EDITDT"},
      {"STKTRANDT", "ADDDT"},
      {"STKTRANDT", "EDITDT"},
      {"STKCLOSEHD", "CLOSEDT"},
      {"STKCLOSEHD", "ADDDT"},
      {"STKCHECKHD", "CHECKDT"},
      {"PARTS", "EDITDT"},
      {"REVADDR", "ADDDT"},
  });
};

}  // namespace tallyra::tests::dialect
