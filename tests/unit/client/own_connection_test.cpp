#include "client/own_connection.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "tests/unit/client/counting_database.h"

namespace tallyra::client {
namespace {

TEST(OwnConnection, CountsWhatTheDatabaseAnswers) {
  CountingDatabase database;
  database.set(3, 5);
  const OwnConnection connection("DSN=x");
  EXPECT_EQ(connection.count("Select Count(*) As N From DEPARTS"), 5);
  EXPECT_EQ(connection.count("Select Count(*) As N From STKTRANHD"), 3);
}

TEST(OwnConnection, HoldsNoResultOpen) {
  CountingDatabase database;
  const OwnConnection connection("DSN=x");
  connection.count("Select Count(*) As N From DEPARTS");
  EXPECT_TRUE(database.calls().back().ends_with(".Close")) << database.calls().back();
}

TEST(OwnConnection, PassesOnWhatTheDatabaseRaises) {
  CountingDatabase database;
  const OwnConnection connection("DSN=x");
  database.fail_next(1);
  EXPECT_THROW(connection.count("Select Count(*) As N From DEPARTS"), automation::Error);
  EXPECT_EQ(connection.count("Select Count(*) As N From DEPARTS"), 0) << "and can be used again";
  database.refuse_connections();
  EXPECT_THROW(OwnConnection("DSN=x"), automation::Error);
}

}  // namespace
}  // namespace tallyra::client
