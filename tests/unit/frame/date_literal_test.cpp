#include "frame/date_literal.h"

#include <gtest/gtest.h>

namespace tallyra::frame {
namespace {

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
    EXPECT_EQ(literal.of_time_stamp({45358.5}), date);
  }
}

TEST(DateLiterals, HaveTheTimeOnlyWhereItIsWanted) {
  const DateLiteral literal("MSACCESS");
  EXPECT_EQ(literal.of_date({45358}), "#2024/03/07#");
  EXPECT_EQ(literal.of_time_stamp({45358}), "#2024/03/07 00:00:00#");
}

}  // namespace
}  // namespace tallyra::frame
