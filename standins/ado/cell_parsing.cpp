#include "standins/ado/cell_parsing.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>

#include "automation/date.h"
#include "automation/decimal.h"

namespace tallyra::standins::ado {
namespace {

using Kind = Cell::Kind;

template <class Number>
bool parse_whole(std::string_view text, Number& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end;
}

template <class Integer>
bool fits(std::int64_t value) {
  return value >= std::numeric_limits<Integer>::min() && value <= std::numeric_limits<Integer>::max();
}

bool two_digits(const char* text, int& number) {
  const auto tens = static_cast<unsigned>(text[0] - '0');
  const auto ones = static_cast<unsigned>(text[1] - '0');
  number = static_cast<int>(tens * 10 + ones);
  return tens < 10 && ones < 10;
}

// Behind the seconds: nothing, or a point and digits.
bool parse_fraction(std::string_view text, double& seconds) {
  seconds = 0;
  if (text.empty()) return true;
  if (text.size() < 2 || text[0] != '.' || text[1] < '0' || text[1] > '9') return false;
  return parse_whole(text, seconds);
}

bool parse_currency(std::string_view text, std::int64_t& ten_thousandths) {
  const auto decimal = automation::Decimal::parse(text);
  if (!decimal || decimal->words()[2] != 0) return false;
  auto magnitude = static_cast<std::uint64_t>(decimal->words()[1]) << 32 | decimal->words()[0];
  int scale = decimal->scale();
  for (; scale > 4 && magnitude % 10 == 0; --scale) magnitude /= 10;
  constexpr auto limit = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  for (; scale < 4; ++scale) {
    if (magnitude > limit / 10) return false;
    magnitude *= 10;
  }
  if (scale != 4 || magnitude > limit) return false;
  ten_thousandths = static_cast<std::int64_t>(magnitude);
  if (decimal->negative()) ten_thousandths = -ten_thousandths;
  return true;
}

std::optional<Cell> parse_number(DataType type, std::string_view text) {
  std::int64_t integer = 0;
  double number = 0;
  switch (type) {
    case DataType::small_int:
    case DataType::integer:
    case DataType::unsigned_tiny_int:
    case DataType::big_int:
      if (parse_whole(text, integer)) return integer_cell(type, integer);
      if (parse_whole(text, number)) return Cell::of_number(Kind::real, number);
      return std::nullopt;
    case DataType::boolean:
      if (parse_whole(text, integer)) return Cell::of_integer(Kind::boolean, integer != 0);
      return std::nullopt;
    case DataType::double_precision:
      if (parse_whole(text, number)) return Cell::of_number(Kind::real, number);
      return std::nullopt;
    case DataType::single:
      if (parse_whole(text, number)) return Cell::of_number(Kind::single, number);
      return std::nullopt;
    case DataType::currency:
      if (parse_currency(text, integer)) return Cell::of_integer(Kind::currency, integer);
      return std::nullopt;
    case DataType::date:
    case DataType::time_stamp:
      if (parse_time_stamp(text, number)) return Cell::of_number(Kind::date, number);
      return std::nullopt;
    default: return std::nullopt;
  }
}

}  // namespace

bool parse_time_stamp(std::string_view text, double& serial) {
  constexpr std::size_t day_size = 10;
  constexpr std::size_t second_size = 19;
  if (text.size() < day_size || text[4] != '-' || text[7] != '-') return false;
  automation::CivilTime civil;
  int century = 0;
  int year = 0;
  if (!two_digits(text.data(), century) || !two_digits(text.data() + 2, year) ||
      !two_digits(text.data() + 5, civil.month) || !two_digits(text.data() + 8, civil.day))
    return false;
  civil.year = century * 100 + year;
  double fraction = 0;
  if (text.size() > day_size) {
    if (text.size() < second_size || (text[10] != ' ' && text[10] != 'T') || text[13] != ':' ||
        text[16] != ':' || !two_digits(text.data() + 11, civil.hour) ||
        !two_digits(text.data() + 14, civil.minute) || !two_digits(text.data() + 17, civil.second) ||
        !parse_fraction(text.substr(second_size), fraction))
      return false;
  }
  const auto date = automation::date_from_civil(civil);
  if (!date) return false;
  // The time of day counts forward within the day, also before the year 1900.
  const double part = fraction / 86400.0;
  serial = date->serial < 0 ? date->serial - part : date->serial + part;
  return true;
}

Cell integer_cell(DataType type, std::int64_t value) {
  if (type == DataType::small_int && fits<std::int16_t>(value)) return Cell::of_integer(Kind::int16, value);
  if (type == DataType::unsigned_tiny_int && fits<std::uint8_t>(value))
    return Cell::of_integer(Kind::uint8, value);
  return Cell::of_integer(fits<std::int32_t>(value) ? Kind::int32 : Kind::int64, value);
}

Cell parse_cell(DataType type, std::string_view text, TextArena& arena) {
  if (const auto number = parse_number(type, text)) return *number;
  Kind kind = Kind::text;
  if (type == DataType::numeric) {
    double number = 0;
    if (automation::Decimal::parse(text))
      kind = Kind::decimal;
    else if (parse_whole(text, number))  // beyond 28 digits
      return Cell::of_number(Kind::real, number);
  }
  return Cell::of_data(kind, arena.keep(text), text.size());
}

}  // namespace tallyra::standins::ado
