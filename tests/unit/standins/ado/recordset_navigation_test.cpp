#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

constexpr std::int32_t no_current_record = 3021;
constexpr std::int32_t cannot_fetch_backward = -2147217884;

class NavigationTest : public ScratchDatabase {
 protected:
  NavigationTest() {
    execute(connection, "create table T(A integer)");
    execute(connection, "insert into T values(1),(2),(3)");
  }

  Object open(Cursor cursor) const {
    return open_recordset(connection, "select A from T order by A", cursor);
  }
  Object open_empty(Cursor cursor) const {
    return open_recordset(connection, "select A from T where A>77", cursor);
  }

  Object connection = open_connection();
};

// Where a recordset stands: the value of its row, or "BOF", "EOF", or both.
std::string place(const Object& recordset) {
  const bool bof = is_true(recordset.get("BOF"));
  const bool eof = is_true(recordset.get("EOF"));
  if (bof && eof) return "BOF EOF";
  if (bof) return "BOF";
  if (eof) return "EOF";
  return std::to_string(number(value(recordset, "A")));
}

constexpr Cursor forward_only{2, 0};
constexpr Cursor scrollable[] = {{2, 3}, {3, 0}, {3, 3}};
constexpr Cursor every_cursor[] = {{2, 0}, {2, 3}, {3, 0}, {3, 3}};

TEST_F(NavigationTest, WalksForwardToTheEndAndNotBeyond) {
  for (const Cursor cursor : every_cursor) {
    const Object rows = open(cursor);
    std::string places = place(rows);
    for (int step = 0; step < 3; ++step) {
      rows.call("MoveNext");
      places += ' ' + place(rows);
    }
    EXPECT_EQ(places, "1 2 3 EOF");
    EXPECT_EQ(error_of([&] { rows.call("MoveNext"); }), no_current_record);
    EXPECT_EQ(error_of([&] { value(rows, "A"); }), no_current_record);
    EXPECT_EQ(place(rows), "EOF");
  }
}

TEST_F(NavigationTest, MovesToTheLastAndBackToTheFirst) {
  for (const Cursor cursor : every_cursor) {
    const Object rows = open(cursor);
    rows.call("MoveLast");
    EXPECT_EQ(place(rows), "3");
    rows.call("MoveFirst");
    EXPECT_EQ(place(rows), "1");
  }
}

TEST_F(NavigationTest, WalksBackwardToTheBeginningAndNotBeyond) {
  for (const Cursor cursor : scrollable) {
    const Object rows = open(cursor);
    rows.call("MoveLast");
    std::string places = place(rows);
    for (int step = 0; step < 3; ++step) {
      rows.call("MovePrevious");
      places += ' ' + place(rows);
    }
    EXPECT_EQ(places, "3 2 1 BOF");
    EXPECT_EQ(error_of([&] { rows.call("MovePrevious"); }), no_current_record);
    EXPECT_EQ(error_of([&] { value(rows, "A"); }), no_current_record);
    rows.call("MoveNext");
    EXPECT_EQ(place(rows), "1");
  }
}

TEST_F(NavigationTest, ForwardOnlyDoesNotStepBack) {
  const Object rows = open(forward_only);
  rows.call("MoveNext");
  EXPECT_EQ(error_of([&] { rows.call("MovePrevious"); }), cannot_fetch_backward);
  EXPECT_EQ(error_of([&] { rows.call("Move", -1); }), cannot_fetch_backward);
  EXPECT_EQ(place(rows), "2");
}

TEST_F(NavigationTest, AnEmptyRecordsetHasNowhereToGo) {
  for (const Cursor cursor : every_cursor) {
    const Object none = open_empty(cursor);
    EXPECT_EQ(place(none), "BOF EOF");
    for (const char* member : {"MoveFirst", "MoveLast", "MoveNext", "MovePrevious"})
      EXPECT_EQ(error_of([&] { none.call(member); }), no_current_record) << member;
    EXPECT_EQ(error_of([&] { none.call("Move", 1); }), no_current_record);
    EXPECT_EQ(error_of([&] { none.call("Move", -1); }), no_current_record);
    EXPECT_EQ(none.get("AbsolutePosition"), Value(-1));
    EXPECT_EQ(none.get("RecordCount"), Value(cursor.location == 2 && cursor.type == 0 ? -1 : 0));
  }
}

TEST_F(NavigationTest, MovesByDistanceAndStopsAtBothEnds) {
  struct Row {
    std::int32_t from;
    std::int32_t distance;
    std::string_view place;
  };
  const Row rows[] = {{1, 2, "3"},   {3, -2, "1"},           {2, 0, "2"},
                      {1, 3, "EOF"}, {1, 2147483647, "EOF"}, {3, -99, "BOF"}};
  for (const Row& row : rows) {
    const Object recordset = open({3, 3});
    recordset.put("AbsolutePosition", row.from);
    recordset.call("Move", row.distance);
    EXPECT_EQ(place(recordset), row.place) << row.from << ' ' << row.distance;
  }
}

TEST_F(NavigationTest, TellsAndTakesTheAbsolutePosition) {
  const Object rows = open({3, 3});
  rows.put("AbsolutePosition", 3);
  EXPECT_EQ(place(rows), "3");
  EXPECT_EQ(rows.get("AbsolutePosition"), Value(3));
  rows.call("MoveNext");
  EXPECT_EQ(rows.get("AbsolutePosition"), Value(-3));
  rows.call("MoveFirst");
  rows.call("MovePrevious");
  EXPECT_EQ(rows.get("AbsolutePosition"), Value(-2));
  for (const std::int32_t nowhere : {0, 4, -1})
    EXPECT_EQ(error_of([&] { rows.put("AbsolutePosition", nowhere); }), 3001) << nowhere;
  EXPECT_EQ(error_of([&] { open(forward_only).put("AbsolutePosition", 1); }), 3251);
}

TEST_F(NavigationTest, RowsCannotBeChanged) {
  const Object rows = open({3, 3});
  for (const char* member : {"AddNew", "Update", "Delete", "UpdateBatch"})
    EXPECT_EQ(error_of([&] { rows.call(member); }), 3251) << member;
}

}  // namespace
}  // namespace tallyra::standins::ado::test
