#include "standins/ado/trace.h"
#include "tests/behaviour/transactions/company.h"

namespace tallyra::transactions_test {
namespace {

namespace ado = standins::ado;

// Counts the queries that reach the engine.
class QueryCount : public ado::TraceSink {
 public:
  QueryCount() { ado::set_trace_sink(this); }
  ~QueryCount() override { ado::set_trace_sink(nullptr); }
  void operation(const ado::TraceEvent& event) noexcept override {
    if (event.operation == ado::Operation::query && event.text.find("ASSMBOM") != std::string_view::npos)
      ++queries;
  }
  int queries = 0;
};

class Requirement : public Company {
 protected:
  void production_order(int status) const {
    given({"Insert Into COHD(CONO,STATUSSN) Values('N1'," + std::to_string(status) + ")",
           "Insert Into CODETAIL(CONO,SN,PARTNO,COQTY,TEMPLETQTY) Values('N1',1,'A',10,2)",
           "Insert Into CODETAIL(CONO,SN,PARTNO,COQTY,TEMPLETQTY) Values('N1',2,'A',3,0.5)",
           "Insert Into CODETAIL(CONO,SN,PARTNO,COQTY,TEMPLETQTY) Values('N1',3,'B',99,0)"});
  }
  void sales_order(const std::vector<std::pair<std::string, double>>& parts) const {
    std::vector<std::string> statements;
    for (const auto& [part, quantity] : parts)
      statements.push_back("Insert Into SODTBOM(SONO,SN,PARTNO,SOQTY) Values('N1'," +
                           std::to_string(statements.size()) + ",'" + part + "'," + std::to_string(quantity) +
                           ")");
    given(statements);
  }
  static std::string bill_line(const std::string& assembly, int sn, const std::string& part,
                               const std::string& factors) {
    return "Insert Into ASSMBOM(ASSMNO,SN,PARTNO,ENGQTY,URATE,WSRATE) Values('" + assembly + "'," +
           std::to_string(sn) + ",'" + part + "'," + factors + ")";
  }
  // The columns of a table for another in which case does not count.
  std::string columns_of(const std::string& table) const {
    std::string columns = rows(
        "Select Group_Concat(name||' '||type||' Collate NoCase') From pragma_table_info('" + table + "')");
    columns.pop_back();
    return columns;
  }
  Outcome ask(const char* part, const Value& type = omitted) const {
    return requirement(detail(), "N1", part, type);
  }
};
TALLYRA_ON_BOTH_KINDS(Requirement);

Outcome quantity(double value) {
  return {value, 0, ""};
}

TEST_P(Requirement, OfAnApprovedProductionOrderIsItsSum) {
  production_order(1);
  EXPECT_EQ(ask("A"), quantity(15.5));
  EXPECT_EQ(ask("B", "STK020MISS"), quantity(99));
  EXPECT_EQ(ask("C"), no_requirement);
}

TEST_P(Requirement, OfAProductionOrderThatIsNotApprovedIsNone) {
  production_order(0);
  EXPECT_EQ(ask("A"), no_requirement);
}

TEST_P(Requirement, OfAProductionOrderLineCountsTheQuantityThatIsKnown) {
  given({"Insert Into COHD(CONO,STATUSSN) Values('N1',1)", "Insert Into COHD(CONO,STATUSSN) Values('N2',1)"});
  const char* lines[] = {"'N1',1,'HALF',Null,Null", "'N1',2,'HALF',4,Null",    "'N1',3,'HALF',Null,0.5",
                         "'N1',4,'HALF',10,1",      "'N1',5,'NONE',Null,Null", "'N1',6,'MORE',7,Null",
                         "'N2',1,'HALF',100,Null"};
  for (const char* line : lines)
    given({std::string("Insert Into CODETAIL(CONO,SN,PARTNO,COQTY,TEMPLETQTY) Values(") + line + ")"});
  EXPECT_EQ(ask("HALF"), quantity(15.5));
  EXPECT_EQ(ask("NONE"), quantity(0));
  EXPECT_EQ(ask("MORE"), quantity(7));
}

TEST_P(Requirement, OfASalesOrderIsFollowedThroughItsAssemblies) {
  sales_order({{"CHAIR", 10}, {"SCREW", 4}});
  given({bill_line("CHAIR", 1, "LEG", "4,1,0"), bill_line("CHAIR", 2, "SCREW", "2,1,0.5"),
         bill_line("LEG", 1, "SCREW", "8,0.25,0"), bill_line("LEG", 2, "WOOD", "0.5,1,0.1"),
         bill_line("TABLE", 1, "SCREW", "1000,1,0")});
  EXPECT_EQ(ask("CHAIR"), quantity(10));
  EXPECT_EQ(ask("LEG"), quantity(40));
  EXPECT_EQ(ask("SCREW"), quantity(4 + 10 * 3 + 40 * 2));
  EXPECT_EQ(ask("WOOD"), quantity(22));
  EXPECT_EQ(ask("TABLE"), no_requirement);
}

TEST_P(Requirement, OfAnOrderThatIsBothIsAskedOfTheOneThatTheTypeNames) {
  production_order(1);
  sales_order({{"A", 7}});
  EXPECT_EQ(ask("A"), quantity(15.5));
  EXPECT_EQ(ask("A", "STK020MISS"), quantity(15.5));
  EXPECT_EQ(ask("A", "STK020MISSSO"), quantity(7));
  EXPECT_EQ(ask("A", "STK021RTNSO"), quantity(7));
}

TEST_P(Requirement, OfABillThatContainsItselfIsReported) {
  sales_order({{"A", 1}});
  given({bill_line("A", 1, "B", "1,1,0"), bill_line("B", 1, "C", "1,1,0"), bill_line("C", 1, "A", "1,1,0")});
  const Outcome outcome = ask("C");
  EXPECT_EQ(outcome, Failure{28});
  EXPECT_NE(outcome.description.find(" > A > "), std::string::npos) << outcome.description;
}

TEST_P(Requirement, IsFoundWhereApostrophesAreInTheBill) {
  sales_order({{"A''1", 2}});
  given({bill_line("A''1", 1, "B", "3,1,0")});
  EXPECT_EQ(ask("B"), quantity(6));
}

TEST_P(Requirement, OfAnOrderOrPartWithAnApostropheIsOutOfReach) {
  sales_order({{"A", 2}, {"it''s", 3}});
  EXPECT_EQ(requirement(detail(), "N'1", "A"), syntax_error);
  EXPECT_EQ(ask("it's"), syntax_error);
  EXPECT_EQ(ask("it's", "STK020MISSSO"), quantity(3));
}

TEST_P(Requirement, OfANullFactorIsAnError) {
  sales_order({{"A", 1}});
  given({bill_line("A", 1, "B", "1,1,Null")});
  EXPECT_EQ(ask("B"), Failure{94});
}

TEST_P(Requirement, CaresForCaseAsTheEngineDoes) {
  const std::vector<std::string> bill{bill_line("CHAIR", 1, "LEG", "4,1,0"),
                                      bill_line("CHAIR", 2, "leg", "2,1,0"),
                                      bill_line("Leg", 1, "SCREW", "3,1,0")};
  sales_order({{"CHAIR", 1}, {"Chair", 1}});
  given({"Insert Into PARTS(PARTNO) Values('CHAIR')", "Insert Into PARTS(PARTNO) Values('LEG')",
         "Insert Into PARTS(PARTNO) Values('SCREW')"});
  given(bill);
  EXPECT_EQ(ask("CHAIR"), quantity(1));
  EXPECT_EQ(ask("leg"), quantity(2));
  EXPECT_EQ(ask("SCREW"), no_requirement);

  if (!is_sqlite()) GTEST_SKIP() << "no comparison there that cares as little";
  // The same bills on tables that are compared without regard to case.
  for (const char* table : {"ASSMBOM", "PARTS"}) {
    const std::string name = table;
    given({"Alter Table " + name + " Rename To OLD", "Create Table " + name + "(" + columns_of(name) + ")",
           "Insert Into " + name + " Select * From OLD", "Drop Table OLD"});
  }
  EXPECT_EQ(ask("CHAIR"), quantity(2));
  EXPECT_EQ(ask("leg"), quantity(12));
  EXPECT_EQ(ask("SCREW"), quantity(36));
  EXPECT_EQ(ask("screw"), quantity(36));
}

// Five levels, 10,000 lines and as many parts, each assembly of ten components.
TEST_P(Requirement, OfALargeBillTakesFewQueries) {
  std::vector<std::string> statements{"Begin"};
  int parts = 1;
  for (int assembly = 0; parts < 10000; ++assembly)
    for (int sn = 1; sn <= 10; ++sn)
      statements.push_back(
          bill_line("P" + std::to_string(assembly), sn, "P" + std::to_string(parts++), "2,1,0"));
  for (int i = 1; i <= 20; ++i) statements.push_back(bill_line("P9000", i, "SCREW", "1,0.5,0"));
  // Ten pieces with a quarter of waste, on the second level.
  statements.push_back(bill_line("P1", 11, "SCREW", "10,1,0.25"));
  statements.emplace_back("Commit");
  sales_order({{"P0", 1}});
  given(statements);
  const QueryCount count;
  EXPECT_EQ(ask("SCREW"), quantity(16 * 10 + 2 * 12.5));
  EXPECT_LE(count.queries, 60);
  EXPECT_EQ(ask("P9999"), quantity(16));
  EXPECT_EQ(ask("P10001"), no_requirement);

  given({bill_line("P9000", 21, "P0", "1,1,0")});
  const Outcome outcome = ask("SCREW");
  EXPECT_EQ(outcome, Failure{28});
  EXPECT_NE(outcome.description.find("P0 > P8 > P89 > P899 > P9000"), std::string::npos)
      << outcome.description;
}

TEST_P(Requirement, OfADeepBillIsFound) {
  std::vector<std::string> statements;
  for (int level = 0; level < 300; ++level)
    statements.push_back(bill_line("L" + std::to_string(level), 1, "L" + std::to_string(level + 1), "1,1,0"));
  sales_order({{"L0", 2}});
  given(statements);
  EXPECT_EQ(ask("L300"), quantity(2));
}

}  // namespace
}  // namespace tallyra::transactions_test
