#include "standins/corvane/key_counter.h"

#include <gtest/gtest.h>

#include "standins/corvane/failure.h"
#include "tests/unit/standins/corvane/scripted_database.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::Error;
using automation::Value;

constexpr std::int32_t no_such_table = static_cast<std::int32_t>(0x80040E37U);
constexpr std::int32_t duplicate_key = static_cast<std::int32_t>(0x80040E2FU);
constexpr std::int32_t unspecified = static_cast<std::int32_t>(0x80004005U);

const Series series = Series::running("STK027CLOSE");

TEST(KeyCounter, TheTransactionStartsWithAWrite) {
  ScriptedDatabase database([](const std::string& statement) {
    return statement.starts_with("Update") ? Reply{{}, 1} : Reply{{{{"LASTNO", 8}}}, 0};
  });
  EXPECT_EQ(take_next_counter(database.connection(), series, 3), 8);
  EXPECT_EQ(database.log,
            "BeginTrans\n"
            "Update TABLEKEYS Set LASTNO=LASTNO+1 Where SERIES='027CLOSE'\n"
            "Select LASTNO From TABLEKEYS Where SERIES='027CLOSE'\n"
            "CommitTrans\n");
  EXPECT_EQ(database.connections, 0);
}

TEST(KeyCounter, AStaleCounterIsLiftedAboveTheFloor) {
  ScriptedDatabase database([](const std::string& statement) {
    return statement.starts_with("Update") ? Reply{{}, 1} : Reply{{{{"LASTNO", 8}}}, 0};
  });
  EXPECT_EQ(take_next_counter(database.connection(), series, 8), 9);
  EXPECT_NE(database.log.find("Update TABLEKEYS Set LASTNO=9 Where SERIES='027CLOSE'\nCommitTrans\n"),
            std::string::npos)
      << database.log;
}

// Where rows are locked and not files, two callers may both find the series missing.
TEST(KeyCounter, ALostRaceForTheFirstNumberIsRunAgain) {
  bool row_is_there = false;
  ScriptedDatabase database([&](const std::string& statement) -> Reply {
    if (statement.starts_with("Update")) return {{}, row_is_there ? 1 : 0};
    if (statement.starts_with("Select")) return {{{{"LASTNO", 2}}}, 0};
    row_is_there = true;
    throw Error(duplicate_key, "duplicate key");
  });
  EXPECT_EQ(take_next_counter(database.connection(), series, 0), 2);
  EXPECT_EQ(database.log,
            "BeginTrans\n"
            "Update TABLEKEYS Set LASTNO=LASTNO+1 Where SERIES='027CLOSE'\n"
            "Insert Into TABLEKEYS(SERIES,LASTNO) Values('027CLOSE',1)\n"
            "RollbackTrans\n"
            "BeginTrans\n"
            "Update TABLEKEYS Set LASTNO=LASTNO+1 Where SERIES='027CLOSE'\n"
            "Select LASTNO From TABLEKEYS Where SERIES='027CLOSE'\n"
            "CommitTrans\n");
}

TEST(KeyCounter, AMissingTableIsCreatedOnce) {
  bool table_is_there = false;
  ScriptedDatabase database([&](const std::string& statement) -> Reply {
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
  ScriptedDatabase database([](const std::string& statement) -> Reply {
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
  EXPECT_EQ(database.connections, 0);
}

TEST(KeyCounter, AnyOtherErrorRollsBackAndLeavesAtOnce) {
  ScriptedDatabase database([](const std::string&) -> Reply { throw Error(unspecified, "locked"); });
  try {
    take_next_counter(database.connection(), series, 0);
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.description(), "locked");
  }
  EXPECT_EQ(database.log,
            "BeginTrans\nUpdate TABLEKEYS Set LASTNO=LASTNO+1 Where SERIES='027CLOSE'\nRollbackTrans\n");
}

TEST(KeyCounter, AUsedUpSeriesTakesNothing) {
  ScriptedDatabase database([](const std::string& statement) {
    return statement.starts_with("Update") ? Reply{{}, 1} : Reply{{{{"LASTNO", 10000}}}, 0};
  });
  try {
    take_next_counter(database.connection(), Series::daily("STKCHECKISS", {2024, 3, 31}), 0);
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), failure::series_exhausted);
  }
  EXPECT_TRUE(database.log.ends_with("RollbackTrans\n")) << database.log;
  EXPECT_EQ(database.log.find("CommitTrans"), std::string::npos);
}

// Whoever may write the key file can put anything there.
TEST(KeyCounter, ACounterBeyondAllNumbersIsASeriesThatIsUsedUp) {
  for (const Value& planted : {Value(2147483647), Value(9.2233720368547758e18), Value(100000000)}) {
    ScriptedDatabase database([&](const std::string& statement) {
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
  ScriptedDatabase database([](const std::string& statement) {
    return statement.starts_with("Update") ? Reply{{}, 1} : Reply{{{{"LASTNO", -5e18}}}, 0};
  });
  EXPECT_EQ(take_next_counter(database.connection(), series, 3), 4);
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
