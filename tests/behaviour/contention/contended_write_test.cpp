#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <optional>

#include "server/class_table.h"
#include "standins/ado/trace.h"
#include "tests/behaviour/contention/other_writer.h"
#include "tests/behaviour/contention/writing_methods.h"

// Every method that writes, while another process writes to the database: it waits its turn and succeeds.
namespace tallyra::behaviour {
namespace {

namespace ado = standins::ado;
using Clock = std::chrono::steady_clock;

// Milliseconds that a statement waits for the lock; what fails here fails after all of them.
constexpr int patient = 20000;

// Lets the other process take the lock each time a transaction has begun, before its first statement.
class Interference : public ado::TraceSink {
 public:
  explicit Interference(OtherWriter& other) : other_(other) { ado::set_trace_sink(this); }
  ~Interference() override { ado::set_trace_sink(nullptr); }
  void operation(const ado::TraceEvent& event) noexcept override {
    if (event.operation == ado::Operation::begin) interfere();
  }
  void interfere() noexcept { times_ += other_.takes_the_lock() ? 1 : 0; }
  int times() const { return times_; }

 private:
  OtherWriter& other_;
  int times_ = 0;
};

struct Scene {
  const WritingMethod* method;
  const char* system_database;
  friend std::ostream& operator<<(std::ostream& out, const Scene& scene) {
    return out << scene.method->name << "_" << scene.system_database;
  }
};

std::vector<Scene> scenes() {
  std::vector<Scene> all;
  for (const auto& method : writing_methods())
    for (const char* kind : {"MSACCESS", "MSSQLSERVER"}) all.push_back({&method, kind});
  return all;
}

class ContendedWrite : public testing::TestWithParam<Scene> {
 protected:
  struct Result {
    stage::Outcome outcome;
    std::string stored;
  };

  Result play(const ClosingCompany& company) const {
    const stage::Outcome outcome = GetParam().method->call(company);
    return {outcome, company.rows(GetParam().method->stored)};
  }
  // A company that the method can be called for; what it has stored so far goes to `before`.
  void prepare(const ClosingCompany& company, std::string& before) const {
    give_records(company);
    company.run({"CREATE TABLE OTHERS(N INTEGER)"});
    if (GetParam().method->prepare) GetParam().method->prepare(company);
    before = company.rows(GetParam().method->stored);
  }
};

INSTANTIATE_TEST_SUITE_P(Methods, ContendedWrite, testing::ValuesIn(scenes()),
                         testing::PrintToStringParamName());

TEST(WritingMethods, AreAllInTheTable) {
  for (const auto& table : server::classes())
    for (const auto& member : table.members) {
      const std::string_view name = member.name;
      if (!name.starts_with("Insert") && !name.starts_with("Update") && !name.starts_with("Delete")) continue;
      const std::string in_table = std::string(table.name) + std::string(name);
      EXPECT_TRUE(std::ranges::any_of(writing_methods(), [&](const WritingMethod& method) {
        return method.name == in_table;
      })) << in_table;
    }
}

TEST_P(ContendedWrite, WaitsItsTurnAndSucceeds) {
  std::string before;
  std::optional<Result> alone;
  {
    const ClosingCompany company(GetParam().system_database);
    prepare(company, before);
    alone = play(company);
  }
  ASSERT_NE(alone->stored, before) << alone->outcome;

  const ClosingCompany company(GetParam().system_database, patient);
  prepare(company, before);
  OtherWriter other(company.file());
  Interference interference(other);
  interference.interfere();
  const auto start = Clock::now();
  const Result disturbed = play(company);
  const std::chrono::duration<double> duration = Clock::now() - start;
  EXPECT_EQ(disturbed.outcome, alone->outcome);
  EXPECT_EQ(disturbed.stored, alone->stored);
  EXPECT_LT(duration.count(), 10) << "the lock was free, and the method went on waiting";
  EXPECT_GE(interference.times(), 1);
}

}  // namespace
}  // namespace tallyra::behaviour
