#include "standins/ado/dialect/date_literal.h"

#include <array>

namespace tallyra::standins::ado::dialect {
namespace {

// More than the longest literal needs, with some blanks to spare: bounds the search for the closing #.
constexpr std::size_t longest_hash_date = 40;

struct Digits {
  int value = 0;
  int count = 0;
};

class Reader {
 public:
  explicit Reader(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  bool done() const { return at_ == end_; }

  std::size_t skip_blanks() {
    const char* from = at_;
    while (at_ != end_ && *at_ == ' ') ++at_;
    return static_cast<std::size_t>(at_ - from);
  }

  char next() { return at_ == end_ ? '\0' : *at_++; }

  bool take(char c) {
    if (at_ == end_ || *at_ != c) return false;
    ++at_;
    return true;
  }

  // A fifth digit is counted, to be refused, but not read on.
  Digits digits() {
    Digits read;
    while (at_ != end_ && *at_ >= '0' && *at_ <= '9' && read.count < 5) {
      read.value = read.value * 10 + (*at_++ - '0');
      ++read.count;
    }
    return read;
  }

 private:
  const char* at_;
  const char* end_;
};

int days_in(int year, int month) {
  constexpr std::array<int, 13> days{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : days[static_cast<std::size_t>(month)];
}

bool one_or_two(const Digits& digits) {
  return digits.count == 1 || digits.count == 2;
}

bool read_day(Reader& reader, DateTime& date) {
  const Digits first = reader.digits();
  const char separator = reader.next();
  if (separator != '/' && separator != '-') return false;
  const Digits second = reader.digits();
  if (!reader.take(separator)) return false;
  const Digits third = reader.digits();
  if (first.count == 4 && one_or_two(second) && one_or_two(third)) {
    date.year = first.value, date.month = second.value, date.day = third.value;
  } else if (separator == '/' && one_or_two(first) && one_or_two(second) && third.count == 4) {
    date.year = third.value, date.month = first.value, date.day = second.value;
  } else {
    return false;
  }
  return date.year >= 100 && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
         date.day <= days_in(date.year, date.month);
}

// Twelve o'clock is the first hour of either half of the day.
bool read_half_of_day(Reader& reader, DateTime& date) {
  const char half = static_cast<char>(reader.next() & ~0x20);
  const char m = static_cast<char>(reader.next() & ~0x20);
  if ((half != 'A' && half != 'P') || m != 'M' || date.hour < 1 || date.hour > 12) return false;
  date.hour = date.hour % 12 + (half == 'P' ? 12 : 0);
  reader.skip_blanks();
  return reader.done();
}

bool read_time(Reader& reader, DateTime& date) {
  const Digits hour = reader.digits();
  if (!one_or_two(hour) || !reader.take(':')) return false;
  const Digits minute = reader.digits();
  Digits second{0, 2};
  if (reader.take(':')) second = reader.digits();
  if (minute.count != 2 || second.count != 2) return false;
  date.hour = hour.value, date.minute = minute.value, date.second = second.value;
  if (date.hour > 23 || date.minute > 59 || date.second > 59) return false;
  reader.skip_blanks();
  return reader.done() || read_half_of_day(reader, date);
}

char* write_two(int value, char* target) {
  *target++ = static_cast<char>('0' + value / 10);
  *target++ = static_cast<char>('0' + value % 10);
  return target;
}

}  // namespace

std::optional<DateTime> read_date(std::string_view text) {
  Reader reader(text);
  DateTime date;
  reader.skip_blanks();
  if (!read_day(reader, date)) return std::nullopt;
  const bool blank = reader.skip_blanks() != 0;
  if (reader.done()) return date;
  if (!blank || !read_time(reader, date)) return std::nullopt;
  return date;
}

std::optional<DateTime> read_quoted_date(std::string_view text) {
  if (text.find_first_not_of(' ') == std::string_view::npos)
    return DateTime{.year = 1900, .month = 1, .day = 1};
  return read_date(text);
}

std::size_t hash_date_length(std::string_view sql) {
  if (sql.empty() || sql[0] != '#') return 0;
  const std::size_t closing = sql.substr(0, longest_hash_date).find('#', 1);
  if (closing == std::string_view::npos || !read_date(sql.substr(1, closing - 1))) return 0;
  return closing + 1;
}

void write_date(const DateTime& date, char* target) {
  *target++ = '\'';
  target = write_two(date.year / 100, target);
  target = write_two(date.year % 100, target);
  *target++ = '-';
  target = write_two(date.month, target);
  *target++ = '-';
  target = write_two(date.day, target);
  *target++ = ' ';
  target = write_two(date.hour, target);
  *target++ = ':';
  target = write_two(date.minute, target);
  *target++ = ':';
  target = write_two(date.second, target);
  *target = '\'';
}

}  // namespace tallyra::standins::ado::dialect
