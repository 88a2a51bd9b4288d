#include "client/stocktaking/count_sheet.h"

#include <gtest/gtest.h>

#include "automation/convert.h"

namespace tallyra::client {
namespace {

// What is wrong with a sheet; empty when nothing is.
std::string errors_of(const std::string& text) {
  SheetErrors errors;
  read_sheet(text, errors);
  return errors_text(errors);
}

TEST(CountSheet, IsReadByTheNamesOfItsColumnsInAnyOrder) {
  SheetErrors errors;
  const CountSheet sheet = read_sheet(
      "name,Counted,PART,price,notes,department,date\n"
      "Bolt,12.5,bolt-1,0.25,in two boxes,10,2024/01/31\n"
      "Frame,0,frame,,,10,2024/01/31\n"
      "Nut,,nut,,,,\n",
      errors);
  EXPECT_EQ(errors_text(errors), "");
  EXPECT_EQ(sheet.department, "10");
  ASSERT_TRUE(sheet.day);
  EXPECT_EQ(sheet.day->serial, automation::parse_date("2024/01/31")->serial);
  EXPECT_EQ(sheet.not_counted, 1U);
  ASSERT_EQ(sheet.lines.size(), 2U);
  EXPECT_EQ(sheet.lines[0].line, 2U);
  EXPECT_EQ(sheet.lines[0].part, "bolt-1");
  EXPECT_EQ(sheet.lines[0].quantity, 12.5);
  EXPECT_EQ(sheet.lines[0].price, 0.25);
  EXPECT_EQ(sheet.lines[0].notes, "in two boxes");
  EXPECT_EQ(sheet.lines[1].quantity, 0);
  EXPECT_FALSE(sheet.lines[1].price);
}

TEST(CountSheet, WithoutPartsOrCountsIsToldAsAWhole) {
  EXPECT_EQ(errors_of(""), "sheet: the sheet is empty");
  EXPECT_EQ(errors_of("part,counted\n"), "sheet: nothing was counted: every counted quantity is empty");
  EXPECT_EQ(errors_of("name\nBolt\n"),
            "line 1: there is no column 'part'\nline 1: there is no column 'counted'");
}

TEST(CountSheet, ReadsOnBehindALineThatIsWrong) {
  EXPECT_EQ(errors_of("part,counted\n"
                      ",1\n"
                      "bolt's,1\n"
                      "bolt-1,-1\n"
                      "bolt-1,1,5\n"),
            "line 2: there is no part\n"
            "line 3: part bolt's has an apostrophe in it and cannot be counted\n"
            "line 4: counted: -1 is below zero\n"
            "line 5: there are 3 cells under 2 columns: a number has a point, 1.5, and a text with a comma "
            "stands in quotes");
}

TEST(CountSheet, IsOfOneDepartmentAndOneDate) {
  EXPECT_EQ(errors_of("part,counted,department,date\n"
                      "a,1,10,2024/01/31\n"
                      "b,1,20,2024/01/30\n"
                      "c,1,10,soon\n"),
            "line 3: department 20 on a sheet of department 10\n"
            "line 3: date 2024/01/30 on a sheet of another date\n"
            "line 4: 'soon' is no date: write YYYY/MM/DD");
}

TEST(CountSheet, TakesPartsAndNotesOnlyAsLongAsTheirColumns) {
  const auto sheet = [](std::size_t part, std::size_t notes) {
    return "part,counted,notes\n" + std::string(part, 'p') + ",1," + std::string(notes, 'n') + "\n";
  };
  EXPECT_EQ(errors_of(sheet(40, 255)), "");
  EXPECT_EQ(errors_of(sheet(41, 0)),
            "line 2: part " + std::string(41, 'p') + " is too long for a part number");
  EXPECT_EQ(errors_of(sheet(1, 256)), "line 2: the notes are too long");
}

TEST(CountSheet, TellsErrorsInTheOrderOfTheirLines) {
  EXPECT_EQ(errors_text({{7, "b"}, {0, "whole"}, {2, "a"}, {7, "c"}}),
            "sheet: whole\nline 2: a\nline 7: b\nline 7: c");
}

}  // namespace
}  // namespace tallyra::client
