#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "automation/convert.h"

namespace tallyra::standins::corvane {

// A series of document numbers: a fixed prefix followed by a counter of a fixed number of digits, so that the
// numbers of one series sort as text in the order in which they were issued.
class Series {
 public:
  static constexpr std::size_t longest_number = 30;

  // "STK027CLOSE" gives 027CLOSE00000001, 027CLOSE00000002, ...: the type without a leading "STK", then eight
  // digits.
  static Series running(std::string_view document_type);
  // "STKCHECKISS" on 2024-03-31 gives CHECKISS2403310001, ...: the day as yymmdd, then four digits; a series
  // per day.
  static Series daily(std::string_view document_type, const automation::CivilTime& day);
  // Both throw Error bad_key_request for a type that is no word of letters, digits, '-' and '_', or is too
  // long.

  const std::string& prefix() const { return prefix_; }
  std::int32_t last_counter() const { return last_counter_; }
  // Precondition: counter is from 0 to last_counter().
  std::string number(std::int32_t counter) const;
  // The counter in a number; nothing when the number is of another series.
  std::optional<std::int32_t> counter_of(std::string_view number) const;

 private:
  Series(std::string prefix, std::size_t digits);

  std::string prefix_;
  std::size_t digits_;
  std::int32_t last_counter_ = 1;
};

}  // namespace tallyra::standins::corvane
