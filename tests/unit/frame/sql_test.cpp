#include "frame/sql.h"

#include <gtest/gtest.h>

#include "frame/date_literal.h"

namespace tallyra::frame {
namespace {

TEST(StatementText, WithoutHolesIsTheTextItself) {
  EXPECT_EQ(sql("Order  by X "), "Order  by X ");
}

TEST(StatementText, FillsEveryHoleInOrder) {
  EXPECT_EQ(sql("Select '{}' , {}  And '{}'", "O'Neil", 1.0 / 30, automation::Value("x")),
            "Select 'O'Neil' , 3.33333333333333E-02  And 'x'");
  EXPECT_EQ(sql("{}{}", automation::Value(automation::Null{}), "{}"), "{}");
  EXPECT_EQ(sql("a{}", ""), "a");
}

TEST(DateLiterals, StandInTheQuotesOfTheKind) {
  const struct {
    const char* kind;
    const char* text;
    const char* day;
    const char* date;
  } rows[] = {{"MSACCESS", "#x#", "#2024/03/07#", "#2024/03/07 12:00:00#"},
              {"MSSQLSERVER", "'x'", "'2024/03/07'", "'2024/03/07 12:00:00'"},
              {"", "'x'", "'2024/03/07'", "'2024/03/07 12:00:00'"},
              {"msaccess", "'x'", "'2024/03/07'", "'2024/03/07 12:00:00'"}};
  for (const auto& [kind, text, day, date] : rows) {
    const DateLiteral literal(kind);
    EXPECT_EQ(literal.of_text("x"), text);
    EXPECT_EQ(literal.of_day({45358.5}), day);
    EXPECT_EQ(literal.of_date({45358.5}), date);
  }
}

}  // namespace
}  // namespace tallyra::frame
