#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <thread>

#include "automation/convert.h"
#include "tests/support/empty_database.h"
#include "tests/support/test_folder.h"
#include "tests/unit/standins/corvane/company_database.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

constexpr int takers = 3;
constexpr int numbers_each = 25;

// Every taker got its numbers, no number twice, none left out.
void expect_all_numbers(const std::vector<std::vector<std::string>>& taken) {
  std::set<std::string> numbers;
  for (const auto& list : taken) {
    EXPECT_EQ(list.size(), numbers_each);
    EXPECT_TRUE(std::is_sorted(list.begin(), list.end()));
    numbers.insert(list.begin(), list.end());
  }
  ASSERT_EQ(numbers.size(), takers * numbers_each);
  EXPECT_EQ(*numbers.begin(), "027CLOSE00000001");
  EXPECT_EQ(*numbers.rbegin(), "027CLOSE000000" + std::to_string(takers * numbers_each));
}

class KeyRace : public ::testing::TestWithParam<tests::TestedEngine> {
 protected:
  // The database is being written all the while.
  void SetUp() override {
    auto empty = GetParam().empty_database();
    if (!empty) GTEST_SKIP() << "there is no " << GetParam().name << " server here";
    database.emplace(std::move(empty));
    writer = database->open();
    Value affected;
    writer.call("BeginTrans");
    writer.call("Execute", "Insert Into REVADDR(ADDRNO) Values('A1')", ref(affected), -1);
  }
  void TearDown() override {
    if (!database) return;
    writer.call("RollbackTrans");
    writer.call("Close");
  }

  std::optional<CompanyDatabase> database;
  tests::TestFolder folder;
  Object writer;
};

TEST_P(KeyRace, ThreadsNeverGetTheSameNumber) {
  std::vector<std::vector<std::string>> taken(takers);
  std::vector<std::thread> threads;
  for (auto& list : taken)
    threads.emplace_back([&] {
      const Object system = database->system();
      for (int i = 0; i < numbers_each; ++i) {
        Value key;
        if (system.call("GetTableKeyID", "STK027CLOSE", "TRANNO", ref(key)) == Value(1))
          list.push_back(automation::to_text(key));
        else
          list.push_back(automation::to_text(system.get("ErrDescription")));
      }
    });
  for (auto& thread : threads) thread.join();
  expect_all_numbers(taken);
}

TEST_P(KeyRace, ProcessesNeverGetTheSameNumber) {
  std::vector<std::vector<std::string>> taken(takers);
  std::vector<std::thread> threads;
  for (int i = 0; i < takers; ++i)
    threads.emplace_back([&, i] {
      const std::string file = folder.file(std::to_string(i));
      std::string command = '"' + std::filesystem::path(TALLYRA_KEY_TAKER).make_preferred().string() +
                            "\" \"" + database->connection_string() + "\" " + std::to_string(numbers_each) +
                            " \"" + file + '"';
#ifdef _WIN32
      // Its shell takes the outermost quotes away.
      command = '"' + command + '"';
#endif
      EXPECT_EQ(std::system(command.c_str()), 0);
      std::ifstream lines(file);
      for (std::string line; std::getline(lines, line);) taken[static_cast<std::size_t>(i)].push_back(line);
    });
  for (auto& thread : threads) thread.join();
  expect_all_numbers(taken);
}

INSTANTIATE_TEST_SUITE_P(SQLite, KeyRace, ::testing::Values(tests::sqlite_engine));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, KeyRace, ::testing::Values(tests::postgresql_engine));

}  // namespace
}  // namespace tallyra::standins::corvane::testing
