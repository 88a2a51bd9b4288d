#include <gtest/gtest.h>

#include "automation/yield.h"
#include "tests/behaviour/close/closing_company.h"

// A close begun from the message loop of a close, on an engine with one writer: it waits for a lock that the
// run below it on the same thread holds, and that nothing lets go of before it has given up.
namespace tallyra::behaviour {
namespace {

using automation::Object;
using automation::ref;
using stage::done;
using stage::Outcome;

class BusyCloseOnSqlite : public testing::Test {
 protected:
  void SetUp() override {
    if (!company_.is_sqlite()) GTEST_SKIP() << "that engine has many writers";
  }

  // A session that waits for a lock no longer than a tenth of a second: the last word counts.
  BusyCloseOnSqlite() {
    close_.put("ConnectionString", company_.connection_string() + ";Timeout=100");
    company_.run({"INSERT INTO STKCLOSEHD(CLOSEDT,STATUSSN) VALUES('2023-12-31 00:00:00',1)"});
  }

  Outcome insert(const char* date) {
    stage::Fields fields{{"CLOSEDT", date}, {"STATUSSN", 0}};
    return stage::outcome_of(close_, close_.call("Insert", date, ref(fields.names), ref(fields.values)));
  }
  Outcome read_december() {
    stage::Fields fields;
    return stage::outcome_of(close_,
                             close_.call("Read", "2023/12/31", ref(fields.names), ref(fields.values)));
  }

  ClosingCompany company_;
  Object close_ = company_.client("CStockClose");
};

const Outcome locked = stage::trapped(-2147467259, "database is locked");

TEST_F(BusyCloseOnSqlite, EndsWithTheErrorOfTheLockAndTheRunBelowWithItToo) {
  const std::string before = company_.everything();
  int tries = 0;
  {
    const automation::ScopedYield yield([&] {
      if (tries++ > 0) return;
      EXPECT_EQ(insert("2024/02/29"), locked);
    });
    EXPECT_EQ(insert("2024/01/31"), locked) << "the object holds the error of the other close";
  }
  EXPECT_EQ(tries, 4) << "after the first department, whose lines are four";
  EXPECT_EQ(company_.everything(), before) << "what was written is removed again";

  const ClosingCompany undisturbed;
  ASSERT_EQ(undisturbed.close("2024/01/31"), done);
  EXPECT_EQ(insert("2024/01/31"), done);
  EXPECT_EQ(company_.department_lines("2024-02-01"), undisturbed.department_lines("2024-02-01"));
  EXPECT_EQ(company_.company_lines("2024-02-01"), undisturbed.company_lines("2024-02-01"));
}

TEST_F(BusyCloseOnSqlite, ReadingInTheSameDatabaseWorksMeanwhile) {
  int lines = 0;
  {
    const automation::ScopedYield yield([&] {
      ++lines;
      EXPECT_EQ(read_december(), done);
    });
    EXPECT_EQ(insert("2024/01/31"), done);
  }
  EXPECT_EQ(lines, 13);
  EXPECT_EQ(company_.rows("SELECT CLOSEDT FROM STKCLOSEHD ORDER BY CLOSEDT"), "2023/12/31\n2024/01/31\n");
}

}  // namespace
}  // namespace tallyra::behaviour
