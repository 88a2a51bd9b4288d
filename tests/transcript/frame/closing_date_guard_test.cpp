#include <optional>

#include "automation/collection.h"
#include "tests/support/guard_verdict.h"
#include "tests/transcript/transactions/transaction_script.h"

// CTranHead's copy of the guard.
namespace tallyra::transactions_test {
namespace {

using stage::ask_guard;
using stage::Verdict;

const Outcome open_date{0, 0, ""};
const Outcome closed_date{0, 10000112, "text of Msg10000112"};

class ClosingDateGuard : public testing::Test {
 protected:
  Verdict ask(const Value& date) { return ask_guard(stage.client("CTranHead"), date); }

  Stage stage;
};

const std::string query = "Select * From STKCLOSEHD Where CLOSEDT>=#2024/03/31#";

TEST_F(ClosingDateGuard, PassesADateThatNoCloseCovers) {
  stage.finds_nothing(query);
  EXPECT_EQ(ask("2024/03/31"), (Verdict{open_date}));
  EXPECT_EQ(stage.transcript(),
            "create ADODB.Connection\n"
            "create ADODB.Recordset\n"
            "R1.CursorLocation = 2\n"
            "create Lexbank.ErrMsg\n"
            "create Corvane.CPowerCheck\n"
            "create Lexbank.CPartF\n"
            "create Corvane.CSystem\n"
            "messages.Language = 'EN'\n"
            "wording.Language = 'EN'\n"
            "rights.Language = 'EN'\n"
            "rights.ConnectionString = 'DSN=x'\n"
            "rights.UserID = 'TESTER'\n"
            "rights.SystemDatabase = 'MSACCESS'\n"
            "system.Language = 'EN'\n"
            "system.ConnectionString = 'DSN=x'\n"
            "system.UserID = 'TESTER'\n"
            "system.DatabaseName = 'MSACCESS'\n"
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                query +
                " | C1 0 1 -1\n"
                "R1.Close\n"
                "C1.Close\n");
}

TEST_F(ClosingDateGuard, ReportsADateThatACloseCovers) {
  stage.finds(query, {{"CLOSEDT"}, {{automation::Date{45382}}}});
  EXPECT_EQ(ask("2024/03/31"), (Verdict{closed_date}));
  EXPECT_TRUE(stage.transcript().ends_with("R1.Open " + query +
                                           " | C1 0 1 -1\n"
                                           "messages.Msg10000112\n"
                                           "R1.Close\n"
                                           "C1.Close\n"));
}

TEST_F(ClosingDateGuard, WritesTheDateInItsTextBetweenTheDelimitersOfTheKind) {
  const struct {
    const char* kind;
    Value date;
    const char* literal;
  } rows[] = {{"MSACCESS", "2024/03/31", "#2024/03/31#"},
              {"MSSQLSERVER", "2024/03/31", "'2024/03/31'"},
              {"", "2024/03/31", "'2024/03/31'"},
              {"msaccess", "2024/03/31", "'2024/03/31'"},
              {"MSACCESS", automation::Date{45382}, "#2024/03/31#"},
              {"MSACCESS", automation::Date{45382.5}, "#2024/03/31 12:00:00#"},
              {"MSSQLSERVER", automation::Date{45382.5}, "'2024/03/31 12:00:00'"},
              {"MSACCESS", "31.3.24 ", "#31.3.24 #"},
              {"MSACCESS", "", "##"},
              {"MSACCESS", Value(), "##"},
              {"MSACCESS", 45382, "#45382#"},
              {"MSSQLSERVER", "it's", "'it's'"}};
  for (const auto& [kind, date, literal] : rows) {
    Stage each(kind, {std::string("Select * From STKCLOSEHD Where CLOSEDT>=") + literal});
    EXPECT_EQ(ask_guard(each.client("CTranHead"), date), (Verdict{open_date})) << literal;
    EXPECT_NE(each.transcript().find("R1.Open Select * From STKCLOSEHD Where CLOSEDT>=" +
                                     std::string(literal) + " | C1 0 1 -1\n"),
              std::string::npos)
        << each.transcript();
  }
}

TEST_F(ClosingDateGuard, AnErrorBeforeTheConnectionIsOpenIsAClosedPeriod) {
  for (const char* failing : {"C1.Open", "R1.CursorLocation"}) {
    Stage each;
    const Object head = each.client("CTranHead");
    // So that there is a message to report.
    EXPECT_EQ(delete_head(head, "T1", ""), refused(10000016));
    each.clear();
    each.fails(std::string(failing).replace(1, 1, "2"), Error(-2147467259, "no such file"));
    EXPECT_EQ(ask_guard(head, "2024/03/31"), (Verdict{closed_date})) << failing;
    EXPECT_TRUE(each.transcript().ends_with(" ! no such file\nmessages.Msg10000112\nC2.State\n"))
        << each.transcript();
  }
}

TEST_F(ClosingDateGuard, AnErrorWithTheConnectionOpenIsAClosedPeriodAndAnException) {
  for (const char* failing : {"R1.Open", "R1.EOF", "R1.Close", "C1.Close"}) {
    Stage each;
    each.finds(query, {{"CLOSEDT"}, {}}).fails(failing, Error(-2147217913, "Syntax error in date"));
    EXPECT_EQ(ask_guard(each.client("CTranHead"), "2024/03/31"), (Verdict{closed_date, 438})) << failing;
    EXPECT_TRUE(each.transcript().ends_with("messages.Msg10000112\nC1.State\n")) << each.transcript();
  }
}

TEST_F(ClosingDateGuard, AMessageThatCannotBeHadRaisesWithTheNumberSet) {
  stage.finds(query, {{"CLOSEDT"}, {{automation::Date{45382}}}})
      .fails("messages.Msg10000112", Error(-1, "gone"), 1)
      .fails("messages.Msg10000112", Error(-2, "still gone"), 1);
  EXPECT_EQ(ask("2024/03/31"), (Verdict{{0, 10000112, ""}, -2}));
}

TEST_F(ClosingDateGuard, CannotReportAnythingWithoutAMessageObject) {
  const automation::local::ScopedClass no_messages("Lexbank.ErrMsg", nullptr);
  EXPECT_EQ(ask("2024/03/31"), (Verdict{{0, 10000112, ""}, 91}));
}

TEST_F(ClosingDateGuard, AValueWithoutATextRaisesBeforeTheTrapIsArmed) {
  const Object head = stage.client("CTranHead");
  EXPECT_EQ(delete_head(head, "T1", ""), refused(10000016));
  stage.clear();
  const struct {
    Value date;
    std::int32_t raised;
  } rows[] = {{Null{}, 94}, {Object(), 91}, {automation::make_object<automation::Collection>(), 450}};
  for (const auto& [date, raised] : rows)
    EXPECT_EQ(ask_guard(head, date), (Verdict{refused(10000016), raised})) << raised;
  EXPECT_EQ(stage.transcript(), "");
}

TEST_F(ClosingDateGuard, NothingIsLeftBehind) {
  for (const char* failing : {"R1.Open", "C1.Open", "create ADODB.Recordset"}) {
    Stage each;
    each.fails(failing, Error(-1, "failed"));
    ask_guard(each.client("CTranHead"), "2024/03/31");
    EXPECT_LE(each.alive(), 4) << failing;
  }
}

}  // namespace
}  // namespace tallyra::transactions_test
