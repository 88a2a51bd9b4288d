#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "automation/convert.h"
#include "company/ado_connection.h"
#include "company/database_copy.h"
#include "tests/support/empty_database.h"
#include "tests/unit/company/company_folder.h"

// How PostgreSQL finds what the close and the approval of a stocktaking ask for, in a company of the usual
// size. Its planner goes by its own statistics, so what is held is which indexes it uses and not the whole
// plan.
namespace {

using namespace tallyra::tests::generated_company;
using company::AdoConnection;

// The first statement of a class in the corpus that has all these parts.
std::string recorded_statement(const std::string& of_class, const std::vector<std::string>& parts) {
  std::ifstream corpus(std::string(STATEMENT_CORPUS) + "/" + of_class + ".sqlserver.sql");
  for (std::string line; std::getline(corpus, line);) {
    const bool all =
        std::ranges::all_of(parts, [&](const auto& part) { return line.find(part) != std::string::npos; });
    if (all) return line;
  }
  ADD_FAILURE() << of_class << " sends no statement with " << testing::PrintToString(parts);
  return "SELECT 1";
}

std::string plan_of(const AdoConnection& connection, const std::string& statement) {
  std::string plan;
  for (const auto& row : connection.rows("EXPLAIN " + statement)) {
    plan += tallyra::automation::to_text(row.at(0)) + "\n";
  }
  return plan;
}

struct ServerPlan {
  const char* of_class;
  std::vector<std::string> parts;
  std::vector<std::string> indexes;
};

const std::vector<ServerPlan> server_plans = {
    {"CStockClose",
     {"Select STKTRANDT.PARTNO,SUM", "DEPTNOFR='20'", "'2024/02/29'"},
     {"stktranhd_by_source"}},
    {"CStockClose",
     {"Select STKTRANDT.PARTNO,SUM", "DEPTNOTO='20'", "'2024/02/29'"},
     {"stktranhd_by_target", "stktrandt_by_number"}},
    {"CStockClose", {"Select PARTS.MTYPESN"}, {"stktranhd_by_type", "stktrandt_by_number"}},
    {"CCheckHead", {"Select SUM(STKTRANDT.QTY)", "DEPTNOFR='10'", "'2024/02/29'"}, {"stktrandt_by_part"}},
    {"CCheckHead", {"Select SUM(STKTRANDT.QTY)", "DEPTNOTO='10'", "'2024/02/29'"}, {"stktrandt_by_part"}},
};

TEST(PostgresqlPlans, ReadNothingButTheCoveringIndexes) {
  const auto server = tallyra::tests::postgresql_engine.empty_database();
  if (!server) GTEST_SKIP() << "there is no PostgreSQL server here";
  const CompanyFolder folder;
  const company::Options options = folder.options("company.db", 300, 20'000);
  company::generate(options, [](int) {});
  company::copy_database(options.database, server->connection_string(), [](auto, auto, auto, auto) {});
  const AdoConnection connection(server->connection_string());
  // Without it no row is known to be visible to everybody, and an index alone does not do.
  connection.execute("VACUUM STKTRANHD");
  connection.execute("VACUUM STKTRANDT");
  for (const ServerPlan& it : server_plans) {
    const std::string statement = recorded_statement(it.of_class, it.parts);
    const std::string plan = plan_of(connection, statement);
    for (const std::string& index : it.indexes) {
      const bool used = plan.find("Index Only Scan using " + index) != std::string::npos ||
                        plan.find("Index Only Scan Backward using " + index) != std::string::npos;
      EXPECT_TRUE(used) << index << "\n" << statement << "\n" << plan;
    }
    EXPECT_EQ(plan.find("Seq Scan on stktranhd"), std::string::npos) << plan;
  }
}

}  // namespace
