#include "standins/ado/dialect/date_literal.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tallyra::tests::dialect {
namespace {

namespace dialect = standins::ado::dialect;

std::string normal_form(std::string_view text) {
  const auto date = dialect::read_date(text);
  if (!date) return "no date";
  std::string written(dialect::written_date_length, '?');
  dialect::write_date(*date, written.data());
  return written;
}

TEST(DateLiteral, IsReadInEveryAcceptedForm) {
  struct Row {
    std::string_view text;
    std::string_view normal;
  };
  for (const Row& row : {
           Row{"2024/03/31", "'2024-03-31 00:00:00'"},
           {"2024-03-31", "'2024-03-31 00:00:00'"},
           {"2024/3/1", "'2024-03-01 00:00:00'"},
           {"2024/03/31 14:05:09", "'2024-03-31 14:05:09'"},
           {"2024-03-31 14:05", "'2024-03-31 14:05:00'"},
           {"2024/03/31  4:05", "'2024-03-31 04:05:00'"},
           {" 2024/03/31 ", "'2024-03-31 00:00:00'"},
           {"3/31/2024", "'2024-03-31 00:00:00'"},
           {"03/07/2024 23:59:59", "'2024-03-07 23:59:59'"},
           {"3/7/2024 2:05:09 PM", "'2024-03-07 14:05:09'"},
           {"3/7/2024 12:00:00 am", "'2024-03-07 00:00:00'"},
           {"3/7/2024 12:30PM", "'2024-03-07 12:30:00'"},
           {"2024/02/29", "'2024-02-29 00:00:00'"},
           {"2000/02/29", "'2000-02-29 00:00:00'"},
           {"0100/01/01", "'0100-01-01 00:00:00'"},
           {"9999/12/31 00:00:00", "'9999-12-31 00:00:00'"},
       })
    EXPECT_EQ(normal_form(row.text), row.normal) << row.text;
}

TEST(DateLiteral, IsNothingElse) {
  for (const std::string_view text : {
           "",
           " ",
           "x",
           "2024",
           "2024/03",
           "2024/03/",
           "2024/02/30",
           "2023/02/29",
           "1900/02/29",
           "2024/13/01",
           "2024/00/01",
           "2024/01/00",
           "2024/04/31",
           "31/3/2024",
           "3-31-2024",
           "24/03/31",
           "3/31/24",
           "0099/01/01",
           "2024/03-31",
           "2024.03.31",
           "20240331",
           "2024/03/031",
           "02024/03/01",
           "12024/03/01",
           "-2024/03/31",
           "2024/03/31x",
           "2024/03/31 x",
           "2024/03/31T14:05",
           "2024/03/3114:05",
           "14:05:09",
           "2024/03/31 24:00",
           "2024/03/31 14:60",
           "2024/03/31 14:05:60",
           "2024/03/31 14:5",
           "2024/03/31 14",
           "2024/03/31 14:05:",
           "2024/03/31 14:05:9",
           "2024/03/31 14:05:09.5",
           "2024/03/31 13:00 PM",
           "2024/03/31 0:00 AM",
           "2024/03/31 1:00 P",
           "2024/03/31 1:00 PMx",
           "99999999999999999999/1/1",
           "2024/99999999999999999999/1",
           "\xE5\xB9\xB4",
           "2024/03/31''",
       })
    EXPECT_EQ(normal_form(text), "no date") << text;
}

TEST(DateLiteral, BetweenQuotesMayBeBlankAndIsElseTheSame) {
  for (const std::string_view text : {"", " ", "     "}) {
    const auto date = dialect::read_quoted_date(text);
    ASSERT_TRUE(date.has_value());
    std::string written(dialect::written_date_length, '?');
    dialect::write_date(*date, written.data());
    EXPECT_EQ(written, "'1900-01-01 00:00:00'");
  }
  EXPECT_TRUE(dialect::read_quoted_date(" 2024/03/31 "));
  EXPECT_FALSE(dialect::read_quoted_date("2024/02/30"));
  EXPECT_FALSE(dialect::read_quoted_date("\t"));
}

TEST(DateLiteral, IsReadWithAnyNumberOfDaysInTheMonth) {
  constexpr int days[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int month = 1; month <= 12; ++month) {
    const std::string prefix = "2024/" + std::to_string(month) + "/";
    EXPECT_TRUE(dialect::read_date(prefix + std::to_string(days[month - 1]))) << month;
    EXPECT_FALSE(dialect::read_date(prefix + std::to_string(days[month - 1] + 1))) << month;
  }
}

TEST(DateLiteral, BetweenHashesEndsAtTheSecondOne) {
  EXPECT_EQ(dialect::hash_date_length("#2024/03/31# And X=#1#"), 12U);
  EXPECT_EQ(dialect::hash_date_length("#2024/03/31 14:05:09#"), 21U);
  EXPECT_EQ(dialect::hash_date_length("#3/7/2024 2:05:09 PM#"), 21U);
  for (const std::string_view text : {"", "#", "##", "#14:05#", "#2024/02/30#", "#2024/03/31", "2024/03/31#"})
    EXPECT_EQ(dialect::hash_date_length(text), 0U) << text;
}

}  // namespace
}  // namespace tallyra::tests::dialect
