#include "automation/collection.h"
#include "automation/create.h"
#include "tests/support/guard_verdict.h"
#include "tests/transcript/stockcheck/check_script.h"

// CCheckHead's copy of the closing-date guard.
namespace tallyra::stockcheck_test {
namespace {

using stage::ask_guard;
using stage::Verdict;

const Verdict open_date{{0, 0, ""}};
const Verdict closed_date{{0, 10000112, "text of Msg10000112"}};
const std::string query = "Select * From STKCLOSEHD Where CLOSEDT>=#2024/03/31#";
const stage::Rows a_close{{"CLOSEDT"}, {{automation::Date{45382}}}};

// A header object on a thread whose collaborators another method has set up.
struct CheckHeadGuard : testing::Test {
  CheckHeadGuard() { set_up(stage); }
  static void set_up(Stage& stage) {
    const Object other = stage.client("CCheckDetail");
    Value check = "S1", part = "P1";
    other.call("Delete", ref(check), ref(part));
    stage.clear();
    stage.finds_nothing(query);
  }
  Verdict ask(const Value& date) { return ask_guard(stage.client("CCheckHead"), date); }

  Stage stage;
};

TEST_F(CheckHeadGuard, PassesADateThatNoCloseCoversWithoutSettingCollaboratorsUp) {
  EXPECT_EQ(ask("2024/03/31"), open_date);
  EXPECT_EQ(stage.transcript(),
            "create ADODB.Connection\n"
            "create ADODB.Recordset\n"
            "R2.CursorLocation = 2\n"
            "C2.Open 'DSN=x' '' '' -1\n"
            "R2.Open " +
                query +
                " | C2 0 1 -1\n"
                "R2.Close\n"
                "C2.Close\n");
}

TEST_F(CheckHeadGuard, ReportsADateThatACloseCovers) {
  stage.finds(query, a_close);
  EXPECT_EQ(ask("2024/03/31"), closed_date);
  EXPECT_TRUE(stage.transcript().ends_with("R2.Open " + query +
                                           " | C2 0 1 -1\n"
                                           "messages.Msg10000112\n"
                                           "R2.Close\n"
                                           "C2.Close\n"));
}

TEST_F(CheckHeadGuard, WritesTheDateInItsTextBetweenTheDelimitersOfTheKind) {
  const struct {
    const char* kind;
    Value date;
    const char* literal;
  } rows[] = {{"MSACCESS", "2024/03/31", "#2024/03/31#"},
              {"MSSQLSERVER", "2024/03/31", "'2024/03/31'"},
              {"", "2024/03/31", "'2024/03/31'"},
              {"msaccess", "2024/03/31", "'2024/03/31'"},
              {"MSACCESS", automation::Date{45382}, "#2024/03/31#"},
              {"MSSQLSERVER", automation::Date{45382.5}, "'2024/03/31 12:00:00'"},
              {"MSACCESS", "the 31st", "#the 31st#"},
              {"MSACCESS", Value(), "##"}};
  for (const auto& [kind, date, literal] : rows) {
    Stage each(kind, {std::string("Select * From STKCLOSEHD Where CLOSEDT>=") + literal});
    EXPECT_EQ(ask_guard(each.client("CCheckHead"), date), open_date) << literal;
    EXPECT_NE(each.transcript().find("R1.Open Select * From STKCLOSEHD Where CLOSEDT>=" +
                                     std::string(literal) + " | C1 0 1 -1\n"),
              std::string::npos)
        << each.transcript();
  }
}

TEST_F(CheckHeadGuard, AFreshObjectWritesTheDateBetweenQuotes) {
  stage.finds_nothing("Select * From STKCLOSEHD Where CLOSEDT>='2024/03/31'");
  const Object head = automation::create("Tallyra.CCheckHead");
  EXPECT_EQ(ask_guard(head, "2024/03/31"), open_date);
  EXPECT_NE(stage.transcript().find("Where CLOSEDT>='2024/03/31' | C2 0 1 -1\n"), std::string::npos);
}

TEST_F(CheckHeadGuard, AnErrorBeforeTheConnectionIsOpenIsReportedAsItself) {
  for (const char* failing :
       {"create ADODB.Connection", "create ADODB.Recordset", "R2.CursorLocation", "C2.Open"}) {
    Stage each;
    set_up(each);
    each.fails(failing, Error(-2147467259, "no such file"));
    EXPECT_EQ(ask_guard(each.client("CCheckHead"), "2024/03/31"),
              (Verdict{trapped(-2147467259, "no such file")}))
        << failing;
  }
}

TEST_F(CheckHeadGuard, AnErrorWithTheConnectionOpenIsReportedAsItselfAndRaises) {
  for (const char* failing : {"R2.Open", "R2.EOF", "messages.Msg10000112", "R2.Close", "C2.Close"}) {
    Stage each;
    set_up(each);
    each.finds(query, a_close).fails(failing, Error(-2147217913, "Syntax error in date"));
    EXPECT_EQ(ask_guard(each.client("CCheckHead"), "2024/03/31"),
              (Verdict{trapped(-2147217913, "Syntax error in date"), 438}))
        << failing;
    EXPECT_TRUE(each.transcript().ends_with("C2.State\n")) << each.transcript();
    EXPECT_LE(each.alive(), 4) << failing;
  }
}

TEST_F(CheckHeadGuard, AnErrorWithoutATextIsAnAutomationError) {
  stage.fails("C2.Open", Error(-2147220000));
  EXPECT_EQ(ask("2024/03/31"), (Verdict{stage::trapped(-2147220000, "Automation error"), 0}));
}

TEST(CheckHeadGuardAlone, WithoutAnyMessageObjectOnTheThreadACoveredDateEndsInTheTrap) {
  Stage fresh;
  fresh.finds(query, a_close);
  EXPECT_EQ(ask_guard(fresh.client("CCheckHead"), "2024/03/31"),
            (Verdict{trapped(91, "Object variable or With block variable not set"), 438}));
}

TEST_F(CheckHeadGuard, AValueWithoutATextIsAnErrorInsideTheTrap) {
  EXPECT_EQ(ask(Null{}), (Verdict{trapped(94, "Invalid use of Null")}));
  EXPECT_EQ(ask(Object()), (Verdict{trapped(91, "Object variable or With block variable not set")}));
  EXPECT_TRUE(stage.transcript().ends_with("R3.CursorLocation = 2\nC3.State\n"));
}

TEST_F(CheckHeadGuard, ClearsTheErrorFieldsOfTheCallBefore) {
  const Object head = stage.client("CCheckHead");
  EXPECT_EQ(outcome_of(head, head.call("Delete", "S1")), refused(10000016));
  EXPECT_EQ(ask_guard(head, "2024/03/31"), open_date);
}

}  // namespace
}  // namespace tallyra::stockcheck_test
