#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

std::string sum_of(const std::string& quantity, const std::string& condition) {
  return "Select CODETAIL.PARTNO,SUM(" + quantity +
         ") AS QTY From CODETAIL Inner Join COHD On CODETAIL.CONO=COHD.CONO Where CODETAIL.CONO='N1' And "
         "CODETAIL.PARTNO='P1' And COHD.STATUSSN=1" +
         condition + " Group By CODETAIL.PARTNO";
}
const std::string of_production_order = sum_of("CODETAIL.COQTY+CODETAIL.TEMPLETQTY", "") + " Union All " +
                                        sum_of("CODETAIL.COQTY", " And CODETAIL.TEMPLETQTY Is Null") +
                                        " Union All " +
                                        sum_of("CODETAIL.TEMPLETQTY", " And CODETAIL.COQTY Is Null");
const std::string of_sales_order =
    "Select SODTBOM.PARTNO,SODTBOM.SOQTY AS QTY From SODTBOM Where SODTBOM.SONO='N1'";
std::string bills(const std::string& assemblies) {
  return "Select ASSMBOM.ASSMNO,ASSMBOM.PARTNO,ASSMBOM.ENGQTY,ASSMBOM.URATE,ASSMBOM.WSRATE From ASSMBOM "
         "Where "
         "ASSMBOM.ASSMNO In (" +
         assemblies + ")";
}
const std::vector<std::string> no_requirement{of_production_order, of_sales_order, bills("'P1'")};

class MaterialRequirement : public TransactionStage {
 protected:
  MaterialRequirement() : TransactionStage("CTranDetail", no_requirement) {}
};
TALLYRA_ON_BOTH_KINDS(MaterialRequirement);

const std::vector<std::string> bill_columns{"ASSMNO", "PARTNO", "ENGQTY", "URATE", "WSRATE"};

Outcome quantity(double value) {
  return {value, 0, ""};
}

TEST_P(MaterialRequirement, OfAProductionOrderStandsInItsOwnList) {
  for (const Value& type : {omitted, Value(""), Value("STK020MISS"), Value("STK021RTN1"), Value("other")}) {
    Stage each(GetParam(), no_requirement);
    each.finds(of_production_order, {{"PARTNO", "QTY"}, {{"P1", 12.5}}});
    EXPECT_EQ(requirement(each.client("CTranDetail"), "N1", "P1", type), quantity(12.5));
    EXPECT_EQ(each.database_calls(), opened + asked(of_production_order) + "C1.Close\n");
    EXPECT_EQ(each.rights_calls().find("PowerCheck"), std::string::npos);
  }
}

TEST_P(MaterialRequirement, OfAProductionOrderLineCountsTheQuantityThatIsKnown) {
  const struct {
    std::vector<std::vector<Value>> sums;
    double required;
  } rows[] = {{{{"P1", 12.5}, {"P1", 3}, {"P1", 0.25}}, 15.75},
              {{{"P1", Null{}}, {"P1", 3}}, 3},
              {{{"P1", Null{}}, {"P1", Null{}}, {"P1", Null{}}}, 0}};
  for (const auto& [sums, required] : rows) {
    Stage each(GetParam(), no_requirement);
    each.finds(of_production_order, {{"PARTNO", "QTY"}, sums});
    EXPECT_EQ(requirement(each.client("CTranDetail"), "N1", "P1"), quantity(required));
    EXPECT_EQ(each.database_calls(), opened + asked(of_production_order) + "C1.Close\n");
  }
}

TEST_P(MaterialRequirement, OfASalesOrderIsFollowedThroughItsAssemblies) {
  stage.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"A", 10}, {"P1", 0.5}, {"A", 2}}});
  // A takes 2 B and 3 P1 with a tenth of waste, B takes 4 x 0.25 P1: 0.5 + 12 * (3.3 + 2 * 1).
  stage.finds(bills("'A','P1'"), {bill_columns, {{"A", "B", 2, 1, 0}, {"A", "P1", 3, 1, 0.1}}});
  stage.finds(bills("'B'"), {bill_columns, {{"B", "P1", 4, 0.25, 0}, {"B", "C", 1, 1, 0}}});
  stage.finds_nothing(bills("'C'"));
  EXPECT_EQ(requirement(client(), "N1", "P1"), quantity(64.1));
  EXPECT_EQ(stage.database_calls(), opened + asked(of_production_order) + asked(of_sales_order) +
                                        asked(bills("'A','P1'")) + asked(bills("'B'")) + asked(bills("'C'")) +
                                        "C1.Close\n");
}

TEST_P(MaterialRequirement, MovementsForSalesOrdersAskTheSalesOrderAlone) {
  for (const char* type : {"STK020MISSSO", "STK021RTNSO"}) {
    Stage each(GetParam(), no_requirement);
    each.finds(of_production_order, {{"PARTNO", "QTY"}, {{"P1", 99}}});
    each.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"P1", 4}}});
    EXPECT_EQ(requirement(each.client("CTranDetail"), "N1", "P1", type), quantity(4));
    EXPECT_EQ(each.database_calls(), opened + asked(of_sales_order) + asked(bills("'P1'")) + "C1.Close\n");
  }
}

TEST_P(MaterialRequirement, OfATypeInAnotherCaseIsThatOfAnyOther) {
  stage.finds(of_production_order, {{"PARTNO", "QTY"}, {{"P1", 99}}});
  stage.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"P1", 4}}});
  for (const char* type : {"stk020missso", "STK021RTNSO "})
    EXPECT_EQ(requirement(client(), "N1", "P1", type), quantity(99)) << type;
}

// The part is only looked for in what the sales order brings up, so its apostrophe does no harm there.
TEST_P(MaterialRequirement, WritesOrderAndPartAsTheyStand) {
  stage.finds("Select SODTBOM.PARTNO,SODTBOM.SOQTY AS QTY From SODTBOM Where SODTBOM.SONO='N'1'",
              {{"PARTNO", "QTY"}, {{"it's", 4}}});
  std::string query = of_production_order;
  for (const auto& [plain, hostile] :
       {std::pair<std::string, std::string>{"'N1'", "'N'1'"}, {"'P1'", "'it's'"}})
    for (std::size_t at = 0; (at = query.find(plain, at)) != std::string::npos; at += hostile.size())
      query.replace(at, plain.size(), hostile);
  stage.all_find_nothing({query, bills("'it''s'")});
  EXPECT_EQ(requirement(client(), "N'1", "it's"), quantity(4));
  EXPECT_TRUE(tells("R1.Open " + query + " | C1 3 1 -1"));
  EXPECT_TRUE(
      tells("R1.Open Select SODTBOM.PARTNO,SODTBOM.SOQTY AS QTY From SODTBOM Where "
            "SODTBOM.SONO='N'1' | C1 3 1 -1"));
}

TEST_P(MaterialRequirement, OfNobodyIsReported) {
  EXPECT_EQ(requirement(client(), "N1", "P1"), refused(10000024));
  EXPECT_EQ(stage.database_calls(),
            opened + asked(of_production_order) + asked(of_sales_order) + "C1.Close\n");
}

TEST_P(MaterialRequirement, OfAnotherPartOnlyIsReported) {
  stage.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"A", 10}}});
  stage.finds(bills("'A'"), {bill_columns, {{"A", "P2", 2, 1, 0}}}).finds_nothing(bills("'P2'"));
  EXPECT_EQ(requirement(client(), "N1", "P1"), refused(10000024));
}

std::string both(const std::string& one, const std::string& other) {
  return "Select PARTS.PARTNO From PARTS Where PARTS.PARTNO=" + one + " And PARTS.PARTNO=" + other;
}

TEST_P(MaterialRequirement, OfAPartInTwoSpellingsIsOneIfThePartMasterSaysSo) {
  for (const bool one_part : {true, false}) {
    Stage each(GetParam(), no_requirement);
    each.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"A", 10}}});
    each.finds(bills("'A'"), {bill_columns, {{"A", "p1", 2, 1, 0}, {"A", "P1", 1, 1, 0}}});
    each.all_find_nothing({bills("'p1','P1'"), both("'P1'", "'p1'")});
    if (one_part) each.finds(both("'P1'", "'p1'"), {{"PARTNO"}, {{"P1"}}});
    EXPECT_EQ(requirement(each.client("CTranDetail"), "N1", "P1"), quantity(one_part ? 30 : 10));
    EXPECT_EQ(each.database_calls(), opened + asked(of_production_order) + asked(of_sales_order) +
                                         asked(bills("'A'")) + asked(bills("'p1','P1'")) +
                                         asked(both("'P1'", "'p1'")) + "C1.Close\n");
  }
}

// As an engine answers that finds a bill under any spelling of the assembly.
TEST_P(MaterialRequirement, OfAnAssemblyInTwoSpellingsCountsItsBillOnce) {
  std::string of_c = of_production_order;
  for (std::size_t at = 0; (at = of_c.find("'P1'", at)) != std::string::npos;) of_c.replace(at, 4, "'C'");
  stage.finds_nothing(of_c);
  const Rows bill{bill_columns, {{"it's B", "P1", 3, 1, 0}, {"IT'S b", "C", 1, 1, 0}}};
  stage.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"A", 2}, {"it's B", 1}}});
  stage.finds(
      bills("'A','it''s B'"),
      {bill_columns, {{"A", "IT'S b", 5, 1, 0}, {"it's B", "P1", 3, 1, 0}, {"IT'S b", "C", 1, 1, 0}}});
  stage.finds(bills("'IT''S b','P1','C'"), bill);
  stage.finds(both("'it''s B'", "'IT''S b'"), {{"PARTNO"}, {{"It's B"}}});
  EXPECT_EQ(requirement(client(), "N1", "P1"), quantity((1 + 2 * 5) * 3));
  EXPECT_EQ(requirement(client(), "N1", "C"), quantity(1 + 2 * 5));
}

TEST_P(MaterialRequirement, OfZeroIsARequirement) {
  stage.finds(of_production_order, {{"PARTNO", "QTY"}, {{"P1", 0}}});
  EXPECT_EQ(requirement(client(), "N1", "P1"), quantity(0));
  EXPECT_EQ(requirement(client(), "N1", "P1", "STK020MISSSO"), refused(10000024));
  stage.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"P1", 0}}});
  EXPECT_EQ(requirement(client(), "N1", "P1", "STK020MISSSO"), quantity(0));
}

TEST_P(MaterialRequirement, ABillThatContainsItselfComesToAnEndAndIsReported) {
  stage.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"A", 1}, {"P1", 1}}});
  stage.finds(bills("'A','P1'"), {bill_columns, {{"A", "B", 1, 1, 0}}});
  stage.finds(bills("'B'"), {bill_columns, {{"B", "A", 1, 1, 0}}});
  EXPECT_EQ(requirement(client(), "N1", "P1"),
            trapped(28, "The bill of materials of B contains itself: B > A > B."));
  EXPECT_TRUE(stage.database_calls().ends_with(asked(bills("'B'"))));
}

TEST_P(MaterialRequirement, AsksForManyBillsAtOnceAndDoublesTheirApostrophes) {
  Rows ordered{{"PARTNO", "QTY"}, {}};
  std::string first;
  for (int i = 0; i < 200; ++i) {
    const std::string part = "it's " + std::to_string(i);
    ordered.rows.push_back({part, 1});
    first += (i ? ",'it''s " : "'it''s ") + std::to_string(i) + "'";
  }
  ordered.rows.push_back({"P1", 3});
  stage.finds_nothing(bills(first));
  stage.finds(of_sales_order, ordered);
  EXPECT_EQ(requirement(client(), "N1", "P1"), quantity(3));
  EXPECT_TRUE(stage.database_calls().ends_with(asked(bills(first)) + asked(bills("'P1'")) + "C1.Close\n"));
}

TEST_P(MaterialRequirement, AQuantityThatIsNoNumberEndsInTheTrap) {
  const struct {
    std::vector<Value> line;
    Outcome outcome;
  } rows[] = {{{"A", "P1", "2", 1, 0}, quantity(2)},
              {{"A", "P1", Null{}, 1, 0}, trapped(94, "Invalid use of Null")},
              {{"A", "P1", 2, Null{}, 0}, trapped(94, "Invalid use of Null")},
              {{"A", "P1", 2, 1, Null{}}, trapped(94, "Invalid use of Null")},
              {{"A", "P1", "two", 1, 0}, trapped(13, "Type mismatch")}};
  for (const auto& [line, outcome] : rows) {
    Stage each(GetParam(), no_requirement);
    each.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"A", 1}}}).finds(bills("'A'"), {bill_columns, {line}});
    EXPECT_EQ(requirement(each.client("CTranDetail"), "N1", "P1"), outcome);
  }
  stage.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"P1", Null{}}}});
  EXPECT_EQ(requirement(client(), "N1", "P1"), trapped(94, "Invalid use of Null"));
  stage.finds(of_production_order, {{"PARTNO", "QTY"}, {{"P1", "many"}}});
  EXPECT_EQ(requirement(client(), "N1", "P1"), trapped(13, "Type mismatch"));
}

TEST_P(MaterialRequirement, AnErrorOfTheDatabaseComesBack) {
  for (const char* failing : {"From CODETAIL", "From SODTBOM", "From ASSMBOM", "From PARTS", "C1.Close"}) {
    Stage each(GetParam(), no_requirement);
    each.all_find_nothing({bills("'P1','p1'"), both("'P1'", "'p1'")});
    each.finds(of_sales_order, {{"PARTNO", "QTY"}, {{"P1", 1}, {"p1", 1}}})
        .fails(failing, Error(-2147217865, "no table"));
    EXPECT_EQ(requirement(each.client("CTranDetail"), "N1", "P1"), trapped(-2147217865, "no table"))
        << failing;
    EXPECT_TRUE(each.database_calls().ends_with(" ! no table\n"));
  }
}

}  // namespace
}  // namespace tallyra::transactions_test
