#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <thread>

#include "client/database/own_tables.h"
#include "tests/behaviour/client/month_end/closing_client.h"
#include "tests/support/watched_calls.h"

// Closers that are killed, and closers that meet: each is a process of its own.
namespace tallyra::client {
namespace {

// How often, in a run that takes its time: TALLYRA_KILLS=30.
int rounds(const char* variable, int usual) {
  const char* const chosen = std::getenv(variable);
  return chosen ? std::atoi(chosen) : usual;
}

class ClosingProcesses : public ClosingClient {
 protected:
  using AtCall = std::function<void(int step, const std::string& call)>;

  ClosingProcesses() {
    const Reader reader(company_.connection_string(), "MSACCESS");
    make_own_tables(reader);
  }

  // Closes January in another process; `at_call` runs before each call of the database.
  pid_t close_elsewhere(const AtCall& at_call) {
    const pid_t child = fork();
    if (child != 0) return child;
    int step = 0;
    const behaviour::WatchedCalls watched([&](const std::string& call, const std::function<void()>& run_it) {
      at_call(++step, call);
      run_it();
    });
    const ExitStatus status = run({"close", "2024/01/31"});
    const std::string said = client_.all();
    _exit(status == exit_locked && said.find("is at work on close 2024/01/31 since") == std::string::npos
              ? 99
              : status);
  }

  std::string documents() const {
    return company_.department_lines("2024-02-01") + company_.company_lines("2024-02-01");
  }
  bool is_closed() const { return company_.rows("SELECT Count(*) FROM STKCLOSEHD") == "1\n"; }

  // What `status` has to tell of what the killed process has left.
  void expect_status_tells() {
    ASSERT_EQ(run({"status"}), exit_done);
    const bool locked = company_.rows("SELECT Count(*) FROM TALLYRALOCK") == "1\n";
    const bool left = !is_closed() && !documents().empty();
    EXPECT_EQ(says("The process that holds the lock has ended"), locked) << client_.all();
    EXPECT_EQ(says("A close did not come to its end"), left) << client_.all();
    EXPECT_TRUE(locked || !left) << "documents without a lock";
  }
};

TEST_F(ClosingProcesses, ThatAreKilledAnywhereAreToldAndMended) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done);
  const std::string undisturbed = documents();
  ASSERT_EQ(run({"reopen", "2024/01/31"}), exit_done);
  int all_steps = 0;
  {
    const behaviour::WatchedCalls watched([&](const std::string&, const std::function<void()>& run_it) {
      ++all_steps;
      run_it();
    });
    ASSERT_EQ(run({"close", "2024/01/31"}), exit_done);
  }
  ASSERT_EQ(run({"reopen", "2024/01/31"}), exit_done);

  std::random_device random;
  for (int kill_number = rounds("TALLYRA_KILLS", 3); kill_number > 0; --kill_number) {
    const int last_step = std::uniform_int_distribution(1, all_steps)(random);
    SCOPED_TRACE("killed before call " + std::to_string(last_step) + " of " + std::to_string(all_steps));
    const std::string before = company_.everything();
    const pid_t child = close_elsewhere([&](int step, const std::string&) {
      if (step == last_step) kill(getpid(), SIGKILL);
    });
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    if (company_.rows("SELECT Count(*) FROM TALLYRALOCK") == "0\n" && !is_closed()) {
      EXPECT_EQ(company_.everything(), before) << "before the lock nothing is left";
    }
    expect_status_tells();
    if (!is_closed()) {
      EXPECT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
    }
    EXPECT_EQ(documents(), undisturbed);
    EXPECT_EQ(run({"verify", "2024/01/31"}), exit_done) << client_.all();
    EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_done) << client_.all();
  }
}

// As in "close ... | head -1": a signal says that nobody reads any more.
TEST_F(ClosingProcesses, GoOnWhenTheReaderOfTheirOutputHasGone) {
  const pid_t child = close_elsewhere([](int, const std::string& call) {
    if (call == "System.GetTableKeyID") raise(SIGPIPE);
  });
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_TRUE(is_closed());
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM TALLYRALOCK"), "0\n");
}

TEST_F(ClosingProcesses, ThatMeetAreOneThatRunsAndOneThatSaysWhoDoes) {
  for (int round = rounds("TALLYRA_ROUNDS", 2); round > 0; --round) {
    int gate[2];
    ASSERT_EQ(pipe(gate), 0);
    // Whoever has the lock waits with its first document until the other one has ended.
    const auto wait_at_first_document = [&](int, const std::string& call) {
      static bool waited = false;
      if (waited || call != "System.GetTableKeyID") return;
      waited = true;
      constexpr int patience = 60000;  // milliseconds, should both wait
      pollfd ready{gate[0], POLLIN, 0};
      poll(&ready, 1, patience);
    };
    const pid_t children[] = {close_elsewhere(wait_at_first_document),
                              close_elsewhere(wait_at_first_document)};
    int first = 0;
    const pid_t ended = wait(&first);
    EXPECT_EQ(WEXITSTATUS(first), exit_locked);
    ASSERT_EQ(write(gate[1], "go", 2), 2);
    int second = 0;
    waitpid(ended == children[0] ? children[1] : children[0], &second, 0);
    EXPECT_EQ(WEXITSTATUS(second), exit_done);
    for (const int end : gate) close(end);
    EXPECT_TRUE(is_closed());
    EXPECT_EQ(run({"verify", "2024/01/31"}), exit_done) << client_.all();
    EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_done) << client_.all();
  }
}

}  // namespace
}  // namespace tallyra::client
