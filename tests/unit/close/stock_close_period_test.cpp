#include "close/stock_close_period.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace tallyra::close {
namespace {

TEST(ClosePeriod, TakesTheCloseDateInTheClientsWordsAndTheDocumentsOfTheDayAfter) {
  const struct {
    const char* kind;
    const char* date;
    const char* close;
    const char* next_day;
  } rows[] = {{"MSACCESS", "2024/03/31", "#2024/03/31#", "#2024/04/01#"},
              {"MSSQLSERVER", "2024/03/31", "'2024/03/31'", "'2024/04/01'"},
              {"", "2023/02/28", "'2023/02/28'", "'2023/03/01'"},
              {"MSACCESS", "2024/02/28", "#2024/02/28#", "#2024/02/29#"},
              {"MSACCESS", "2024/12/31 23:59:59", "#2024/12/31 23:59:59#", "#2025/01/01#"},
              {"MSACCESS", " 2024/1/5 ", "# 2024/1/5 #", "#2024/01/06#"}};
  for (const auto& [kind, date, close, next_day] : rows) {
    const ClosePeriod period = period_until(date, frame::DateLiteral(kind));
    EXPECT_EQ(period.close, close);
    EXPECT_EQ(period.next_day, next_day) << date;
    EXPECT_EQ(period.previous, "") << "nobody has looked for it";
    EXPECT_EQ(period.today, "");
  }
}

TEST(ClosePeriod, DoesNotEndOnWhatIsNoDate) {
  for (const char* date : {"", "March", "2024/02/30", "45382x"}) {
    std::int32_t number = 0;
    try {
      period_until(date, frame::DateLiteral("MSACCESS"));
    } catch (const automation::Error& error) {
      number = error.number();
    }
    EXPECT_EQ(number, automation::error_number::type_mismatch) << date;
  }
}

}  // namespace
}  // namespace tallyra::close
