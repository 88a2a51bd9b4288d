#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/error.h"
#include "tests/behaviour/stockcheck/counting_company.h"
#include "tests/support/record_methods.h"

// Headers and lines of stocktakings on a real database, from the counted sheet to its deletion.
namespace tallyra::behaviour {
namespace {

using automation::Date;
using automation::Null;
using automation::Object;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::Outcome;

class CheckRecordOnEachEngine : public testing::TestWithParam<const char*> {
 protected:
  Outcome head(const char* member, const char* number, Fields& fields, const char* user = "ADMIN") {
    return stage::play_record(company.client("CCheckHead", user), member, number, fields);
  }
  Outcome line(const char* member, const char* number, const char* part, Fields& fields,
               const char* user = "ADMIN") {
    return stage::play_record(company.client("CCheckDetail", user), member, number, part, fields);
  }
  Outcome remove_head(const char* number, const char* user = "ADMIN") {
    return stage::play_record(company.client("CCheckHead", user), "Delete", number);
  }
  Outcome remove_line(const char* number, const char* part, const char* user = "ADMIN") {
    return stage::play_record(company.client("CCheckDetail", user), "Delete", number, part);
  }
  static Fields sheet(const char* number, const char* user = "ADMIN") {
    return {{"CHECKNO", number}, {"CHECKDT", Date{45382}}, {"DEPTNO", "10"}, {"ADDBY", user}};
  }
  static Fields counted(const char* part, const Value& quantity) {
    return {{"CHECKNO", "S1"}, {"PARTNO", part}, {"QTY", quantity}, {"UPRICE", 2.5}};
  }

  CountingCompany company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, CheckRecordOnEachEngine, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(CheckRecordOnEachEngine, AStocktakingLivesItsWholeLife) {
  Fields header = sheet("S1");
  EXPECT_EQ(head("Insert", "S1", header), done);
  Fields bolts = counted("P1", 5.5);
  Fields nuts = counted("P2", Null{});
  EXPECT_EQ(line("Insert", "S1", "P1", bolts), done);
  EXPECT_EQ(line("Insert", "S1", "P2", nuts), done);

  Fields read{{"LEFT", "over"}};
  EXPECT_EQ(head("Read", "S1", read), done);
  EXPECT_TRUE(read.text().starts_with("CHECKNO='S1' CHECKDT=2024/03/31 DEPTNO='10' CHECKBY=Null"))
      << read.text();
  EXPECT_EQ(line("Read", "S1", "P1", read), done);
  EXPECT_TRUE(read.text().starts_with("CHECKNO='S1' PARTNO='P1' QTY=5.5 UPRICE=2.5 LOCATION=Null"))
      << read.text();
  EXPECT_TRUE(read.text().ends_with("PARTNM='Bolt' COLORNO='R' COLORNM='red' UNITNM='piece'")) << read.text();

  Fields recount{{"QTY", 7}};
  EXPECT_EQ(line("Update", "S1", "P2", recount), done);
  EXPECT_EQ(company.rows("SELECT PARTNO,QTY FROM STKCHECKDT ORDER BY 1"), "P1|5.5\nP2|7\n");

  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|5.5|2.5\nP2|7|2.5\n");
  EXPECT_EQ(company.update("S1", "UNAPPROVED"), done);
  EXPECT_EQ(company.update("S1", "FINISHED"), done);
  EXPECT_EQ(company.update("S1", "CANCEL"), done);
  EXPECT_EQ(company.rows("SELECT STATUS FROM STKCHECKHD"), "CANCEL\n");

  EXPECT_EQ(remove_line("S1", "P1"), done);
  EXPECT_EQ(company.rows("SELECT PARTNO FROM STKCHECKDT"), "P2\n");
  EXPECT_EQ(remove_head("S1"), done);
  EXPECT_EQ(company.everything(), "");
  EXPECT_EQ(remove_head("S1"), done);
  EXPECT_EQ(remove_line("S1", "P1"), done);
}

TEST_P(CheckRecordOnEachEngine, WhatIsMissingIsReadAsEmptyCollections) {
  Fields read{{"LEFT", "over"}};
  Outcome outcome = head("Read", "S1", read);
  EXPECT_EQ(outcome.result, 100);
  EXPECT_EQ(outcome.number, 10000003);
  EXPECT_EQ(read.text(), "");

  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "GONE", "1");
  outcome = line("Read", "S1", "GONE", read);
  EXPECT_EQ(outcome.result, 100);
  EXPECT_EQ(outcome.number, 10000003) << "the part of the line is missing";
}

TEST_P(CheckRecordOnEachEngine, KeysAreTakenAsTheyAre) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "1");
  Fields read;
  EXPECT_EQ(head("Read", "s1", read).number, 10000003);
  EXPECT_EQ(head("Read", "S1 ", read).number, 10000003);
  EXPECT_EQ(line("Read", "S1", "p1", read).number, 10000003);
  EXPECT_EQ(remove_line("S1", " P1"), done);
  EXPECT_EQ(company.rows("SELECT PARTNO FROM STKCHECKDT"), "P1\n");
}

TEST_P(CheckRecordOnEachEngine, UnknownPartsAndRepeatedKeysAreRefused) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "1");
  company.counted("S1", "GONE", "1");
  const std::string before = company.everything();
  Fields header = sheet("S1");
  EXPECT_EQ(head("Insert", "S1", header).number, 10000004);
  Fields again = counted("P1", 2);
  EXPECT_EQ(line("Insert", "S1", "P1", again).number, 10000004);
  Fields unknown = counted("GONE", 2);
  const Outcome outcome = line("Insert", "S1", "GONE", unknown);
  EXPECT_EQ(outcome, (Outcome{0, 10000025, "The part does not exist."})) << "before the line is looked up";
  EXPECT_EQ(company.everything(), before);
}

TEST_P(CheckRecordOnEachEngine, OwnersChangeWhatTheyHaveCreated) {
  company.grant("CLERK", "OWNER");
  company.grant("OTHER", "OWNER");
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "1");
  company.counted("S1", "P2", "1");
  const std::string before = company.everything();
  Fields recount{{"QTY", 9}};
  for (const Outcome& outcome :
       {company.update("S1", "", "OTHER"), line("Update", "S1", "P1", recount, "OTHER"),
        remove_line("S1", "P1", "OTHER"), remove_head("S1", "OTHER"),
        company.update("S1", "APPROVED", "CLERK")}) {
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.number, 10000016) << outcome.description;
  }
  EXPECT_EQ(company.everything(), before);

  EXPECT_EQ(company.update("S1", "edited", "CLERK"), done);
  EXPECT_EQ(company.rows("SELECT STATUS FROM STKCHECKHD"), "edited\n");
  EXPECT_EQ(line("Update", "S1", "P1", recount, "CLERK"), done);
  EXPECT_EQ(remove_line("S1", "P2", "CLERK"), done);
  EXPECT_EQ(company.rows("SELECT PARTNO,QTY FROM STKCHECKDT"), "P1|9\n");
  EXPECT_EQ(remove_head("S1", "CLERK"), done);
  EXPECT_EQ(company.everything(), "");
}

TEST_P(CheckRecordOnEachEngine, OwnersAreComparedWithoutBlanksAndAHeaderWithoutCreatorHasNone) {
  company.grant("CLERK", "OWNER");
  const struct {
    const char* creator;
    double number;
  } rows[] = {{"' CLERK  '", 0}, {"'CLERK'", 0}, {"'clerk'", 10000016}, {"''", 10000016}, {"NULL", 10000016}};
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "1");
  Fields recount{{"QTY", 9}};
  for (const auto& [creator, number] : rows) {
    company.run({"UPDATE STKCHECKHD SET ADDBY=" + std::string(creator)});
    EXPECT_EQ(company.update("S1", "", "CLERK").number, number) << creator;
    EXPECT_EQ(line("Update", "S1", "P1", recount, " CLERK ").number, number) << creator;
  }
  EXPECT_EQ(remove_line("S1", "P1", "CLERK").number, 10000016);
  EXPECT_EQ(remove_head("S1", "CLERK").number, 10000016);
}

TEST_P(CheckRecordOnEachEngine, ATagInAnotherCaseNeedsTheRightOfAnEdit) {
  company.grant("BOSS", "CANAPPROVED");
  company.grant("EDITOR", "CANUPDATE");
  company.grant("CLERK", "OWNER");
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "5");
  EXPECT_EQ(company.update("S1", "approved", "BOSS").number, 10000016);
  EXPECT_EQ(company.update("S1", "APPROVED", "EDITOR").number, 10000016);
  EXPECT_EQ(company.update("S1", "approved", "EDITOR"), done);
  EXPECT_EQ(company.update("S1", "approved", "CLERK"), done);
  EXPECT_EQ(company.postings(), "0|0");
  expect_posted(company.update("S1", "APPROVED", "BOSS"));
  EXPECT_EQ(company.postings(), "1|1");
}

TEST_P(CheckRecordOnEachEngine, AnEmptyKeyIsAKeyAndAnApostropheBreaksTheStatement) {
  Fields header = sheet("");
  EXPECT_EQ(head("Insert", "", header), done);
  EXPECT_EQ(head("Insert", "", header).number, 10000004);
  Fields read;
  EXPECT_EQ(head("Read", "", read), done);
  EXPECT_TRUE(read.text().starts_with("CHECKNO='' ")) << read.text();
  const std::string before = company.everything();
  Fields recount{{"QTY", 9}};
  for (const Outcome& outcome :
       {head("Read", "O'Neil", read), head("Insert", "O'Neil", header), company.update("O'Neil", ""),
        company.update("O'Neil", "APPROVED"), company.update("O'Neil", "UNAPPROVED"), remove_head("O'Neil"),
        line("Read", "S1", "1/4' nut", read), line("Insert", "S1", "1/4' nut", recount),
        line("Update", "S1", "1/4' nut", recount), remove_line("S1", "1/4' nut")}) {
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.number, stage::narrowed(-2147217900)) << outcome.description;
  }
  EXPECT_EQ(company.everything(), before);
  EXPECT_EQ(remove_head(""), done);
  EXPECT_EQ(company.everything(), "");
}

TEST_P(CheckRecordOnEachEngine, HeaderAndLinesAreDeletedTogetherOrNotAtAll) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "1");
  company.refuse("KEPT", "DELETE", "STKCHECKDT", "", "the line is kept");
  const std::string before = company.everything();
  for (const Outcome& outcome : {remove_head("S1"), remove_line("S1", "P1")}) {
    EXPECT_EQ(outcome.result, 0);
    EXPECT_NE(outcome.description.find("the line is kept"), std::string::npos) << outcome.description;
  }
  EXPECT_EQ(company.everything(), before);
}

TEST_P(CheckRecordOnEachEngine, AnOwnerTestWithoutAHeaderPasses) {
  company.grant("CLERK", "OWNER");
  company.counted("S9", "P1", "1");
  EXPECT_EQ(company.update("S9", "", "CLERK"), done);
  EXPECT_EQ(remove_line("S9", "P1", "CLERK"), done);
  EXPECT_EQ(remove_head("S9", "CLERK"), done);
  EXPECT_EQ(company.everything(), "");
}

TEST_P(CheckRecordOnEachEngine, BadInputIsToldAndChangesNothing) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "1");
  const std::string before = company.everything();
  Fields uneven{{"QTY", 1}};
  Fields::add(uneven.names, "UPRICE");
  EXPECT_EQ(line("Update", "S1", "P1", uneven).number, 10000002);
  EXPECT_EQ(line("Insert", "S1", "P2", uneven).number, 10000002);
  Fields unknown{{"NOSUCHCOLUMN", 1}};
  EXPECT_NE(line("Update", "S1", "P1", unknown).description.find("NOSUCHCOLUMN"), std::string::npos);
  Fields unfit{{"QTY", "some"}};
  EXPECT_EQ(line("Update", "S1", "P1", unfit).result, 0);
  EXPECT_EQ(head("Insert", "O'Neil", unknown).result, 0) << "an apostrophe ends the text of the key";
  EXPECT_EQ(company.everything(), before);
}

TEST_P(CheckRecordOnEachEngine, TheClosingDateGuardIncludesTheCloseDate) {
  company.closed("2024-03-31");
  const Object head_object = company.client("CCheckHead");
  // Another method sets up the message library that the guard asks.
  EXPECT_EQ(remove_head("NONE"), done);
  const struct {
    Value date;
    double number;
  } rows[] = {{"2024/03/30", 10000112},
              {"2024/03/31", 10000112},
              {"2024/04/01", 0},
              {Date{45382}, 10000112},
              {Date{45383}, 0}};
  for (const auto& [date, number] : rows) {
    EXPECT_TRUE(head_object.call("ValidCloseDT", date).is_empty());
    EXPECT_EQ(automation::to_double(head_object.get("ErrNumber")), number) << automation::to_text(date);
  }
  company.run({"DELETE FROM STKCLOSEHD"});
  head_object.call("ValidCloseDT", "1999/01/01");
  EXPECT_EQ(stage::outcome_of(head_object, 0), (Outcome{0, 0, ""}));
}

TEST_P(CheckRecordOnEachEngine, TheClosingDateGuardReportsAnErrorAsItselfAndRaises) {
  const Object head_object = company.client("CCheckHead");
  company.run({"DROP TABLE STKCLOSEHD"});
  std::int32_t raised = 0;
  try {
    head_object.call("ValidCloseDT", "2024/03/31");
  } catch (const automation::Error& error) {
    raised = error.number();
  }
  EXPECT_EQ(raised, 438);
  const Outcome outcome = stage::outcome_of(head_object, 0);
  EXPECT_EQ(outcome.number, stage::narrowed(-2147217865));
  EXPECT_TRUE(names(outcome.description, "STKCLOSEHD")) << outcome.description;
}

}  // namespace
}  // namespace tallyra::behaviour
