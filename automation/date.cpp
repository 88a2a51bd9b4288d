#include "automation/date.h"

#include <chrono>
#include <cmath>

#include "automation/error.h"

namespace tallyra::automation {
namespace {

// The first day's time of day is a fraction away from zero.
constexpr double first_serial = -657435;
constexpr double end_serial = 2958466;
constexpr int seconds_per_day = 86400;
constexpr std::chrono::sys_days day_zero = std::chrono::year{1899} / 12 / 30;

void append_padded(std::string& out, int value, int width) {
  char digits[4];
  for (int i = width; i-- > 0; value /= 10) digits[i] = static_cast<char>('0' + value % 10);
  out.append(digits, static_cast<std::size_t>(width));
}

void append_civil_day(std::string& out, const CivilTime& civil) {
  append_padded(out, civil.year, 4);
  out += '/';
  append_padded(out, civil.month, 2);
  out += '/';
  append_padded(out, civil.day, 2);
}

void append_time_of_day(std::string& out, const CivilTime& civil) {
  append_padded(out, civil.hour, 2);
  out += ':';
  append_padded(out, civil.minute, 2);
  out += ':';
  append_padded(out, civil.second, 2);
}

// Reads 1 to `width` digits and moves behind them; -1 when there is none.
int take_digits(std::string_view& text, std::size_t width) {
  int value = -1;
  for (std::size_t i = 0; i < width && !text.empty() && text.front() >= '0' && text.front() <= '9'; ++i) {
    value = (value < 0 ? 0 : value * 10) + (text.front() - '0');
    text.remove_prefix(1);
  }
  return value;
}

bool take(std::string_view& text, char expected) {
  if (text.empty() || text.front() != expected) return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace

CivilTime civil_time(Date date) {
  if (!(date.serial > first_serial && date.serial < end_serial)) throw Error(error_number::invalid_argument);
  double days = std::trunc(date.serial);
  auto seconds = static_cast<int>(std::lround(std::fabs(date.serial - days) * seconds_per_day));
  if (seconds == seconds_per_day) {
    seconds = 0;
    days += 1;
    if (days >= end_serial) throw Error(error_number::invalid_argument);
  }
  const std::chrono::year_month_day day(day_zero + std::chrono::days(static_cast<int>(days)));
  return {static_cast<int>(day.year()),
          static_cast<int>(static_cast<unsigned>(day.month())),
          static_cast<int>(static_cast<unsigned>(day.day())),
          seconds / 3600,
          seconds / 60 % 60,
          seconds % 60};
}

std::optional<Date> date_from_civil(const CivilTime& civil) {
  // The calendar's types keep a byte of a month or day: what lies beyond must not come near them.
  if (civil.year < 100 || civil.year > 9999 || civil.month < 1 || civil.month > 12 || civil.day < 1 ||
      civil.day > 31)
    return std::nullopt;
  const std::chrono::year_month_day day(std::chrono::year(civil.year),
                                        std::chrono::month(static_cast<unsigned>(civil.month)),
                                        std::chrono::day(static_cast<unsigned>(civil.day)));
  if (!day.ok() || civil.hour < 0 || civil.hour > 23 || civil.minute < 0 || civil.minute > 59 ||
      civil.second < 0 || civil.second > 59)
    return std::nullopt;
  const auto days = static_cast<double>((std::chrono::sys_days(day) - day_zero).count());
  const double time = (civil.hour * 3600 + civil.minute * 60 + civil.second) / double{seconds_per_day};
  return Date{days < 0 ? days - time : days + time};
}

void append_date(std::string& out, Date date) {
  const CivilTime civil = civil_time(date);
  append_civil_day(out, civil);
  if (civil.midnight()) return;
  out += ' ';
  append_time_of_day(out, civil);
}

void append_day(std::string& out, Date date) {
  append_civil_day(out, civil_time(date));
}

void append_time_stamp(std::string& out, Date date) {
  const CivilTime civil = civil_time(date);
  append_civil_day(out, civil);
  out += ' ';
  append_time_of_day(out, civil);
}

std::optional<Date> parse_date(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  CivilTime civil;
  const std::size_t length = text.size();
  civil.year = take_digits(text, 4);
  if (length - text.size() != 4 || text.empty()) return std::nullopt;
  const char separator = text.front();
  if (separator != '/' && separator != '-') return std::nullopt;
  text.remove_prefix(1);
  civil.month = take_digits(text, 2);
  if (civil.month < 0 || !take(text, separator)) return std::nullopt;
  civil.day = take_digits(text, 2);
  if (civil.day < 0) return std::nullopt;
  if (!text.empty()) {
    if (!take(text, ' ')) return std::nullopt;
    while (take(text, ' ')) {
    }
    civil.hour = take_digits(text, 2);
    if (civil.hour < 0 || !take(text, ':')) return std::nullopt;
    civil.minute = take_digits(text, 2);
    if (civil.minute < 0) return std::nullopt;
    if (!text.empty()) {
      if (!take(text, ':')) return std::nullopt;
      civil.second = take_digits(text, 2);
      if (civil.second < 0 || !text.empty()) return std::nullopt;
    }
  }
  return date_from_civil(civil);
}

Date add_days(Date date, int days) {
  // Days before day zero hold their time as a negative fraction: move the day, keep the time.
  const double day = std::trunc(date.serial);
  const double time = std::fabs(date.serial - day);
  const double moved = day + days;
  const Date result{moved < 0 ? moved - time : moved + time};
  civil_time(result);
  return result;
}

}  // namespace tallyra::automation
