#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/create.h"
#include "standins/corvane/local_classes.h"
#include "tests/support/answering_database.h"
#include "tests/support/recorded_statements.h"
#include "tests/unit/company/company_folder.h"
#include "tests/unit/standins/ado/dialect/rewriting.h"

namespace {

using namespace tallyra::tests::generated_company;

using Plan = std::vector<std::string>;

const std::string source = "SEARCH STKTRANHD USING COVERING INDEX STKTRANHD_BY_SOURCE ";
const std::string target = "SEARCH STKTRANHD USING COVERING INDEX STKTRANHD_BY_TARGET ";
const std::string type = "SEARCH STKTRANHD USING COVERING INDEX STKTRANHD_BY_TYPE ";
const std::string header = "SEARCH STKTRANHD USING COVERING INDEX STKTRANHD_BY_NUMBER ";
const std::string line = "SEARCH STKTRANDT USING COVERING INDEX STKTRANDT_BY_NUMBER (TRANNO=?)";
const std::string part = "SEARCH STKTRANDT USING COVERING INDEX STKTRANDT_BY_PART (PARTNO=?)";
const std::string grouped = "USE TEMP B-TREE FOR GROUP BY";
const std::string ordered = "USE TEMP B-TREE FOR ORDER BY";

// What SQLite is given of a statement that a class sends for Access: the first with all these parts.
std::string sent(const char* class_name, const std::vector<std::string>& parts) {
  return tallyra::tests::dialect::rewritten(tallyra::stage::recorded_statement(class_name, parts));
}

// And of the first statement that a cost look-up of the system object sends, which finds nothing.
std::string looked_up(const char* member) {
  tallyra::standins::corvane::register_classes();
  tallyra::stage::AnsweringDatabase database([](const std::string&) { return tallyra::stage::Reply{}; });
  const auto system = tallyra::automation::create("Corvane.CSystem");
  const tallyra::automation::Value connection = database.connection(), quantity = 1.0;
  if (member == std::string("GetPartCost"))
    system.call(member, "RM-00001", "#2024/02/29#", "#2024/01/31#", quantity, connection);
  else
    system.call(member, "RM-00001", "#2024/02/29#", "#2024/01/31#", connection, 1);
  return tallyra::tests::dialect::rewritten(database.statements().at(0));
}

struct Expected {
  const char* what;
  std::string sql;
  Plan plan;
};

std::string counted_out() {
  return sent("CCheckHead", {"Select SUM", "DEPTNOFR='10' And STKTRANHD.TRANDT>#2024/02/29#", "PARTNO='A'"});
}

std::vector<Expected> expected_plans() {
  return {
      // The close starts at the headers of a department and period and never reads a whole table.
      {"close, outgoing",
       sent("CStockClose", {"Select STKTRANDT.PARTNO", "DEPTNOFR='10' And STKTRANHD.TRANDT>#"}),
       {source + "(DEPTNOFR=? AND TRANDT>? AND TRANDT<?)", line, grouped}},
      {"close, incoming",
       sent("CStockClose",
            {"Select STKTRANDT.PARTNO", "DEPTNOTO='10' And STKTRANHD.TRANTYPE='STK024MRPL'", "TRANDT>#"}),
       {target + "(DEPTNOTO=? AND TRANTYPE=? AND TRANDT>? AND TRANDT<?)", line, grouped}},
      {"company close",
       sent("CStockClose", {"Select PARTS.MTYPESN", "TRANDT=#"}),
       {type + "(TRANTYPE=? AND TRANDT=?)", line,
        "SEARCH PARTS USING INDEX sqlite_autoindex_PARTS_1 (PARTNO=?)", grouped, ordered}},
      {"clear unapproved lines",
       sent("CStockClose", {"Delete STKTRANDT.*", "TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0"}),
       {"SEARCH doomed USING INTEGER PRIMARY KEY (rowid=?)", "LIST SUBQUERY 1", type + "(TRANTYPE=?)", line}},
      {"clear unapproved headers",
       sent("CStockClose", {"Delete * From STKTRANHD", "TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0"}),
       {"SEARCH STKTRANHD USING INDEX STKTRANHD_BY_TYPE (TRANTYPE=?)"}},
      {"approve a close",
       sent("CStockClose", {"UPDATE STKTRANHD SET STATUSSN=1"}),
       {"SEARCH STKTRANHD USING INDEX STKTRANHD_BY_TYPE (TRANTYPE=? AND TRANDT=?)"}},
      // The approval of a stocktaking starts at the lines of the counted part.
      {"stocktaking, outgoing",
       counted_out(),
       {part, header + "(TRANNO=? AND DEPTNOFR=? AND TRANDT>? AND TRANDT<?)"}},
      {"stocktaking, incoming",
       sent("CCheckHead", {"Select SUM", "DEPTNOTO='10' And STKTRANHD.TRANDT>#2024/02/29#", "PARTNO='A'"}),
       {part, header + "(TRANNO=?)"}},
      // So do the cost look-ups.
      {"last receipt", looked_up("GetLastUprice"), {part, header + "(TRANNO=?)", ordered}},
      {"receipts of the period", looked_up("GetAvgUprice"), {part, header + "(TRANNO=?)"}},
      {"production and last company close", looked_up("GetPartCost"), {part, header + "(TRANNO=?)", ordered}},
  };
}

Plan plan_of(company::Database& database, const std::string& sql) {
  Plan plan;
  for (const auto& row : database.query("EXPLAIN QUERY PLAN " + sql)) plan.push_back(row.at(3));
  return plan;
}

void expect_plans(const std::string& path) {
  company::Database database(path);
  for (const Expected& expected : expected_plans())
    EXPECT_EQ(plan_of(database, expected.sql), expected.plan) << expected.what << '\n' << expected.sql;
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
  EXPECT_EQ(plan_of(database, counted_out()).front(), source + "(DEPTNOFR=? AND TRANDT>? AND TRANDT<?)");
}

TEST(Plans, FindASingleLineWithoutReadingItsDocument) {
  const CompanyFolder folder;
  company::Database database(folder.empty_database());
  EXPECT_EQ(plan_of(database, sent("CTranDetail", {"UPDATE STKTRANDT SET SN=", "Where TRANNO='T1' AND SN="})),
            Plan{"SEARCH STKTRANDT USING INDEX STKTRANDT_BY_NUMBER (TRANNO=? AND SN=?)"});
  EXPECT_EQ(plan_of(database, sent("CTranDetail", {"Select STKTRANDT.* From", "PARTNO='P1'"})),
            Plan{"SEARCH STKTRANDT USING INDEX STKTRANDT_BY_PART (PARTNO=? AND TRANNO=?)"});
}

TEST(Plans, FollowABillByTheKeyOfItsAssemblies) {
  const CompanyFolder folder;
  company::Database database(folder.empty_database());
  EXPECT_EQ(plan_of(database, sent("CTranDetail", {"From ASSMBOM", "In ('A','P1')"})),
            Plan{"SEARCH ASSMBOM USING PRIMARY KEY (ASSMNO=?)"});
}

TEST(Plans, FindWhatMovedForAnOrderByItsReference) {
  const CompanyFolder folder;
  company::Database database(folder.empty_database());
  const std::string by_reference = "SEARCH STKTRANDT USING INDEX STKTRANDT_BY_REFERENCE ";
  EXPECT_EQ(plan_of(database, sent("CTranDetail", {"Select STKTRANDT.REFERENCE,STKTRANDT.SN,SUM",
                                                   "REFERENCE='N1'", "'STK010POREV'"}))
                .front(),
            by_reference + "(REFERENCE=? AND SN=?)");
  EXPECT_EQ(plan_of(database, sent("CTranDetail", {"Select STKTRANDT.PARTNO,SUM", "TRANNO<>'T1'",
                                                   "REFERENCE='M1'", "'STK020MISS'"}))
                .front(),
            by_reference + "(REFERENCE=?)");
}

}  // namespace
