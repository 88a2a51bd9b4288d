#pragma once

#include <string>
#include <string_view>

#include "automation/date.h"

namespace tallyra::frame {

// How the two database kinds write dates: between "#" for Access, between "'" for every other kind.
class DateLiteral {
 public:
  explicit DateLiteral(std::string_view system_database);

  // The text as it is given, between the quotes.
  std::string of_text(std::string_view text) const;
  // "YYYY/MM/DD" between the quotes.
  std::string of_day(automation::Date date) const;
  // "YYYY/MM/DD HH:MM:SS" between the quotes, at midnight as well.
  std::string of_time_stamp(automation::Date date) const;
  // The default text of the date between the quotes.
  std::string of_date(automation::Date date) const;

 private:
  char quote_;
};

}  // namespace tallyra::frame
