#include "automation/collection.h"
#include "tests/transcript/records/record_stage.h"

// Reading a row into the caller's collections.
namespace tallyra::records {
namespace {

class RecordRead : public RecordTest {
 protected:
  std::string row_query_opened() const { return opened({record.row_query, Query::fixed, Query::server}); }
};
TALLYRA_ON_RECORD_CLASSES(RecordRead, true);

TEST_P(RecordRead, TheFirstRowComesInFieldOrder) {
  stage.finds(record.row_query, {{"KEY", "QTY", "NOTES"}, {{"A1", 2.5, Null{}}, {"second", 0, ""}}});
  const Value names = fields.names;
  const Value values = fields.values;
  EXPECT_EQ(play("Read"), done);
  EXPECT_EQ(fields.text(),
            std::string(record.read_appends ? "NAME='x' NOTES=Null " : "") + "KEY='A1' QTY=2.5 NOTES=Null");
  EXPECT_EQ(fields.names == names, record.read_appends);
  EXPECT_EQ(fields.values == values, record.read_appends);
  EXPECT_EQ(stage.database_calls(), open + row_query_opened() +
                                        (record.read_counts_rows ? "R1.MoveLast\n" : "") +
                                        "R1.MoveFirst\nR1.Close\nC1.Close\n");
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
}

TEST_P(RecordRead, AMissingRowIsASuccessThatReportsIt) {
  EXPECT_EQ(play("Read"), missing);
  for (const Value& collection : {fields.names, fields.values})
    EXPECT_EQ(automation::to_int32(automation::to_object(collection).get("Count")),
              record.read_appends ? 2 : 0);
  EXPECT_EQ(fields.text(), record.read_appends ? "NAME='x' NOTES=Null" : "");
  EXPECT_EQ(stage.database_calls(), open + row_query_opened() + "R1.Close\nC1.Close\n");
}

TEST_P(RecordRead, ReadingTwiceAddsTwiceOrReplaces) {
  stage.finds(record.row_query, {{"KEY"}, {{"A1"}}});
  fields = Fields();
  const Object object = client(stage);
  EXPECT_EQ(play(object, "Read"), done);
  EXPECT_EQ(play(object, "Read"), done);
  EXPECT_EQ(fields.text(), record.read_appends ? "KEY='A1' KEY='A1'" : "KEY='A1'");
}

TEST_P(RecordRead, AFailingReadLeavesTheCollectionsAsTheyWere) {
  const Value before = fields.names;
  stage.finds(record.row_query, {{"KEY"}, {{"A1"}}}).fails("R1.MoveFirst", Error(-2147467259, "lost"));
  EXPECT_EQ(play("Read"), trapped(-2147467259, "lost"));
  EXPECT_TRUE(fields.names == before);
  EXPECT_EQ(fields.text(), "NAME='x' NOTES=Null");
  EXPECT_TRUE(stage.database_calls().ends_with("R1.MoveFirst ! lost\n"));
}

class AppendingRead : public RecordTest {};
TALLYRA_ON_RECORD_CLASSES(AppendingRead, each.read_appends);

// Takes so many items, then raises an error.
class FullCollection : public automation::Collection {
 public:
  explicit FullCollection(std::size_t room) : room_(room) {}
  Value invoke(automation::MemberId id, automation::Access access, automation::Arguments arguments) override {
    if (id == 1 && item_count() == room_) throw Error(7);
    return automation::Collection::invoke(id, access, arguments);
  }

 private:
  std::size_t room_;
};

TEST_P(AppendingRead, WhenItFailsHalfwayItTakesBackWhatItHasAdded) {
  stage.finds(record.row_query, {{"A", "B", "C"}, {{1, 2, 3}}});
  const Object values = automation::make_object<FullCollection>(2U);
  const Object object = client(stage);
  EXPECT_EQ(outcome_of(object, object.call("Read", record.keys[0], ref(fields.names), values)),
            trapped(7, "Out of memory"));
  EXPECT_EQ(automation::to_int32(automation::to_object(fields.names).get("Count")), 2);
  EXPECT_EQ(automation::to_int32(values.get("Count")), 0);
}

}  // namespace
}  // namespace tallyra::records
