#include <csignal>

#include "tests/behaviour/client/stocktaking/counting_client.h"
#include "tests/support/watched_calls.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, PrintsASheetWithTheBookOfTheDepartment) {
  ASSERT_EQ(run({"count", "sheet", "10", "2024/01/31", "--csv"}), exit_done) << client_.all();
  EXPECT_EQ(client_.out(),
            "department,date,part,name,unit,book,counted,price,notes\n"
            "10,2024/01/31,BOLT-1,BOLT-1,,2,,,\n"
            "10,2024/01/31,Bolt1,Bolt1,,8,,,\n"
            "10,2024/01/31,bolt-1,bolt-1,,9,,,\n"
            "10,2024/01/31,螺丝,螺丝,,7,,,\n");
  ASSERT_EQ(run({"count", "sheet", "10", "2024/01/31", "--csv", "--blind", "--all"}), exit_done);
  EXPECT_EQ(client_.out().find("book"), std::string::npos);
  EXPECT_NE(client_.out().find("frame"), std::string::npos);
  EXPECT_EQ(run({"count", "sheet", "99", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("no department 99"));
}

// What came in by transfer counts, an issue below zero does not make the book smaller than nothing.
TEST_F(CountingClient, CountsInTheSheetAsAnApprovalDoes) {
  sql({"INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('P1',3,'螺丝',-9)"});
  ASSERT_EQ(run({"count", "sheet", "20", "2024/01/31", "--csv"}), exit_done);
  EXPECT_NE(client_.out().find("bolt-1,bolt-1,,7,"), std::string::npos) << client_.out();
  EXPECT_NE(client_.out().find("螺丝,螺丝,,2,"), std::string::npos) << client_.out();
}

TEST_F(CountingClient, BeginsTheBookAfterTheLastClose) {
  close_and_approve("2024/01/31");
  ASSERT_EQ(run({"count", "sheet", "10", "2024/02/15", "--csv"}), exit_done);
  EXPECT_NE(client_.out().find("bolt-1,bolt-1,,10,"), std::string::npos) << client_.out();
  ASSERT_EQ(run({"count", "sheet", "10", "2024/01/31", "--csv"}), exit_done);
  EXPECT_TRUE(says("2024/01/31 is closed: the sheet cannot be imported"));
}

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

TEST_F(CountingClient, TellsAllErrorsOfASheetAtOnceAndWritesNothing) {
  EXPECT_EQ(import("part;counted;price;department;date\n"
                   "bolt-1;1,5;;10;2024/01/31\n"
                   "Bolt1;$5;2;10;2024/01/31\n"
                   "BOLT-1;(5);;10;\n"
                   "nothing;1;;10;\n"
                   "frame;1;free;20;2024/01/30\n"
                   "frame;-1;;;31.1.2024\n"
                   "it's;1;;;\n"),
            exit_failed);
  for (const char* error :
       {"nothing was written", "line 2: counted: '1,5' is no number: a comma", "line 3: counted: '$5' is no",
        "line 4: counted: '(5)' is no number: write what is below zero", "line 5: there is no part nothing",
        "line 6: price: 'free' is no number", "line 6: department 20 on a sheet of department 10",
        "line 6: date 2024/01/30 on a sheet of another date", "line 7: counted: -1 is below zero",
        "line 7: '31.1.2024' is no date", "line 7: part frame was counted on line 6 already",
        "line 8: part it's has an apostrophe"})
    EXPECT_TRUE(says(error)) << error << "\n" << client_.error();
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

TEST_F(CountingClient, RefusesASheetThatBelongsNowhere) {
  EXPECT_EQ(import("part,counted\nbolt-1,1\n"), exit_failed);
  EXPECT_TRUE(says("no department") && says("no date")) << client_.error();
  EXPECT_EQ(import("part,counted\nbolt-1,1\n", {"--department", "99", "--date", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("no department 99"));
  EXPECT_EQ(import("name,quantity\nbolt-1,1\n"), exit_failed);
  EXPECT_TRUE(says("no column 'part'") && says("no column 'counted'"));
  EXPECT_EQ(import("part,counted\nbolt-1,\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("nothing was counted"));
  EXPECT_EQ(run({"count", "import", folder_.file("")}), exit_wrong_usage);
  EXPECT_TRUE(says("is a directory"));
  EXPECT_EQ(run({"count", "import", folder_.file("none.csv")}), exit_wrong_usage);
  EXPECT_TRUE(says("no such file"));
  close_and_approve("2024/01/31");
  EXPECT_EQ(import("part,counted\nbolt-1,1\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("2024/01/31 is closed"));
  EXPECT_EQ(stored(), "");
}

TEST_F(CountingClient, LeavesNothingOfAnImportThatFailsInTheMiddle) {
  company_.refuse("FULL_UP", "INSERT", "STKCHECKDT", "NEW.PARTNO='Bolt1'", "full up");
  EXPECT_EQ(import("part,counted\nbolt-1,1\nBolt1,1\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("line 3, part Bolt1: error") && says("nothing of C1 is left")) << client_.error();
  EXPECT_EQ(stored(), "");
}

TEST_F(CountingClient, LeavesNothingOfAnImportThatIsInterrupted) {
  {
    bool raised = false;
    const behaviour::WatchedCalls watched([&](const std::string& call, const std::function<void()>& run_it) {
      run_it();
      if (!raised && call.find("Into STKCHECKDT") != std::string::npos) raised = std::raise(SIGINT) == 0;
    });
    EXPECT_EQ(import("part,counted\nbolt-1,1\nBolt1,1\n", on_department_10), exit_interrupted);
  }
  EXPECT_TRUE(says("interrupted") && says("nothing of C1 is left")) << client_.error();
  EXPECT_EQ(stored(), "");
}

TEST_F(CountingClient, TellsWhatIsLeftOfAnImportThatCannotBeUndone) {
  company_.refuse("FULL_UP", "INSERT", "STKCHECKDT", "NEW.PARTNO='Bolt1'", "full up");
  company_.refuse("KEPT", "DELETE", "STKCHECKHD", "", "kept");
  EXPECT_EQ(import("part,counted\nbolt-1,1\nBolt1,1\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("C1 is left with 1 lines") && says("call CCheckHead Delete C1")) << client_.error();
}

}  // namespace
}  // namespace tallyra::client
