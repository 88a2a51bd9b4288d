#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "automation/yield.h"
#include "tests/behaviour/close/closing_company.h"

// A close whose process is killed, run again, ends as an undisturbed one does.
namespace tallyra::behaviour {
namespace {

// Runs the close in a process of its own that kills itself after so many written lines; whether it was
// killed.
bool close_and_die(const ClosingCompany& company, int lines) {
  const pid_t child = fork();
  if (child == 0) {
    int written = 0;
    const automation::ScopedYield dying([&] {
      if (++written == lines) kill(getpid(), SIGKILL);
    });
    company.close("2024/01/31");
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status);
}

TEST(InterruptedClose, RunAgainGivesTheDocumentsOfAnUndisturbedRun) {
  std::string departments;
  std::string all_parts;
  {
    const ClosingCompany undisturbed;
    ASSERT_EQ(undisturbed.close("2024/01/31"), stage::done);
    departments = undisturbed.department_lines("2024-02-01");
    all_parts = undisturbed.company_lines("2024-02-01");
  }
  // Two departments of four lines each, then five of the company. The yield after a line is the last thing
  // seen of it, so 5 dies within the second department: the first one's document is committed.
  int killed = 0;
  for (int lines = 1; lines <= 14; ++lines) {
    const ClosingCompany company;
    if (!close_and_die(company, lines)) continue;
    ++killed;
    const std::string left = company.department_lines("2024-02-01");
    EXPECT_EQ(left.empty(), lines <= 4) << lines << "\n" << left;
    EXPECT_EQ(company.rows("SELECT Count(*) FROM STKCLOSEHD"), "0\n");
    EXPECT_EQ(company.close("2024/01/31"), stage::done) << lines;
    EXPECT_EQ(company.department_lines("2024-02-01"), departments) << lines;
    EXPECT_EQ(company.company_lines("2024-02-01"), all_parts) << lines;
  }
  EXPECT_EQ(killed, 13);
}

}  // namespace
}  // namespace tallyra::behaviour
