#include "standins/corvane/key_counter.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "standins/corvane/failure.h"
#include "tests/support/answering_database.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::Error;
using automation::Value;
using stage::AnsweringDatabase;
using stage::Reply;

constexpr std::int32_t no_such_table = static_cast<std::int32_t>(0x80040E37U);
constexpr std::int32_t duplicate_key = static_cast<std::int32_t>(0x80040E2FU);
constexpr std::int32_t unspecified = static_cast<std::int32_t>(0x80004005U);

const Series series = Series::running("STK027CLOSE");

TEST(KeyCounter, TheTransactionStartsWithAWrite) {
  AnsweringDatabase database([](const std::string& statement) {
    return statement.starts_with("Update") ? Reply{{}, 1} : Reply{{{{"LASTNO", 8}}}, 0};
  });
  EXPECT_EQ(take_next_counter(database.connection(), series, 3), 8);
  EXPECT_EQ(database.log(),
            "C1.BeginTrans\n"
            "C1.Execute Update TABLEKEYS Set LASTNO=LASTNO+1 Where SERIES='027CLOSE' | 1\n"
            "C1.Execute Select LASTNO From TABLEKEYS Where SERIES='027CLOSE' | 1\n"
            "R2.Close\n"
            "C1.CommitTrans\n");
  EXPECT_EQ(database.alive(), 0);
}

TEST(KeyCounter, AStaleCounterIsLiftedAboveTheFloor) {
  AnsweringDatabase database([](const std::string& statement) {
    return statement.starts_with("Update") ? Reply{{}, 1} : Reply{{{{"LASTNO", 8}}}, 0};
  });
  EXPECT_EQ(take_next_counter(database.connection(), series, 8), 9);
  EXPECT_NE(database.log().find(
                "C1.Execute Update TABLEKEYS Set LASTNO=9 Where SERIES='027CLOSE' | 1\nC1.CommitTrans\n"),
            std::string::npos)
      << database.log();
}

// Where rows are locked and not files, two callers may both find the series missing.
TEST(KeyCounter, ALostRaceForTheFirstNumberIsRunAgain) {
  bool row_is_there = false;
  AnsweringDatabase database([&](const std::string& statement) -> Reply {
    if (statement.starts_with("Update")) return {{}, row_is_there ? 1 : 0};
    if (statement.starts_with("Select")) return {{{{"LASTNO", 2}}}, 0};
    row_is_there = true;
    throw Error(duplicate_key, "duplicate key");
  });
  EXPECT_EQ(take_next_counter(database.connection(), series, 0), 2);
  EXPECT_EQ(database.log(),
            "C1.BeginTrans\n"
            "C1.Execute Update TABLEKEYS Set LASTNO=LASTNO+1 Where SERIES='027CLOSE' | 1\n"
            "C1.Execute Insert Into TABLEKEYS(SERIES,LASTNO) Values('027CLOSE',1) | 1\n"
            "C1.RollbackTrans\n"
            "C1.BeginTrans\n"
            "C1.Execute Update TABLEKEYS Set LASTNO=LASTNO+1 Where SERIES='027CLOSE' | 1\n"
            "C1.Execute Select LASTNO From TABLEKEYS Where SERIES='027CLOSE' | 1\n"
            "R3.Close\n"
            "C1.CommitTrans\n");
}

TEST(KeyCounter, AMissingTableIsCreatedOnce) {
  bool table_is_there = false;
  AnsweringDatabase database([&](const std::string& statement) -> Reply {
    if (statement.starts_with("Create")) {
      table_is_there = true;
      throw Error(unspecified, "another process has just created it");
    }
    if (!table_is_there) throw Error(no_such_table, "no such table");
    return {{}, 0};
  });
  EXPECT_EQ(take_next_counter(database.connection(), series, 41), 42);
}

TEST(KeyCounter, ATableThatCannotBeCreatedEndsInTheReasonForThat) {
  AnsweringDatabase database([](const std::string& statement) -> Reply {
    if (statement.starts_with("Create")) throw Error(unspecified, "read-only");
    throw Error(no_such_table, "no such table");
  });
  try {
    take_next_counter(database.connection(), series, 0);
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), unspecified);
    EXPECT_EQ(error.description(), "read-only");
  }
  EXPECT_EQ(database.alive(), 0);
}

TEST(KeyCounter, AnyOtherErrorRollsBackAndLeavesAtOnce) {
  AnsweringDatabase database([](const std::string&) -> Reply { throw Error(unspecified, "locked"); });
  try {
    take_next_counter(database.connection(), series, 0);
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.description(), "locked");
  }
  EXPECT_EQ(database.log(),
            "C1.BeginTrans\n"
            "C1.Execute Update TABLEKEYS Set LASTNO=LASTNO+1 Where SERIES='027CLOSE' | 1\n"
            "C1.RollbackTrans\n");
}

TEST(KeyCounter, AUsedUpSeriesTakesNothing) {
  AnsweringDatabase database([](const std::string& statement) {
    return statement.starts_with("Update") ? Reply{{}, 1} : Reply{{{{"LASTNO", 10000}}}, 0};
  });
  try {
    take_next_counter(database.connection(), Series::daily("STKCHECKISS", {2024, 3, 31}), 0);
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), failure::series_exhausted);
  }
  EXPECT_TRUE(database.log().ends_with("C1.RollbackTrans\n")) << database.log();
  EXPECT_EQ(database.log().find("CommitTrans"), std::string::npos);
}

// Whoever may write the key file can put anything there.
TEST(KeyCounter, ACounterBeyondAllNumbersIsASeriesThatIsUsedUp) {
  for (const Value& planted : {Value(2147483647), Value(9.2233720368547758e18), Value(100000000)}) {
    AnsweringDatabase database([&](const std::string& statement) {
      return statement.starts_with("Update") ? Reply{{}, 1} : Reply{{{{"LASTNO", planted}}}, 0};
    });
    try {
      take_next_counter(database.connection(), series, 0);
      ADD_FAILURE();
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), failure::series_exhausted);
    }
  }
}

TEST(KeyCounter, ANegativeCounterIsLifted) {
  AnsweringDatabase database([](const std::string& statement) {
    return statement.starts_with("Update") ? Reply{{}, 1} : Reply{{{{"LASTNO", -5e18}}}, 0};
  });
  EXPECT_EQ(take_next_counter(database.connection(), series, 3), 4);
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
