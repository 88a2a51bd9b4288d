#include "frame/recordset.h"

#include <gtest/gtest.h>

#include <optional>

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/error.h"
#include "tests/support/stage.h"

namespace tallyra::frame {
namespace {

using automation::Error;
using automation::Value;
using stage::Stage;

const std::string query = "Select * From X";

class FrameRecordset : public testing::Test {
 protected:
  FrameRecordset() {
    stage.finds(query, {{"PARTNO", "QTY"}, {{"A", 1.5}, {"B", automation::Null{}}}});
    connection.open("DSN=y");
    stage.clear();
  }

  Stage stage;
  Connection connection;
  Recordset rows;
};

TEST_F(FrameRecordset, IsOpenedAsItIsAskedForAndReadOnlyWhenNothingIsSaid) {
  rows.set_cursor_location(CursorLocation::server);
  rows.open(query, connection, CursorType::forward_only);
  rows.close();
  rows.set_cursor_location(CursorLocation::client);
  rows.open(query, connection, CursorType::static_copy, LockType::batch_optimistic);
  rows.detach();
  rows.move_last();
  rows.move_first();
  rows.close();
  EXPECT_EQ(stage.transcript(),
            "R1.CursorLocation = 2\n"
            "R1.Open Select * From X | C1 0 1 -1\n"
            "R1.Close\n"
            "R1.CursorLocation = 3\n"
            "R1.Open Select * From X | C1 3 4 -1\n"
            "R1.ActiveConnection = Nothing\n"
            "R1.MoveLast\n"
            "R1.MoveFirst\n"
            "R1.Close\n");
}

TEST_F(FrameRecordset, ReadsTheRowThatItStandsOn) {
  rows.open(query, connection, CursorType::static_copy);
  const Field part = rows.field("PARTNO");
  std::string seen;
  for (; !rows.at_end(); rows.move_next())
    seen += automation::to_text(part.value()) + (rows.value("QTY").is_null() ? "-" : "+");
  EXPECT_EQ(seen, "A+B-");
}

TEST_F(FrameRecordset, IsOpenedOnlyWhenTheCallHasSucceeded) {
  EXPECT_FALSE(rows.opened());
  stage.fails("R1.Open", Error(-2147217900, "syntax"));
  EXPECT_THROW(rows.open(query, connection, CursorType::static_copy), Error);
  EXPECT_FALSE(rows.opened());
  rows.open(query, connection, CursorType::static_copy);
  EXPECT_TRUE(rows.opened());
  rows.close();
  EXPECT_FALSE(rows.opened());
}

TEST_F(FrameRecordset, ThatReplacesItHasItsCursorWhereItsWasWhenItIsOpenedAgain) {
  rows.set_cursor_location(CursorLocation::client);
  const automation::Object other = automation::create("ADODB.Recordset");
  stage.clear();
  rows.replace(rows.object());
  rows.open(query, connection, CursorType::static_copy);
  EXPECT_EQ(stage.transcript(), "R1.Open Select * From X | C1 3 1 -1\n") << "the same object knows";
  rows.close();
  rows.replace(other);
  stage.clear();
  for (int time = 0; time < 2; ++time) {
    rows.open(query, connection, CursorType::static_copy);
    rows.close();
  }
  EXPECT_EQ(stage.transcript(),
            "R2.CursorLocation = 3\n"
            "R2.Open Select * From X | C1 3 1 -1\n"
            "R2.Close\n"
            "R2.Open Select * From X | C1 3 1 -1\n"
            "R2.Close\n");
}

TEST_F(FrameRecordset, HasFieldsThatAreReadAnewEachTimeItIsOpened) {
  RepeatedField quantity("QTY");
  for (int time = 0; time < 2; ++time) {
    rows.open(query, connection, CursorType::static_copy);
    EXPECT_EQ(quantity.value(rows), Value(1.5));
    rows.move_next();
    EXPECT_TRUE(quantity.value(rows).is_null());
    rows.close();
  }
}

TEST(FrameRecordsetEnd, OnlyLetsTheObjectGo) {
  Stage stage;
  stage.finds(query, {{"PARTNO"}, {}});
  Connection connection;
  connection.open("DSN=y");
  std::optional<Recordset> rows(std::in_place);
  rows->open(query, connection, CursorType::static_copy);
  stage.clear();
  rows.reset();
  EXPECT_EQ(stage.transcript(), "");
  EXPECT_EQ(stage.alive(), 1) << "the connection";
}

}  // namespace
}  // namespace tallyra::frame
