#include <gtest/gtest.h>

#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/record_methods.h"
#include "tests/support/stage.h"

// Reading, changing and deleting the record of a month close, as far as it is not told of all record classes
// in frame/record_classes.cpp.
namespace tallyra {
namespace {

using automation::Date;
using automation::Error;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::Outcome;
using stage::outcome_of;
using stage::refused;
using stage::Stage;
using stage::trapped;

struct Kind {
  const char* name;
  const char* system_database;
  const char* quote;
};

class CloseRecordTest : public testing::TestWithParam<Kind> {
 protected:
  // A backquote stands for the quote of the kind.
  static std::string text(std::string pattern) {
    for (auto at = pattern.find('`'); at != std::string::npos; at = pattern.find('`'))
      pattern.replace(at, 1, GetParam().quote);
    return pattern;
  }
  Object client() { return stage.client("CStockClose"); }
  Outcome read(const char* date) {
    stage.finds_nothing(
        text("Select STKCLOSEHD.* From STKCLOSEHD Where STKCLOSEHD.CLOSEDT=`" + std::string(date) + "`"));
    return stage::play_record(client(), "Read", date, fields);
  }
  Outcome update(const char* date, const char* tag) {
    return stage::play_record(client(), "Update", date, fields, tag);
  }
  Outcome remove(const Value& date) { return stage::play_record(client(), "Delete", date); }

  Stage stage{GetParam().system_database};
  Fields fields{{"STATUSSN", 1}};
};

INSTANTIATE_TEST_SUITE_P(Kinds, CloseRecordTest,
                         testing::Values(Kind{"Access", "MSACCESS", "#"},
                                         Kind{"SqlServer", "MSSQLSERVER", "'"}, Kind{"None", "", "'"}),
                         [](const auto& param) { return std::string(param.param.name); });

TEST_P(CloseRecordTest, ReadAppendsTheRecordOfTheDate) {
  const std::string query = text("Select STKCLOSEHD.* From STKCLOSEHD Where STKCLOSEHD.CLOSEDT=`2024/03/31`");
  stage.finds(query, {{"CLOSEDT", "STATUSSN"}, {{Date{45382}, 0}}});
  EXPECT_EQ(read("2024/03/31"), done);
  EXPECT_EQ(fields.text(), "STATUSSN=1 CLOSEDT=2024/03/31 STATUSSN=0");
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                query +
                " | C1 3 1 -1\n"
                "R1.MoveLast\n"
                "R1.MoveFirst\n"
                "R1.Close\n"
                "C1.Close\n");
  EXPECT_EQ(stage.transcript().find("rights.PowerCheck"), std::string::npos);
}

TEST_P(CloseRecordTest, ReadLooksForWhateverItIsGiven) {
  EXPECT_EQ(read("March").number, 10000003);
  EXPECT_NE(stage.transcript().find(text("CLOSEDT=`March` |")), std::string::npos);
}

TEST_P(CloseRecordTest, UpdateApprovesEarlierRecordsAndTheDocumentsOfTheNextDay) {
  stage.set("CanApproved", 1);
  EXPECT_EQ(update("2024/03/31", "APPROVED"), done);
  EXPECT_EQ(
      stage.database_calls(),
      text("C1.Open 'DSN=x' '' '' -1\n"
           "R1.CursorLocation = 2\n"
           "R1.Open Select top 1 * From STKCLOSEHD | C1 0 1 -1\n"
           "R1.Close\n"
           "C1.BeginTrans\n"
           "C1.Execute <GetUpdateSQL STKCLOSEHD> Where STKCLOSEHD.CLOSEDT=`2024/03/31` | -1\n"
           "C1.Execute Update STKCLOSEHD Set STATUSSN=1 Where CLOSEDT<`2024/03/31` And STATUSSN<1 | -1\n"
           "C1.Execute UPDATE STKTRANHD SET STATUSSN=1 WHERE STKTRANHD.TRANDT=`2024/04/01` AND  "
           "(STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL')  | -1\n"
           "C1.CommitTrans\n"
           "C1.Close\n"));
}

TEST_P(CloseRecordTest, TheTagDecidesWhichRightIsRead) {
  const struct {
    const char* tag;
    const char* right;
  } rows[] = {{"APPROVED", "CanApproved"}, {"UNAPPROVED", "CanUnapproved"}, {"CANCEL", "CanCancel"},
              {"FINISHED", "CanFinished"}, {"approved", "CanUpdate"},       {"", "CanUpdate"},
              {"APPROVED ", "CanUpdate"}};
  for (const auto& [tag, right] : rows) {
    Stage each(GetParam().system_database);
    const Object object = each.client("CStockClose");
    Value operation = tag;
    const auto play = [&] {
      return outcome_of(
          object, object.call("Update", "2024/03/31", ref(fields.names), ref(fields.values), ref(operation)));
    };
    EXPECT_EQ(play(), refused(10000016)) << tag;
    EXPECT_TRUE(each.transcript().ends_with(std::string("rights.PowerCheck 'STK027CLOSE'\nrights.") + right +
                                            "\nmessages.Msg10000016\n"))
        << each.transcript();
    EXPECT_EQ(each.database_calls(), "");
    each.set(right, 1);
    EXPECT_EQ(play(), done) << tag;
  }
}

TEST_P(CloseRecordTest, AnErrorInsideTheUpdateLeavesTheRollbackToTheReleasedConnection) {
  stage.set("CanUpdate", 1).fails("Set STATUSSN=1 Where CLOSEDT", Error(-2147467259, "locked"));
  EXPECT_EQ(update("2024/03/31", ""), trapped(-2147467259, "locked"));
  EXPECT_TRUE(stage.database_calls().ends_with(" ! locked\n"));
  EXPECT_EQ(stage.database_calls().find("RollbackTrans"), std::string::npos);
}

TEST_P(CloseRecordTest, DeleteTakesTheRecordAndTheDocumentsOfTheNextDay) {
  stage.set("CanDelete", 1);
  EXPECT_EQ(remove("2024/02/29"), done);
  EXPECT_EQ(stage.database_calls(),
            text("C1.Open 'DSN=x' '' '' -1\n"
                 "C1.BeginTrans\n"
                 "C1.Execute Delete * From STKCLOSEHD Where CLOSEDT=`2024/02/29` | -1\n"
                 "C1.Execute Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On "
                 "STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANHD.TRANDT=`2024/03/01` AND "
                 "(STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL')  | -1\n"
                 "C1.Execute Delete * From STKTRANHD Where  STKTRANHD.TRANDT=`2024/03/01` AND  "
                 "(STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL')  | -1\n"
                 "C1.CommitTrans\n"
                 "C1.Close\n"));
}

TEST_P(CloseRecordTest, TheCloseDateMayComeAsADate) {
  stage.set("CanDelete", 1);
  EXPECT_EQ(remove(Date{45382}), done);
  EXPECT_NE(stage.transcript().find(text("STKCLOSEHD Where CLOSEDT=`2024/03/31` ")), std::string::npos);
  EXPECT_NE(stage.transcript().find(text("TRANDT=`2024/04/01` ")), std::string::npos);
}

TEST_P(CloseRecordTest, WhatIsNoDateEndsInTheTrapBeforeAnyCheck) {
  fields = Fields();
  for (const char* date : {"", "March", "2024/02/30", "31/03/2024", "2024/03/31x"}) {
    EXPECT_EQ(update(date, "APPROVED"), trapped(13, "Type mismatch")) << date;
    EXPECT_EQ(remove(date), trapped(13, "Type mismatch")) << date;
  }
  EXPECT_EQ(remove(automation::Null{}), trapped(13, "Type mismatch"));
  EXPECT_EQ(stage.transcript().find("rights.PowerCheck"), std::string::npos);
}

TEST_P(CloseRecordTest, TheNextDayOfADateWithATimeIsTheDayAfter) {
  stage.set("CanDelete", 1);
  EXPECT_EQ(remove("2024/12/31 23:30:00"), done);
  EXPECT_NE(stage.transcript().find(text("CLOSEDT=`2024/12/31 23:30:00` ")), std::string::npos);
  EXPECT_NE(stage.transcript().find(text("TRANDT=`2025/01/01` ")), std::string::npos);
}

}  // namespace
}  // namespace tallyra
