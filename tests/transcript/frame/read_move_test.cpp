#include <set>

#include "automation/collection.h"
#include "tests/transcript/frame/record_script.h"

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

TEST_P(RecordRead, WhatFailsBeforeTheFirstFieldLeavesTheCollectionsAsTheyWere) {
  const Value before = fields.names;
  stage.finds(record.row_query, {{"KEY"}, {{"A1"}}}).fails("R1.MoveFirst", Error(-2147467259, "lost"));
  EXPECT_EQ(play("Read"), trapped(-2147467259, "lost"));
  EXPECT_TRUE(fields.names == before);
  EXPECT_EQ(fields.text(), "NAME='x' NOTES=Null");
  EXPECT_TRUE(stage.database_calls().ends_with("R1.MoveFirst ! lost\n"));
}

// Takes so many items, then raises an error; tells by which names it was called.
class ClientCollection : public automation::Collection {
 public:
  explicit ClientCollection(std::size_t room = 100) : room_(room) {}
  automation::MemberId resolve(std::string_view name) override {
    called.insert(std::string(name));
    return automation::Collection::resolve(name);
  }
  Value invoke(automation::MemberId id, automation::Access access, automation::Arguments arguments) override {
    if (id == 1 && item_count() == room_) throw Error(7);
    return automation::Collection::invoke(id, access, arguments);
  }

  std::set<std::string> called;

 private:
  std::size_t room_;
};

class AppendingRead : public RecordTest {
 protected:
  // Reads a row with the columns A and B into these.
  Outcome read_into(Value& names, Value& values) {
    stage.finds(record.row_query, {{"A", "B"}, {{1, 2}}});
    const Object object = client(stage);
    return outcome_of(object, object.call("Read", record.keys[0], ref(names), ref(values)));
  }
};
TALLYRA_ON_RECORD_CLASSES(AppendingRead, each.read_appends);

TEST_P(AppendingRead, EachFieldIsAppendedAsItIsReadAndStaysWhateverFailsAfterwards) {
  const struct {
    const char* failing;
    std::size_t names;
    std::size_t values;
  } rows[] = {{"R1(A).Name", 0, 0},  {"R1(A).Value", 1, 0}, {"R1(B).Name", 1, 1},
              {"R1(B).Value", 2, 1}, {"R1.Close", 2, 2},    {"C1.Close", 2, 2}};
  for (const auto& [failing, names, values] : rows) {
    Stage on(GetParam().kind);
    on.finds(record.row_query, {{"A", "B"}, {{1, 2}}}).fails(failing, Error(-2147467259, "lost"));
    const Object object = client(on);
    auto* const name_list = new ClientCollection;
    auto* const value_list = new ClientCollection;
    Value given_names = Object(name_list);
    Value given_values = Object(value_list);
    EXPECT_EQ(outcome_of(object, object.call("Read", record.keys[0], ref(given_names), ref(given_values))),
              trapped(-2147467259, "lost"))
        << failing;
    EXPECT_EQ(name_list->item_count(), names) << failing;
    EXPECT_EQ(value_list->item_count(), values) << failing;
    for (const auto* list : {name_list, value_list})
      for (const auto& member : list->called) EXPECT_EQ(member, "Add") << failing;
  }
}

TEST_P(AppendingRead, ACollectionThatIsFullEndsItBeforeAnythingIsClosed) {
  Value names = automation::make_object<ClientCollection>();
  Value values = automation::make_object<ClientCollection>(1U);
  EXPECT_EQ(read_into(names, values), trapped(7, "Out of memory"));
  EXPECT_EQ(names.get_if<Object>()->get("Count"), Value(2));
  EXPECT_EQ(values.get_if<Object>()->get("Count"), Value(1));
  EXPECT_TRUE(stage.database_calls().ends_with("R1.MoveFirst\n")) << stage.database_calls();
}

TEST_P(AppendingRead, AVariableThatHoldsNothingCannotBeAppendedTo) {
  const Outcome not_set = trapped(91, "Object variable or With block variable not set");
  Value names = Object();
  Value values = automation::make_object<ClientCollection>();
  EXPECT_EQ(read_into(names, values), not_set);
  EXPECT_EQ(names, Value(Object()));
  EXPECT_EQ(values.get_if<Object>()->get("Count"), Value(0));
  names = automation::make_object<ClientCollection>();
  values = Value();
  EXPECT_EQ(read_into(names, values), not_set);
  EXPECT_EQ(names.get_if<Object>()->get("Count"), Value(1)) << "the first name went before its value";
  EXPECT_EQ(values, Value());
  stage.forgets(record.row_query);
  const Object object = client(stage);
  names = Value();
  EXPECT_EQ(outcome_of(object, object.call("Read", record.keys[0], ref(names), ref(values))), missing)
      << "without a row there is nothing to append";
}

class ReplacingRead : public RecordTest {};
TALLYRA_ON_RECORD_CLASSES(ReplacingRead, !each.read_appends);

TEST_P(ReplacingRead, NewCollectionsAreHandedOverOnlyWhenEverythingIsClosed) {
  for (const char* failing : {"R1(KEY).Name", "R1(KEY).Value", "R1.Close", "C1.Close"}) {
    Stage on(GetParam().kind);
    on.finds(record.row_query, {{"KEY"}, {{"A1"}}}).fails(failing, Error(-2147467259, "lost"));
    const Value names = fields.names;
    EXPECT_EQ(play(client(on), "Read"), trapped(-2147467259, "lost")) << failing;
    EXPECT_EQ(fields.names, names) << failing;
    EXPECT_EQ(fields.text(), "NAME='x' NOTES=Null") << failing;
  }
}

TEST_P(ReplacingRead, VariablesThatHoldNothingGetNewCollectionsToo) {
  stage.finds(record.row_query, {{"KEY"}, {{"A1"}}});
  fields.names = Object();
  fields.values = Value();
  EXPECT_EQ(play("Read"), done);
  EXPECT_EQ(fields.text(), "KEY='A1'");
}

}  // namespace
}  // namespace tallyra::records
