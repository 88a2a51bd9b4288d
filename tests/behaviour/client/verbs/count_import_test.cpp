#include "tests/behaviour/client/stocktaking/counting_client.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, EntersWhatComesBackOfItsOwnSheet) {
  ASSERT_EQ(run({"count", "sheet", "10", "2024/01/31", "--csv"}), exit_done);
  std::string sheet = client_.out();
  const std::string row = "bolt-1,bolt-1,,9,";
  sheet.replace(sheet.find(row), row.size(), row + "10.5");
  ASSERT_EQ(import(sheet), exit_done) << client_.all();
  EXPECT_EQ(stored(), "10-20240131|2024/01/31|10|0\n10-20240131|bolt-1|10.5|NULL\n");
  EXPECT_TRUE(says("1 part of department 10 on 2024/01/31; 3 were not counted"));
  EXPECT_EQ(import(sheet), exit_failed);
  EXPECT_TRUE(says("there is a stocktaking 10-20240131 already"));
}

// Where cells are separated by commas, one in a number makes two cells of it: 1 counted, at a price of 5.
TEST_F(CountingClient, RefusesARowThatACommaInANumberHasMadeLonger) {
  EXPECT_EQ(import("part,counted,price,department,date,notes\n"
                   "bolt-1,1,5,,10,2024/01/31,\n"
                   "Bolt1,2,,10,2024/01/31,one\n"),
            exit_failed);
  EXPECT_TRUE(says("line 2: there are 7 cells under 6 columns: a number has a point, 1.5")) << client_.all();
  EXPECT_EQ(stored(), "");
}

// As a spreadsheet saves it when it is not told otherwise, as no spreadsheet does, and with a quote too few.
TEST_F(CountingClient, RefusesWhatItWouldReadWrongly) {
  const std::string heading = "part,counted,notes\n";
  for (const char* row : {"bolt-1,1,gr\xFCn\n", "bolt-1,1,\x1B[2J\n"}) {
    EXPECT_EQ(import(heading + "Bolt1,1,good\n" + row, on_department_10), exit_failed) << row;
    EXPECT_TRUE(says("line 3: there are characters that are no UTF-8 text")) << client_.error();
  }
  EXPECT_EQ(import(std::string("\xFF\xFEp\0a\0", 6), on_department_10), exit_failed);
  EXPECT_TRUE(says("line 1: there are characters that are no UTF-8")) << client_.error();
  EXPECT_FALSE(says("no column")) << client_.error();
  EXPECT_EQ(import(heading + "bolt-1,1,\"5 inches\nBolt1,1,\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("line 2: a quote is opened and not closed")) << client_.error();
  EXPECT_EQ(import("part,counted,Counted\nbolt-1,1,2\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("line 1: there are two columns 'counted'")) << client_.error();
  EXPECT_EQ(stored(), "");
}

TEST_F(CountingClient, RefusesAFileThatIsNoSheet) {
  EXPECT_EQ(import("name,quantity\nbolt-1,1\n"), exit_failed);
  EXPECT_TRUE(says("no column 'part'") && says("no column 'counted'"));
  EXPECT_EQ(import("part,counted\nbolt-1,\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("nothing was counted"));
  EXPECT_EQ(run({"count", "import", folder_.file("")}), exit_wrong_usage);
  EXPECT_TRUE(says("is a directory"));
  EXPECT_EQ(run({"count", "import", folder_.file("none.csv")}), exit_wrong_usage);
  EXPECT_TRUE(says("no such file"));
  EXPECT_EQ(stored(), "");
}

}  // namespace
}  // namespace tallyra::client
