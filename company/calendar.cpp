#include "company/calendar.h"

#include <cstdio>

namespace tallyra::company {

Day last_day(std::chrono::year_month month) {
  return month / std::chrono::last;
}

std::vector<Day> booking_days(std::chrono::year_month start, int months) {
  std::vector<Day> days;
  for (int month = 0; month < months; ++month) {
    const auto current = start + std::chrono::months{month};
    const Day last = last_day(current);
    for (Day day = current / std::chrono::day{1}; day <= last; day += std::chrono::days{1}) {
      const std::chrono::weekday weekday{day};
      const bool weekend = weekday == std::chrono::Saturday || weekday == std::chrono::Sunday;
      if (!weekend || day == last) days.push_back(day);
    }
  }
  return days;
}

std::string timestamp(Day day, int second_of_day) {
  const std::chrono::year_month_day date{day};
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), second_of_day / 3600,
                second_of_day / 60 % 60, second_of_day % 60);
  return text;
}

std::string short_month(Day day) {
  const std::chrono::year_month_day date{day};
  char text[32];
  std::snprintf(text, sizeof text, "%02d%02u", static_cast<int>(date.year()) % 100,
                static_cast<unsigned>(date.month()));
  return text;
}

}  // namespace tallyra::company
