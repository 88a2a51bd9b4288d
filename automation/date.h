#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallyra::automation {

// A moment as automation holds it: whole days since 1899-12-30, the time of day as the fraction, which
// counts forward within the day also for days before that.
struct Date {
  double serial = 0;

  friend bool operator==(const Date&, const Date&) = default;
};

struct CivilTime {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;

  bool midnight() const { return hour == 0 && minute == 0 && second == 0; }
};

// Throws Error 5 outside the years 100 to 9999. Rounds to the nearest second.
CivilTime civil_time(Date date);

// Nothing when there is no such day or time.
std::optional<Date> date_from_civil(const CivilTime& civil);

// "YYYY/MM/DD", followed by " HH:MM:SS" when the time of day is not midnight.
void append_date(std::string& out, Date date);
// "YYYY/MM/DD", whatever the time of day.
void append_day(std::string& out, Date date);
// "YYYY/MM/DD HH:MM:SS", always with the time of day.
void append_time_stamp(std::string& out, Date date);

// Reads the texts above, also with '-' between the parts of the day, with one-digit parts and without
// seconds. Nothing for any other text: a form that means different days in different countries is no date
// here.
std::optional<Date> parse_date(std::string_view text);

Date add_days(Date date, int days);

}  // namespace tallyra::automation
