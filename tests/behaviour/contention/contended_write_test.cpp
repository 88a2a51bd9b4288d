#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <optional>

#include "server/class_table.h"
#include "standins/ado/trace.h"
#include "tests/behaviour/contention/other_writer.h"
#include "tests/behaviour/contention/writing_methods.h"

// Every method that writes, while another process holds what it needs and commits a change to it: it waits
// its turn and succeeds.
namespace tallyra::behaviour {
namespace {

namespace ado = standins::ado;
using Clock = std::chrono::steady_clock;

// Milliseconds that a statement waits for the lock; what fails here fails after all of them.
constexpr int patient = 20000;

// Lets the other process take what it holds each time a transaction has begun, before its first statement.
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

  stage::Outcome call(const ClosingCompany& company) const { return GetParam().method->call(company); }
  std::string stored(const ClosingCompany& company) const { return company.rows(GetParam().method->stored); }
  // Now the method can be called for the company.
  void prepare(const ClosingCompany& company) const {
    give_records(company);
    company.run({"CREATE TABLE OTHERS(N INTEGER)"});
    if (GetParam().method->prepare) GetParam().method->prepare(company);
  }
  // With the others' change already there.
  Result play_alone(const ClosingCompany& company) const {
    prepare(company);
    company.run(change_of_others());
    const std::string before = stored(company);
    const stage::Outcome outcome = call(company);
    EXPECT_NE(stored(company), before) << outcome;
    return {outcome, stored(company)};
  }
  void expect_the_same_while_held(const Hold& hold, const Result& alone) const;
};

void ContendedWrite::expect_the_same_while_held(const Hold& hold, const Result& alone) const {
  const ClosingCompany company(GetParam().system_database, patient);
  prepare(company);
  SCOPED_TRACE(hold.name);
  OtherWriter other(company, hold);
  Interference interference(other);
  interference.interfere();
  const auto start = Clock::now();
  const stage::Outcome disturbed = call(company);
  const std::chrono::duration<double> duration = Clock::now() - start;
  EXPECT_EQ(disturbed, alone.outcome);
  EXPECT_LT(duration.count(), 10) << "nothing was held, and the method went on waiting";
  // What was not in the others' way has not waited for them.
  other.finish();
  EXPECT_EQ(stored(company), alone.stored);
  EXPECT_GE(interference.times(), 1);
  EXPECT_EQ(company.rows("SELECT Count(*) FROM OTHERS"), std::to_string(interference.times()) + "\n");
}

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
  std::vector<Hold> holds;
  std::optional<Result> alone;
  {
    const ClosingCompany company(GetParam().system_database);
    holds = holds_on(company);
    alone = play_alone(company);
  }
  for (const Hold& hold : holds) expect_the_same_while_held(hold, *alone);
}

}  // namespace
}  // namespace tallyra::behaviour
