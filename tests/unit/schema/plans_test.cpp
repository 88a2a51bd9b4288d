#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/company/company_folder.h"
#include "tests/unit/schema/stock_statements.h"

namespace {

using namespace tallyra::tests::samples;

using Plan = std::vector<std::string>;

const std::string source = "SEARCH STKTRANHD USING COVERING INDEX STKTRANHD_BY_SOURCE ";
const std::string target = "SEARCH STKTRANHD USING COVERING INDEX STKTRANHD_BY_TARGET ";
const std::string type = "SEARCH STKTRANHD USING COVERING INDEX STKTRANHD_BY_TYPE ";
const std::string header = "SEARCH STKTRANHD USING COVERING INDEX STKTRANHD_BY_NUMBER ";
const std::string line = "SEARCH STKTRANDT USING COVERING INDEX STKTRANDT_BY_NUMBER (TRANNO=?)";
const std::string part = "SEARCH STKTRANDT USING COVERING INDEX STKTRANDT_BY_PART (PARTNO=?)";
const std::string grouped = "USE TEMP B-TREE FOR GROUP BY";
const std::string ordered = "USE TEMP B-TREE FOR ORDER BY";

struct Expected {
  const char* what;
  std::string sql;
  Plan plan;
};

const std::vector<Expected> expected_plans = {
    // The close starts at the headers of a department and period and never reads a whole table.
    {"close, outgoing", close_outgoing, {source + "(DEPTNOFR=? AND TRANDT>? AND TRANDT<?)", line, grouped}},
    {"close, incoming",
     close_incoming,
     {target + "(DEPTNOTO=? AND TRANTYPE=? AND TRANDT>? AND TRANDT<?)", line, grouped}},
    {"company close",
     company_close,
     {type + "(TRANTYPE=? AND TRANDT=?)", line,
      "SEARCH PARTS USING INDEX sqlite_autoindex_PARTS_1 (PARTNO=?)", grouped, ordered}},
    {"clear unapproved lines",
     clear_lines,
     {"SEARCH doomed USING INTEGER PRIMARY KEY (rowid=?)", "LIST SUBQUERY 1", type + "(TRANTYPE=?)", line}},
    {"clear unapproved headers",
     clear_headers,
     {"SEARCH STKTRANHD USING INDEX STKTRANHD_BY_TYPE (TRANTYPE=?)"}},
    {"approve a close",
     approve_close,
     {"SEARCH STKTRANHD USING INDEX STKTRANHD_BY_TYPE (TRANTYPE=? AND TRANDT=?)"}},
    // The approval of a stocktaking starts at the lines of the counted part.
    {"stocktaking, outgoing",
     check_outgoing,
     {part, header + "(TRANNO=? AND DEPTNOFR=? AND TRANDT>? AND TRANDT<?)"}},
    {"stocktaking, incoming", check_incoming, {part, header + "(TRANNO=?)"}},
    // So do the cost look-ups.
    {"last receipt", last_receipt, {part, header + "(TRANNO=?)", ordered}},
    {"receipts of the period", receipts_of_period, {part, header + "(TRANNO=?)"}},
    {"production and last company close", produced_and_closed, {part, header + "(TRANNO=?)", ordered}},
};

Plan plan_of(company::Database& database, const std::string& sql) {
  Plan plan;
  for (const auto& row : database.query("EXPLAIN QUERY PLAN " + sql)) plan.push_back(row.at(3));
  return plan;
}

void expect_plans(const std::string& path) {
  company::Database database(path);
  for (const Expected& expected : expected_plans) {
    EXPECT_EQ(plan_of(database, expected.sql), expected.plan) << expected.what;
  }
}

TEST(Plans, AreGoodInAnEmptyDatabase) {
  const CompanyFolder folder;
  expect_plans(folder.empty_database());
}

TEST(Plans, AreTheSameInAFilledDatabase) {
  const CompanyFolder folder;
  expect_plans(folder.company_database());
}

TEST(Plans, NeedTheShippedStatistics) {
  const CompanyFolder folder;
  const std::string path = folder.company_database();
  company::Database(path).execute("DELETE FROM sqlite_stat1");
  company::Database database(path);
  EXPECT_EQ(plan_of(database, check_outgoing).front(), source + "(DEPTNOFR=? AND TRANDT>? AND TRANDT<?)");
}

TEST(Plans, FindASingleLineWithoutReadingItsDocument) {
  const CompanyFolder folder;
  company::Database database(folder.empty_database());
  EXPECT_EQ(plan_of(database, "UPDATE STKTRANDT SET SN=3 Where TRANNO='A' AND SN=2"),
            Plan{"SEARCH STKTRANDT USING INDEX STKTRANDT_BY_NUMBER (TRANNO=? AND SN=?)"});
  EXPECT_EQ(plan_of(database, "Select * From STKTRANDT Where TRANNO='A' AND REFERENCE='' AND PARTNO='P'"),
            Plan{"SEARCH STKTRANDT USING INDEX STKTRANDT_BY_PART (PARTNO=? AND TRANNO=?)"});
}

TEST(Plans, FollowABillByTheKeyOfItsAssemblies) {
  const CompanyFolder folder;
  company::Database database(folder.empty_database());
  EXPECT_EQ(plan_of(database,
                    "Select ASSMBOM.ASSMNO,ASSMBOM.PARTNO,ASSMBOM.ENGQTY,ASSMBOM.URATE,ASSMBOM.WSRATE From "
                    "ASSMBOM Where ASSMBOM.ASSMNO In ('A','B')"),
            Plan{"SEARCH ASSMBOM USING PRIMARY KEY (ASSMNO=?)"});
}

TEST(Plans, FindWhatMovedForAnOrderByItsReference) {
  const CompanyFolder folder;
  company::Database database(folder.empty_database());
  const std::string by_reference = "SEARCH STKTRANDT USING INDEX STKTRANDT_BY_REFERENCE ";
  EXPECT_EQ(
      plan_of(database, "Select SUM(STKTRANDT.QTY) AS QTY" + lines_with_headers +
                            "STKTRANDT.REFERENCE='P' AND STKTRANDT.SN=1 AND STKTRANHD.TRANTYPE='STK010POREV'")
          .front(),
      by_reference + "(REFERENCE=? AND SN=?)");
  EXPECT_EQ(
      plan_of(database, "Select SUM(STKTRANDT.QTY) AS QTY" + lines_with_headers +
                            "STKTRANDT.TRANNO<>'T' And STKTRANDT.REFERENCE='M' And STKTRANDT.PARTNO='P'")
          .front(),
      by_reference + "(REFERENCE=?)");
}

}  // namespace
