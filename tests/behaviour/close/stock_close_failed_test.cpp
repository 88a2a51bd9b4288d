#include <gtest/gtest.h>

#include <vector>

#include "automation/error.h"
#include "tests/behaviour/close/failed_close.h"
#include "tests/support/watched_calls.h"

// What a close leaves behind that fails, step by step, and that it can be mended from there.
namespace tallyra::behaviour {
namespace {

using stage::done;
using RealCall = std::function<void()>;

[[noreturn]] void fail() {
  throw automation::Error(-2147467259, "the connection is lost");
}

enum class Failure { refused_once, answer_lost, lost_for_good };

class FailedCloseAtEachStep : public FailedClose {
 protected:
  // Closes with a failure at one step, or with none for 0.
  stage::Outcome close_failing_at(int failing, Failure failure) {
    calls.clear();
    const WatchedCalls watched([&](const std::string& call, const RealCall& run) {
      calls.push_back(call);
      const int step = static_cast<int>(calls.size());
      const bool reached = failing != 0 && step >= failing;
      if (reached && step == failing && failure == Failure::answer_lost) run();
      if (reached && (step == failing || failure == Failure::lost_for_good)) fail();
      run();
    });
    return close();
  }

  // Fails at each of these steps in turn; what each failure left.
  std::string left_by(Failure failure, const std::string& only_calls = {}) {
    EXPECT_EQ(close_failing_at(0, failure), done);
    EXPECT_EQ(remove(), done);
    const std::vector<std::string> undisturbed_calls = calls;
    StepTable table;
    for (std::size_t i = 0; i < undisturbed_calls.size(); ++i) {
      const std::string& call = undisturbed_calls[i];
      if (!call.ends_with(only_calls)) continue;
      const int failing = static_cast<int>(i) + 1;
      SCOPED_TRACE(std::to_string(failing) + " " + call);
      const stage::Outcome outcome = close_failing_at(failing, failure);
      EXPECT_EQ(outcome.result, 0);
      EXPECT_EQ(outcome.description, "the connection is lost");
      table.add(failing, call, left());
      expect_mended();
    }
    return table.text();
  }

  std::vector<std::string> calls;
};

// 27 and 40 are the numbers of the second and third department, for which nothing is cleaned up; from 48 on
// the departments are done. Errors of the steps of a department and of the company are followed by a
// clean-up, errors of the run itself are not.
TEST_F(FailedCloseAtEachStep, AStepThatIsRefused) {
  EXPECT_EQ(left_by(Failure::refused_once),
            "1 Rights.PowerCheck: nothing\n"
            "27 System.GetTableKeyID: 1 departments, 0 company, 0 record\n"
            "28 Connection.Open: nothing\n"
            "40 System.GetTableKeyID: 2 departments, 0 company, 0 record\n"
            "41 Connection.Open: nothing\n"
            "48 Recordset.Close: 2 departments, 0 company, 0 record\n"
            "50 Connection.Open: nothing\n"
            "66 Recordset.Open Select top 1 * From STKCLOSEHD: 2 departments, 1 company, 0 record\n"
            "72 Connection.Close: 2 departments, 1 company, 1 record\n");
}

// The database has committed and the client does not hear of it.
TEST_F(FailedCloseAtEachStep, ACommitWhoseAnswerIsLost) {
  EXPECT_EQ(left_by(Failure::answer_lost, "CommitTrans"),
            "13 Connection.CommitTrans: nothing\n"
            "71 Connection.CommitTrans: 2 departments, 1 company, 1 record\n");
}

TEST_F(FailedCloseAtEachStep, AConnectionThatIsLostForGoodCannotCleanUpEither) {
  EXPECT_EQ(left_by(Failure::lost_for_good),
            "1 Rights.PowerCheck: nothing\n"
            "25 Recordset.Close: 1 departments, 0 company, 0 record\n"
            "38 Recordset.Close: 2 departments, 0 company, 0 record\n"
            "65 Recordset.Close: 2 departments, 1 company, 0 record\n"
            "72 Connection.Close: 2 departments, 1 company, 1 record\n");
}

// Update asks for no record. What it approves is deleted by no run, only by Delete.
TEST_F(FailedClose, LeftoversThatAreApprovedStayBesideTheDocumentsOfTheNextRun) {
  {
    const WatchedCalls watched([&](const std::string& call, const RealCall& run) {
      if (call.find("Insert Into STKCLOSEHD") != std::string::npos) fail();
      run();
    });
    EXPECT_EQ(close().result, 0);
  }
  EXPECT_EQ(left(), "2 departments, 1 company, 0 record");
  EXPECT_EQ(company.approve("2024/02/29"), done);
  EXPECT_EQ(close(), done);
  EXPECT_EQ(left(), "4 departments, 2 company, 1 record");
  EXPECT_EQ(remove(), done);
  EXPECT_EQ(left(), "nothing");
  expect_mended();
}

TEST_F(FailedClose, ANumberThatIsNotIssuedLeavesTheDepartmentsBeforeIt) {
  // The last number of the series, stored in a document, uses it up.
  const char* const last_number = "INSERT INTO STKTRANHD(TRANNO,TRANTYPE) VALUES('027CLOSE99999999','OTHER')";
  const char* const expected[] = {"nothing", "1 departments, 0 company, 0 record",
                                  "2 departments, 0 company, 0 record", "nothing"};
  for (int failing = 1; failing <= 4; ++failing) {
    SCOPED_TRACE(failing);
    {
      int numbers = 0;
      const WatchedCalls watched([&](const std::string& call, const RealCall& run) {
        if (call == "System.GetTableKeyID" && ++numbers == failing) company.run({last_number});
        run();
      });
      EXPECT_EQ(close().number, 10000225) << "the series is used up";
    }
    company.run({"DELETE FROM STKTRANHD WHERE TRANNO='027CLOSE99999999'"});
    EXPECT_EQ(left(), expected[failing - 1]);
    expect_mended();
  }
}

}  // namespace
}  // namespace tallyra::behaviour
