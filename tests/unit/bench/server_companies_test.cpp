#include "bench/server_companies.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "bench/comparison.h"
#include "bench/month_close.h"
#include "bench/session.h"
#include "server/local_classes.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"
#include "standins/lexbank/local_classes.h"
#include "tests/support/test_folder.h"

namespace tallyra::bench {
namespace {

constexpr CompanySize tiny{2, 30, 200};

class ServerCompaniesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!ServerCompanies::can_be_made()) GTEST_SKIP() << "no server on this machine";
    server::register_classes();
    standins::ado::register_classes();
    standins::corvane::register_classes();
    standins::lexbank::register_classes();
    std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
  }

  tests::TestFolder folder_;
  Companies companies_{folder_.path(), TALLYRA_SCHEMA};
  ServerCompanies on_server_{companies_, folder_.path()};
};

TEST_F(ServerCompaniesTest, AreAsTheyWereAfterEachRenewal) {
  const auto company = on_server_.company(tiny);
  const auto closes = [&] {
    return count_rows(company->connection_string(), "Select Count(*) As N From STKCLOSEHD");
  };
  company->renew();
  EXPECT_EQ(closes(), 1U);
  EXPECT_GT(month_close_on_server(on_server_, tiny).run(company->connection_string()), 0U);
  EXPECT_EQ(closes(), 2U);
  company->renew();
  EXPECT_EQ(closes(), 1U);
}

TEST_F(ServerCompaniesTest, CloseWithTheRowsOfTheirFilesAndAreHeldAgainstTheirOwnStatements) {
  Scenario on_file = month_close(companies_, tiny);
  Scenario on_server = month_close_on_server(on_server_, tiny);
  on_file.rounds = on_server.rounds = 1;
  on_file.replays = {};
  const Comparison file = compare(on_file, folder_.path(), Time::processor);
  const Comparison server = compare(on_server, folder_.path(), Time::processor);
  EXPECT_GT(file.rows, 0U);
  EXPECT_EQ(server.rows, file.rows);
  EXPECT_GT(server.statements, 0U);
  EXPECT_GT(server.ratio(Against::text), 0);
}

}  // namespace
}  // namespace tallyra::bench
