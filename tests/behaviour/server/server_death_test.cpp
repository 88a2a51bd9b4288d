#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>

#include "tests/behaviour/close/failed_close.h"
#include "tests/support/postgresql_server.h"
#include "tests/support/watched_calls.h"

// The server dies in the middle of a close. Nothing is called done that is not, and run again the close ends
// as an undisturbed one does. TALLYRA_KILL_ROUNDS says how often; a third of the rounds have a standby.
namespace tallyra::behaviour {
namespace {

using stage::done;
using tests::PostgresqlServer;

// Milliseconds that a close takes here, and more on a slow machine.
constexpr int longest_close = 200;

int rounds() {
  const char* const told = std::getenv("TALLYRA_KILL_ROUNDS");
  return told ? std::atoi(told) : 3;
}

void expect_companies_on_a_server() {
  ::setenv("TALLYRA_TEST_ENGINE", "postgresql", 1);
}

class DyingServer {
 public:
  explicit DyingServer(int round) : round_(round) {}

  // Closes while the server dies: before one of the calls, at some moment, or, at the latest, right behind.
  stage::Outcome close_and_lose(const ClosingCompany& company, PostgresqlServer& server) const {
    const stage::Outcome outcome = round_ % 2 == 0 ? by_call(company, server) : by_time(company, server);
    server.kill();
    return outcome;
  }

 private:
  stage::Outcome by_call(const ClosingCompany& company, PostgresqlServer& server) const {
    const int last = 2 + round_ * 7 % (calls_of_a_close(company) - 2);
    int calls = 0;
    const WatchedCalls watched([&](const std::string&, const std::function<void()>& run) {
      if (++calls == last) server.kill();
      run();
    });
    return company.close("2024/02/29");
  }

  static int calls_of_a_close(const ClosingCompany& company) {
    int calls = 0;
    {
      const WatchedCalls watched([&](const std::string&, const std::function<void()>& run) {
        ++calls;
        run();
      });
      EXPECT_EQ(company.close("2024/02/29"), done);
    }
    EXPECT_EQ(company.remove("2024/02/29"), done);
    return calls;
  }

  stage::Outcome by_time(const ClosingCompany& company, PostgresqlServer& server) const {
    std::thread killer([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(5 + round_ * 61 % longest_close));
      server.kill();
    });
    const stage::Outcome outcome = company.close("2024/02/29");
    killer.join();
    return outcome;
  }

  int round_;
};

// The fixture of failed closes, which knows the undisturbed one's documents, more than once in a test.
class LostClose : public FailedClose {
 public:
  explicit LostClose(int round) : round_(round) {}
  void TestBody() override {}

  void run(PostgresqlServer& server, const std::function<void()>& recover) const {
    ASSERT_FALSE(company.is_sqlite());
    const stage::Outcome outcome = DyingServer(round_).close_and_lose(company, server);
    recover();
    RecordProperty("outcome", outcome == done ? "done" : "failed");
    if (outcome == done) {
      EXPECT_EQ(left(), "2 departments, 1 company, 1 record");
    } else {
      EXPECT_FALSE(outcome.description.empty());
    }
    expect_mended();
  }

 private:
  int round_;
};

TEST(ServerDeath, NothingIsCalledDoneThatIsNotAndTheRepeatIsWhole) {
  expect_companies_on_a_server();
  PostgresqlServer& server = PostgresqlServer::shared();
  for (int round = 0; round < rounds(); ++round) {
    if (round % 3 == 2) continue;
    SCOPED_TRACE(round);
    const LostClose close(round);
    close.run(server, [&] { server.start(); });
  }
}

TEST(ServerDeath, AStandbyTakesOverUnderTheSameConnectionString) {
  expect_companies_on_a_server();
  for (int round = 2; round < rounds(); round += 3) {
    SCOPED_TRACE(round);
    PostgresqlServer primary;
    PostgresqlServer standby(PostgresqlServer::standby, primary);
    companies_on(&primary, &standby);
    {
      const LostClose close(round);
      close.run(primary, [&] { standby.promote(); });
    }
    companies_on(nullptr, nullptr);
  }
}

}  // namespace
}  // namespace tallyra::behaviour
