#include "standins/ado/trace.h"
#include "tests/behaviour/transactions/company.h"

// Texts that are odd on purpose reach the engine as they are.
namespace tallyra::transactions_test {
namespace {

namespace ado = standins::ado;

class StatementLog : public ado::TraceSink {
 public:
  StatementLog() { ado::set_trace_sink(this); }
  ~StatementLog() override { ado::set_trace_sink(nullptr); }
  void operation(const ado::TraceEvent& event) noexcept override {
    if (event.operation == ado::Operation::execute || event.operation == ado::Operation::query)
      text_ += std::string(event.text) + (event.succeeded ? "\n" : " !\n");
  }
  bool tells(const std::string& line) const {
    return ("\n" + text_).find("\n" + line + "\n") != std::string::npos;
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

using MalformedStatements = Company;
TALLYRA_ON_BOTH_KINDS(MalformedStatements);

TEST_P(MalformedStatements, TheOpenParenthesisOfAPurchaseReturn) {
  const StatementLog log;
  Fields fields{{"QTY", 1}};
  EXPECT_EQ(write_line(detail(), "Update", {.type = "STK011PORTN", .number = 1}, fields), syntax_error);
  EXPECT_TRUE(
      log.tells("Update STKTRANDT Set QTY=1 WHERE (STKTRANDT.TRANNO='T1' OR "
                "STKTRANDT.TRANNO='STK011PORTN' AND STKTRANDT.REFERENCE='PO1' AND STKTRANDT.SN=1 !"))
      << log.text();
}

TEST_P(MalformedStatements, TheJoinConditionThatEndsAtATable) {
  const StatementLog log;
  Fields fields{{"PARTNO", "A"}};
  EXPECT_EQ(insert_return(detail(), "R1", 1, fields, 1), never_received);
  const std::string query =
      "SELECT STKTRANHD.DEPTNOTO FROM STKTRANHD INNER JOIN SUPPLIERS ON STKTRANHD.DEPTNOTO =SUPPLIERS  WHERE "
      "STKTRANHD.TRANNO='R1'";
  EXPECT_TRUE(log.tells(query)) << log.text();
  // A company whose suppliers have their number under another name gets its engine's answer.
  given({"Alter Table SUPPLIERS Rename Column SUPPLIERS To SUPPLIERNO"});
  const Outcome outcome = insert_return(detail(), "R1", 1, fields, 1);
  EXPECT_EQ(outcome, syntax_error);
  EXPECT_TRUE(behaviour::names(outcome.description, "SUPPLIERS")) << outcome.description;
  EXPECT_TRUE(log.tells(query + " !"));
}

TEST_P(MalformedStatements, TheDoubledColumnAndBlanks) {
  const StatementLog log;
  Fields fields;
  read_line(detail(), {.number = 1}, fields);
  read_line(detail(), {}, fields);
  const std::string select =
      "Select STKTRANDT.*,PARTS.PARTNM,PARTS.CATEGORYNO,PARTS.CATEGORYNO,PARTS.COLORNO,PARTS.COLORNM,"
      "PARTS.UNITNM  From STKTRANDT INNER JOIN PARTS ON STKTRANDT.PARTNO=PARTS.PARTNO";
  EXPECT_TRUE(
      log.tells(select + "  WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND STKTRANDT.SN=1"))
      << log.text();
  EXPECT_TRUE(log.tells(
      select + " WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND STKTRANDT.PARTNO='P1' "));
}

TEST_P(MalformedStatements, TheNumberThatIsNullInACopy) {
  given({"Insert Into STKTRANDT(TRANNO,PARTNO) Values('T0','A')"});
  const StatementLog log;
  Fields fields{{"TRANNO", "T1"}, {"TRANTYPE", "STK010POREV"}};
  EXPECT_EQ(insert_head(head(), "T1", "STK010POREV", fields, "T0"), syntax_error);
  EXPECT_NE(log.text().find(" VALUES('T1','',,'A','','',,,,'','',"), std::string::npos) << log.text();
  EXPECT_EQ(rows("Select Count(*) From STKTRANHD"), "0\n");
}

}  // namespace
}  // namespace tallyra::transactions_test
