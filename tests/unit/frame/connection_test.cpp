#include "frame/connection.h"

#include <gtest/gtest.h>

#include <optional>

#include "automation/error.h"
#include "tests/support/stage.h"

namespace tallyra::frame {
namespace {

using automation::Error;
using stage::Stage;

TEST(FrameConnection, HandsEveryCallOn) {
  Stage stage;
  Connection connection;
  connection.set_command_timeout(0);
  connection.open("DSN=y");
  connection.begin();
  connection.execute("Delete From X");
  connection.execute("Delete From Y");
  connection.commit();
  connection.begin();
  connection.roll_back();
  connection.close();
  EXPECT_EQ(stage.transcript(),
            "create ADODB.Connection\n"
            "C1.CommandTimeout = 0\n"
            "C1.Open 'DSN=y' '' '' -1\n"
            "C1.BeginTrans\n"
            "C1.Execute Delete From X | -1\n"
            "C1.Execute Delete From Y | -1\n"
            "C1.CommitTrans\n"
            "C1.BeginTrans\n"
            "C1.RollbackTrans\n"
            "C1.Close\n");
}

TEST(FrameConnection, RemembersWhatTheMethodDidAndAsksForTheRest) {
  Stage stage;
  Connection connection;
  EXPECT_FALSE(connection.opened());
  EXPECT_FALSE(connection.is_open());
  connection.open("DSN=y");
  stage.clear();
  EXPECT_TRUE(connection.opened());
  EXPECT_EQ(stage.transcript(), "") << "nobody is asked";
  EXPECT_TRUE(connection.is_open());
  EXPECT_EQ(stage.transcript(), "C1.State\n");
  connection.close();
  EXPECT_FALSE(connection.opened());
}

TEST(FrameConnection, IsNotOpenedByAnOpenThatFails) {
  Stage stage;
  stage.fails("C1.Open", Error(-2147467259, "no such file"));
  Connection connection;
  EXPECT_THROW(connection.open("DSN=y"), Error);
  EXPECT_FALSE(connection.opened());
}

TEST(FrameConnection, StaysOpenedWhenItCannotBeClosed) {
  Stage stage;
  stage.fails("C1.Close", Error(-2147467259, "lost"));
  Connection connection;
  connection.open("DSN=y");
  EXPECT_THROW(connection.close(), Error);
  EXPECT_TRUE(connection.opened());
}

TEST(FrameConnection, IsOnlyLetGoAtItsEnd) {
  Stage stage;
  std::optional<Connection> connection(std::in_place);
  connection->open("DSN=y");
  connection->begin();
  stage.clear();
  connection.reset();
  EXPECT_EQ(stage.transcript(), "");
  EXPECT_EQ(stage.alive(), 0);
}

}  // namespace
}  // namespace tallyra::frame
