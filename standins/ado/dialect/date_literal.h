#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tallyra::standins::ado::dialect {

struct DateTime {
  int year = 0;  // 100 to 9999, the years an automation date can hold
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Reads what stands inside the delimiters of a date literal: YYYY/M/D, YYYY-M-D or M/D/YYYY, then optionally
// blanks and H:MM or H:MM:SS, 24 hours or with AM/PM. Blanks around are allowed. Nothing for any other text,
// for days and times that do not exist, and for a time without a date.
std::optional<DateTime> read_date(std::string_view text);

// Reads what a text between quotes means to a date column: as `read_date` does, and a text of nothing but
// blanks is 1900/01/01, as on SQL Server.
std::optional<DateTime> read_quoted_date(std::string_view text);

// Length of the date literal #...# that `sql` begins with, delimiters included; 0 when it begins with none.
std::size_t hash_date_length(std::string_view sql);

// 'YYYY-MM-DD HH:MM:SS' with its quotes.
inline constexpr std::size_t written_date_length = 21;

// Writes the text literal of a date, `written_date_length` characters.
void write_date(const DateTime& date, char* target);

}  // namespace tallyra::standins::ado::dialect
