#include <gtest/gtest.h>

#include "tests/support/baseline.h"
#include "tests/support/queries.h"
#include "tests/transcript/close/stock_close_script.h"

// The run of a month close: checks, period, departments, company, record, and every way it can end.
namespace tallyra {
namespace {

using automation::Error;
using automation::Null;
using automation::Value;
using stage::done;
using stage::Outcome;
using stage::refused;
using stage::trapped;

TEST(MonthClose, TheWholeRunOnAccess) {
  MonthCloseStage company("MSACCESS");
  EXPECT_EQ(company.close(), done);
  EXPECT_EQ(company.stage.transcript(),
            stage::approved("transcript/close/stock_close_insert.access.txt", company.stage.transcript()));
}

TEST(MonthClose, TheWholeRunOnSqlServer) {
  MonthCloseStage company("MSSQLSERVER");
  EXPECT_EQ(company.close(), done);
  EXPECT_EQ(company.stage.transcript(),
            stage::approved("transcript/close/stock_close_insert.sqlserver.txt", company.stage.transcript()));
}

TEST(MonthClose, EveryOtherKindIsWrittenAsSqlServer) {
  const auto database_calls = [](const char* kind) {
    MonthCloseStage company(kind);
    EXPECT_EQ(company.close(), done);
    return company.stage.database_calls();
  };
  EXPECT_EQ(database_calls("msaccess"), database_calls("MSSQLSERVER"));
  EXPECT_EQ(database_calls(""), database_calls("MSSQLSERVER"));
}

TEST(MonthClose, ItYieldsOnceForEveryLine) {
  MonthCloseStage company;
  EXPECT_EQ(company.close(), done);
  // 10: A, AB, B, C, D, E, F; 20: A, B; company: A to E
  EXPECT_EQ(company.stage.yields(), 7 + 2 + 5);
}

TEST(MonthClose, ItLetsAllItsObjectsGo) {
  MonthCloseStage company;
  EXPECT_EQ(company.close(), done);
  EXPECT_EQ(company.stage.alive(), 4) << "only the collaborators stay";
}

TEST(MonthClose, CollectionsThatDoNotMatchAreRefusedBeforeAnyRightIsAsked) {
  for (const stage::Fields& fields : {stage::Fields{{"CLOSEDT", "2024/03/31"}}, stage::Fields{}}) {
    MonthCloseStage company;
    company.fields = fields;
    if (!fields.text().empty()) stage::Fields::add(company.fields.values, 1);
    EXPECT_EQ(company.close(), refused(10000002));
    EXPECT_EQ(company.way_out(), "R2.CursorLocation = 3\nmessages.Msg10000002\n");
  }
}

TEST(MonthClose, OnlyARightOfExactlyOneLetsTheRunBegin) {
  for (const Value& right : {Value(0), Value(2), Value(-1), Value(Null{}), Value(true)}) {
    MonthCloseStage company;
    company.stage.set("CanInsert", right);
    EXPECT_EQ(company.close(), refused(10000016)) << stage::shown(right);
    EXPECT_EQ(company.way_out(), "rights.CanInsert\nmessages.Msg10000016\n");
  }
}

TEST(MonthClose, AClosedDateIsRefusedBeforeAnythingIsDeleted) {
  MonthCloseStage company;
  company.stage.finds(stage::close_of("#2024/03/31#"), {{"CLOSEDT"}, {{1}}});
  EXPECT_EQ(company.close(), refused(10000004));
  EXPECT_EQ(company.stage.database_calls(),
            "R1.CursorLocation = 3\n"
            "R2.CursorLocation = 3\n"
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open Select top 1 * From STKCLOSEHD WHERE CLOSEDT=#2024/03/31# | C1 3 1 -1\n"
            "R1.Close\n"
            "C1.Close\n");
}

TEST(MonthClose, WithoutAnEarlierCloseThePeriodBeginsAfterTheYear2000) {
  for (const char* kind : {"MSACCESS", "MSSQLSERVER"}) {
    MonthCloseStage company(kind);
    company.knows_period("2000/01/01", "2024/04/30", "2024/05/01");
    EXPECT_EQ(company.close("2024/04/30"), done);
    EXPECT_NE(company.stage.transcript().find("TRANDT>" + company.literal("2000/01/01") +
                                              " AND STKTRANHD.TRANDT<=" + company.literal("2024/04/30")),
              std::string::npos);
  }
}

TEST(MonthClose, WithoutDepartmentsItEndsWithAFixedTextAndClosesNothing) {
  MonthCloseStage company;
  company.stage.forgets(stage::departments).finds_nothing(stage::departments);
  EXPECT_EQ(company.close(), (Outcome{0, 1, "Department have not been setted"}));
  EXPECT_EQ(company.way_out(), "R2.Open Select DEPTNO,DEPTNM FROM DEPARTS  Order by DEPTNO | C1 3 4 -1\n");
}

TEST(MonthClose, AnErrorOfTheRunItselfRollsNothingBack) {
  MonthCloseStage company;
  company.stage.fails("<GetInsertSQL STKCLOSEHD> |", Error(-2147217873, "duplicate"));
  EXPECT_EQ(company.close(), trapped(-2147217873, "duplicate"));
  EXPECT_EQ(company.way_out(), "C1.BeginTrans\nC1.Execute <GetInsertSQL STKCLOSEHD> | -1 ! duplicate\n");
}

TEST(MonthClose, WhatIsNoDateEndsInTheTrapBeforeAnyCheck) {
  for (const Value& date : {Value("March"), Value(""), Value("2024/02/30"), Value(Null{}), Value(45382)}) {
    MonthCloseStage company;
    company.fields = stage::Fields();
    EXPECT_EQ(company.close(date), trapped(13, "Type mismatch")) << stage::shown(date);
    EXPECT_EQ(company.way_out(), "R2.CursorLocation = 3\n");
  }
}

TEST(MonthClose, TheStepsAloneOnAFreshObjectWriteMalformedDates) {
  stage::Stage stage;
  stage::no_movements(stage, "10", "", "#2024/03/31#");
  stage::no_documents(stage, "");
  const auto client = stage.client("CStockClose");
  Value id = "K9", date = "#2024/03/31#", department = "10";
  client.call("STKMonthCloseDept", automation::ref(id), automation::ref(date), automation::ref(department));
  client.call("STKMonthClose", automation::ref(id), automation::ref(date));
  EXPECT_EQ(stage.database_calls(),
            "R1.CursorLocation = 3\nR2.CursorLocation = 3\nR3.CursorLocation = 3\n"
            "C1.CommandTimeout = 0\nC1.Open 'DSN=x' '' '' -1\n" +
                opened("R1", stage::department_out("10", "", "#2024/03/31#"), "C1") +
                opened("R2", stage::department_in("10", "", "#2024/03/31#"), "C1") +
                "C1.BeginTrans\nC1.CommitTrans\nR1.Close\nR2.Close\n"
                "R4.CursorLocation = 3\nC2.CommandTimeout = 0\nC2.Open 'DSN=x' '' '' -1\n" +
                opened("R4", stage::department_documents(""), "C2") +
                "C2.BeginTrans\nC2.CommitTrans\nR4.Close\n");
}

TEST(MonthClose, ThePreviousCloseIsADayWhateverItsTime) {
  MonthCloseStage company;
  company.knows_period("2024/03/31", "2024/04/30", "2024/05/01");
  company.stage.finds(stage::close_before("#2024/04/30#"), {{"CLOSEDT"}, {{automation::Date{45382.75}}}});
  EXPECT_EQ(company.close("2024/04/30"), done);
  EXPECT_NE(company.stage.transcript().find("TRANDT>#2024/03/31# AND STKTRANHD.TRANDT<=#2024/04/30#"),
            std::string::npos);
}

TEST(MonthClose, ANumberIsIssuedUnlessTheAnswerIsZero) {
  for (const Value& answer : {Value(2), Value(-1), Value(0.5), Value(true), Value("1")}) {
    MonthCloseStage company;
    company.stage.set("system.GetTableKeyID", answer);
    EXPECT_EQ(company.close(), done) << stage::shown(answer);
  }
  for (const Value& answer : {Value(0), Value(0.0), Value("0"), Value(), Value(false)}) {
    MonthCloseStage company;
    company.stage.set("system.GetTableKeyID", answer);
    EXPECT_EQ(company.close().result, 0) << stage::shown(answer);
  }
}

TEST(MonthClose, ADepartmentWithoutANameIsClosedAndOneWithoutANumberIsNot) {
  for (const bool has_number : {true, false}) {
    stage::Stage stage;
    stage.set("CanInsert", 1);
    stage.all_find_nothing({stage::close_of("#2024/03/31#"), stage::close_before("#2024/03/31#")});
    stage::no_movements(stage, "10", "#2000/01/01#", "#2024/03/31#");
    stage::no_documents(stage, "#2024/04/01#");
    stage.finds(stage::departments,
                {{"DEPTNO", "DEPTNM"}, {{has_number ? Value("10") : Value(Null{}), Null{}}}});
    stage::Fields fields{{"CLOSEDT", "2024/03/31"}};
    const auto client = stage.client("CStockClose");
    const auto outcome = stage::outcome_of(
        client,
        client.call("Insert", "2024/03/31", automation::ref(fields.names), automation::ref(fields.values)));
    EXPECT_EQ(outcome, has_number ? done : trapped(94, "Invalid use of Null"));
  }
}

}  // namespace
}  // namespace tallyra
