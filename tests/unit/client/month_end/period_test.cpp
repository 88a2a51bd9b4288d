#include "client/month_end/period.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

automation::Date day(const char* text) {
  return *automation::parse_date(text);
}

TEST(PeriodOfAClose, KnowsTheLastDayOfAMonth) {
  for (const char* last : {"2024/01/31", "2024/02/29", "2023/02/28", "2024/12/31"})
    EXPECT_TRUE(is_last_of_month(day(last))) << last;
  for (const char* within : {"2024/01/30", "2024/02/28", "2024/12/01"})
    EXPECT_FALSE(is_last_of_month(day(within))) << within;
}

TEST(PeriodOfAClose, CountsMonthsOverTheYears) {
  EXPECT_EQ(month_number(day("2024/01/01")) - month_number(day("2023/12/31")), 1);
  EXPECT_EQ(month_number(day("2024/01/31")), month_number(day("2024/01/01")));
}

TEST(PeriodOfAClose, BeginsAfterTheCloseBeforeIt) {
  std::vector<CloseRecord> records(3);
  records[0].date = day("2024/01/31");
  records[1].date = day("2024/02/29");
  records[2].date = day("2024/04/30");
  EXPECT_EQ(period_of(records, day("2024/03/31")).after, day("2024/02/29"));
  EXPECT_EQ(period_of(records, day("2024/02/29")).after, day("2024/01/31"));
  EXPECT_EQ(period_of(records, day("2024/01/31")).after, day("2000/01/01"));
  EXPECT_EQ(period_of(records, day("2024/02/29")).documents_day(), day("2024/03/01"));
  EXPECT_EQ(find_record(records, day("2024/03/31")), nullptr);
}

}  // namespace
}  // namespace tallyra::client
