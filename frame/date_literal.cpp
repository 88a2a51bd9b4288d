#include "frame/date_literal.h"

#include "frame/schema/codes.h"

namespace tallyra::frame {

DateLiteral::DateLiteral(std::string_view system_database)
    : quote_(system_database == schema::access_kind ? '#' : '\'') {}

std::string DateLiteral::of_text(std::string_view text) const {
  std::string literal(1, quote_);
  literal += text;
  literal += quote_;
  return literal;
}

std::string DateLiteral::of_day(automation::Date date) const {
  std::string literal(1, quote_);
  automation::append_day(literal, date);
  literal += quote_;
  return literal;
}

std::string DateLiteral::of_time_stamp(automation::Date date) const {
  std::string literal(1, quote_);
  automation::append_time_stamp(literal, date);
  literal += quote_;
  return literal;
}

std::string DateLiteral::of_date(automation::Date date) const {
  std::string literal(1, quote_);
  automation::append_date(literal, date);
  literal += quote_;
  return literal;
}

}  // namespace tallyra::frame
