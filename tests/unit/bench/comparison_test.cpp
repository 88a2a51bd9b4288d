#include "bench/comparison.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "automation/create.h"
#include "bench/sqlite_database.h"
#include "standins/ado/local_classes.h"
#include "tests/support/test_folder.h"

namespace tallyra::bench {
namespace {

Series series_of(const std::vector<double>& seconds) {
  Series series;
  for (const double each : seconds) series.add({each, 1, 0});
  return series;
}

TEST(Comparison, SetsTheMediansAndTheShortestRunsInRatio) {
  Comparison result;
  result.component = series_of({8, 3, 6});
  result.replays[Against::text] = series_of({5, 4, 2});
  result.rows = 12;
  EXPECT_EQ(result.ratio(Against::text), 1.5);
  EXPECT_EQ(result.least_ratio(Against::text), 1.5);
  EXPECT_EQ(result.rows_per_second(), 2);
}

// A file with one table, and a count of how often it was brought back.
class OneTable : public Company {
 public:
  OneTable(std::string path, int& renewals) : path_(std::move(path)), renewals_(renewals) {}
  std::string connection_string() const override { return "DRIVER={SQLite3};Database=" + path_; }
  void renew() override {
    ++renewals_;
    std::filesystem::remove(path_);
    SqliteDatabase(path_).execute("create table T(A integer primary key)");
  }

 private:
  std::string path_;
  int& renewals_;
};

TEST(Compare, RunsComponentAndEveryReplayOnARenewedCompany) {
  standins::ado::register_classes();
  const tests::TestFolder folder;
  int renewals = 0;
  Scenario scenario;
  scenario.rounds = 3;
  scenario.company = [&] { return std::make_unique<OneTable>(folder.file("work.db"), renewals); };
  // A second run on what the first has left would meet its key.
  scenario.run = [](const std::string& connection_string) -> std::uint64_t {
    const automation::Object connection = automation::create("ADODB.Connection");
    connection.call("Open", connection_string);
    connection.call("Execute", "Insert Into T(A) Values(1)");
    connection.call("Execute", "Insert Into T(A) Values(2)");
    return 7;
  };
  const Comparison result = compare(scenario, folder.path());
  EXPECT_EQ(result.rows, 7U);
  EXPECT_EQ(result.statements, 2U);
  EXPECT_EQ(renewals, 1 + 3 * 4);
  for (const Against against : all_against) EXPECT_GT(result.replays.at(against).least_seconds(), 0);
  EXPECT_GT(result.component.median_megabytes(), 0);
  EXPECT_FALSE(std::filesystem::exists(folder.file("statements.log")));
}

}  // namespace
}  // namespace tallyra::bench
