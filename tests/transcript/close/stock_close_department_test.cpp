#include <gtest/gtest.h>

#include "tests/support/queries.h"
#include "tests/support/record_methods.h"
#include "tests/transcript/close/stock_close_script.h"

// The close document of one department.
namespace tallyra {
namespace {

using automation::Null;
using automation::Value;
using stage::done;
using stage::trapped;

// The department of a company whose close has fixed the period.
class DepartmentClose : public testing::Test {
 protected:
  DepartmentClose() {
    EXPECT_EQ(company.close(), done);
    company.stage.clear();
  }
  stage::Outcome close(const char* number) {
    return stage::outcome_of(company.client,
                             stage::close_department(company.client, "K001", "#2024/03/31#", number));
  }

  MonthCloseStage company;
};

// What the step asks before it looks for lines.
std::string movements_opened(const std::string& department) {
  return "R10.CursorLocation = 3\nR11.CursorLocation = 3\nR12.CursorLocation = 3\n"
         "C5.CommandTimeout = 0\nC5.Open 'DSN=x' '' '' -1\n" +
         opened("R10", stage::department_out(department, "#2024/02/29#", "#2024/03/31#"), "C5") +
         opened("R11", stage::department_in(department, "#2024/02/29#", "#2024/03/31#"), "C5");
}

TEST_F(DepartmentClose, MergesWhatWentOutAndWhatCameInByTransferInTheOrderOfParts) {
  EXPECT_EQ(close("10"), done);
  const std::string written = ",'TESTER',#2024/04/05#,'TESTER',#2024/04/05#) | -1\n";
  std::string lines;
  for (const char* line :
       {"'A',1,0", "'AB',4,0", "'B',8, 0 ", "'C',7,0", "'D',-2.5, 0 ", "'E',0, 0 ", "'F',0.1,0"})
    lines +=
        "C5.Execute Insert Into STKTRANDT (TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,ADDBY,ADDDT,EDITBY,EDITDT)"
        " Values('K001','',0," +
        std::string(line) + written;
  EXPECT_EQ(company.stage.database_calls(),
            movements_opened("10") +
                "R10.MoveFirst\nR11.MoveFirst\nC5.BeginTrans\n"
                "C5.Execute Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT,DEPTNOFR,NOTES,ADDBY,ADDDT,"
                "EDITBY,EDITDT) Values('K001','STK027CLOSE',0,#2024/04/01#,'10 ',''" +
                written + lines + "C5.CommitTrans\nR10.Close\nR11.Close\n");
}

TEST_F(DepartmentClose, WithoutMovementsWritesNoDocument) {
  stage::no_movements(company.stage, "30", "#2024/02/29#", "#2024/03/31#");
  EXPECT_EQ(close("30"), done);
  EXPECT_EQ(company.stage.database_calls(),
            movements_opened("30") + "C5.BeginTrans\nC5.CommitTrans\nR10.Close\nR11.Close\n");
}

// The step alone on an object whose close was never begun: all dates but the close date are empty.
class DepartmentCloseAlone : public testing::Test {
 protected:
  stage::Outcome close(const std::string& number, std::vector<std::vector<Value>> rows) {
    stage::no_movements(stage, number, "", "#2024/03/31#");
    stage.finds(stage::department_out(number, "", "#2024/03/31#"), {{"PARTNO", "QTY"}, std::move(rows)});
    const auto client = stage.client("CStockClose");
    return stage::outcome_of(client, stage::close_department(client, "K9", "#2024/03/31#", number));
  }

  stage::Stage stage;
};

TEST_F(DepartmentCloseAlone, EndsInTheTrapWithASumThatIsNull) {
  EXPECT_EQ(close("10", {{"A", Null{}}}), trapped(94, "Invalid use of Null"));
}

TEST_F(DepartmentCloseAlone, WritesUserAndPartsAsTheyStand) {
  stage.user = "O'Neil";
  EXPECT_EQ(close("1'0", {{"a'b", 1.0}, {Null{}, 2.0}}), done);
  const std::string line =
      "C1.Execute Insert Into STKTRANDT (TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,ADDBY,ADDDT,EDITBY,EDITDT)"
      " Values('K9','',0,";
  EXPECT_EQ(stage.database_calls(),
            "R1.CursorLocation = 3\nR2.CursorLocation = 3\nR3.CursorLocation = 3\n"
            "C1.CommandTimeout = 0\nC1.Open 'DSN=x' '' '' -1\n" +
                opened("R1", stage::department_out("1'0", "", "#2024/03/31#"), "C1") +
                opened("R2", stage::department_in("1'0", "", "#2024/03/31#"), "C1") +
                "R1.MoveFirst\nC1.BeginTrans\n"
                "C1.Execute Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT,DEPTNOFR,NOTES,ADDBY,ADDDT,"
                "EDITBY,EDITDT) Values('K9','STK027CLOSE',0,,'1'0 ','','O'Neil',,'O'Neil',) | -1\n" +
                line + "'a'b',1, 0 ,'O'Neil',,'O'Neil',) | -1\n" + line +
                "'',2, 0 ,'O'Neil',,'O'Neil',) | -1\n"
                "C1.CommitTrans\nR1.Close\nR2.Close\n");
}

}  // namespace
}  // namespace tallyra
