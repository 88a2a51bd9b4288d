#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <thread>

#include "automation/apartment.h"
#include "frame/collaborators.h"
#include "tests/behaviour/close/failed_close.h"
#include "tests/support/watched_calls.h"

// Two clients close the same month: what they leave, and that it can be mended.
namespace tallyra::behaviour {
namespace {

using stage::done;

class TwoClosers : public FailedClose {
 protected:
  // Closes the month; `at_call` runs before each call with its number, unless a transaction is open: another
  // client could not write then.
  stage::Outcome close_and_meet(const std::function<void(int step, const std::string& call)>& at_call) const {
    int step = 0;
    bool writing = false;
    const WatchedCalls watched([&](const std::string& call, const std::function<void()>& run) {
      ++step;
      if (!writing) at_call(step, call);
      if (call == "Connection.BeginTrans") writing = true;
      run();
      if (call == "Connection.CommitTrans") writing = false;
    });
    return close();
  }

  stage::Outcome close_by_another(const char* date = "2024/02/29") const {
    stage::Outcome outcome{};
    std::thread([&] {
      const automation::Apartment apartment;
      outcome = company.close(date);
      frame::collaborators() = {};
    }).join();
    return outcome;
  }
};

// Whoever comes second finds the record, deletes the other's documents, or stores its own beside them.
TEST_F(TwoClosers, LeaveTheDocumentsOfBothAndAreMendedAllTheSame) {
  std::map<int, std::string> meetings;
  EXPECT_EQ(close_and_meet([&](int step, const std::string& call) { meetings[step] = call; }), done);
  EXPECT_EQ(remove(), done);
  EXPECT_GT(meetings.size(), 30U);

  StepTable table;
  for (const auto& [meeting, call] : meetings) {
    SCOPED_TRACE(std::to_string(meeting) + " " + call);
    stage::Outcome second{};
    const stage::Outcome first = close_and_meet([&](int step, const std::string&) {
      if (step == meeting) second = close_by_another();
    });
    EXPECT_NE(first == done, second == done) << first << "\n" << second;
    table.add(meeting, call, left());
    expect_mended();
  }
  EXPECT_EQ(table.text(),
            "1 Rights.PowerCheck: 2 departments, 1 company, 1 record\n"
            "14 System.GetTableKeyID: 4 departments, 2 company, 1 record\n"
            "25 Recordset.Close: 3 departments, 2 company, 1 record\n"
            "38 Recordset.Close: 2 departments, 2 company, 1 record\n"
            "65 Recordset.Close: 2 departments, 1 company, 1 record\n");
}

TEST_F(TwoClosers, OfTwoDatesBothReportSuccessAlthoughDocumentsAreMissing) {
  stage::Outcome second{};
  int numbers = 0;
  EXPECT_EQ(close_and_meet([&](int, const std::string& call) {
              if (call == "System.GetTableKeyID" && ++numbers == 2) second = close_by_another("2024/03/31");
            }),
            done);
  EXPECT_EQ(second, done);
  EXPECT_EQ(left(), "1 departments, 1 company, 1 record") << "the first department's is deleted";
}

}  // namespace
}  // namespace tallyra::behaviour
