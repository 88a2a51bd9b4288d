#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "standins/ado/dialect/date_columns.h"

namespace tallyra::standins::ado::dialect {

// Asks about each column once.
class DateColumnCache {
 public:
  explicit DateColumnCache(DateColumns& columns) : columns_(columns) {}

  bool is_date(std::string_view table, std::string_view column);
  void clear() { answers_.clear(); }

 private:
  DateColumns& columns_;
  std::unordered_map<std::string, bool> answers_;
  std::string key_;
};

}  // namespace tallyra::standins::ado::dialect
