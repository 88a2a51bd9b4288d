#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace tallyra::company {

using Day = std::chrono::sys_days;

// The days on which documents are written: Monday to Friday, and the last day of a month whatever weekday it
// is, because stores book everything before the month is closed.
std::vector<Day> booking_days(std::chrono::year_month start, int months);

Day last_day(std::chrono::year_month month);

// 'YYYY-MM-DD HH:MM:SS', the one form in which this database holds dates.
std::string timestamp(Day day, int second_of_day = 0);

// 'YYMM', the month as it appears in document numbers.
std::string short_month(Day day);

}  // namespace tallyra::company
