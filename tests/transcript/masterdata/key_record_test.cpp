#include <gtest/gtest.h>

#include "automation/create.h"
#include "tests/transcript/stage/fields.h"
#include "tests/transcript/stage/outcome.h"
#include "tests/transcript/stage/stage.h"

// The two classes that keep one table by a text key and depart from the pattern in nothing.
namespace tallyra {
namespace {

using automation::Error;
using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::Outcome;
using stage::outcome_of;
using stage::refused;
using stage::Stage;
using stage::trapped;

struct KeyRecord {
  const char* class_name;
  const char* table;
  const char* key;
  const char* key_in_owner_test;
  const char* function_code;
};

class KeyRecordTest : public testing::TestWithParam<KeyRecord> {
 protected:
  // Puts table, key and code of the class in for T, K, O and F between braces.
  static std::string text(std::string pattern) {
    const auto put = [&](const std::string& hole, const char* word) {
      for (auto at = pattern.find(hole); at != std::string::npos; at = pattern.find(hole))
        pattern.replace(at, hole.size(), word);
    };
    put("{T}", GetParam().table);
    put("{K}", GetParam().key);
    put("{O}", GetParam().key_in_owner_test);
    put("{F}", GetParam().function_code);
    return pattern;
  }
  Object client() { return stage.client(GetParam().class_name); }
  Outcome play(const char* method) { return play(client(), method); }
  Outcome play(const Object& object, const char* method) {
    Value key = "A1";
    const bool keys_only = std::string_view(method) == "Delete";
    const Value result = keys_only ? object.call(method, ref(key))
                                   : object.call(method, ref(key), ref(fields.names), ref(fields.values));
    return outcome_of(object, result);
  }

  Stage stage;
  Fields fields{{"NAME", "x"}, {"NOTES", Null{}}};
};

INSTANTIATE_TEST_SUITE_P(Classes, KeyRecordTest,
                         testing::Values(KeyRecord{"CRevAddr", "REVADDR", "AddrNo", "ADDRNO", "STK028ADDR"},
                                         KeyRecord{"CSTKController", "STKCONTROLLER", "CONTROLLERNO",
                                                   "CONTROLLERNO", "STK032USER"}),
                         [](const auto& param) { return std::string(param.param.class_name); });

TEST_P(KeyRecordTest, TheFirstCallSetsTheCollaboratorsUpInOrder) {
  play("Delete");
  EXPECT_EQ(stage.transcript(), text("create ADODB.Connection\n"
                                     "create ADODB.Recordset\n"
                                     "create Lexbank.ErrMsg\n"
                                     "create Corvane.CPowerCheck\n"
                                     "create Lexbank.CPartF\n"
                                     "create Corvane.CSystem\n"
                                     "messages.Language = 'EN'\n"
                                     "wording.Language = 'EN'\n"
                                     "rights.Language = 'EN'\n"
                                     "rights.ConnectionString = 'DSN=x'\n"
                                     "rights.UserID = 'TESTER'\n"
                                     "rights.SystemDatabase = 'MSACCESS'\n"
                                     "system.Language = 'EN'\n"
                                     "system.ConnectionString = 'DSN=x'\n"
                                     "system.UserID = 'TESTER'\n"
                                     "system.DatabaseName = 'MSACCESS'\n"
                                     "rights.PowerCheck '{F}'\n"
                                     "rights.CanDelete\n"
                                     "rights.Owner\n"
                                     "messages.Msg10000016\n"));
}

TEST_P(KeyRecordTest, LaterCallsOfTheSameObjectUseTheSetThatIsThere) {
  const Object object = client();
  play(object, "Delete");
  stage.clear();
  play(object, "Delete");
  EXPECT_EQ(stage.transcript(), text("create ADODB.Connection\n"
                                     "create ADODB.Recordset\n"
                                     "rights.PowerCheck '{F}'\n"
                                     "rights.CanDelete\n"
                                     "rights.Owner\n"
                                     "messages.Msg10000016\n"));
}

TEST_P(KeyRecordTest, ReadAppendsTheFirstRowInFieldOrder) {
  stage.finds(text("Select * From {T} Where {K}='A1'"),
              {{"KEY", "QTY", "NOTES"}, {{"A1", 2.5, Null{}}, {"second", 0, ""}}});
  EXPECT_EQ(play("Read"), done);
  EXPECT_EQ(fields.text(), "NAME='x' NOTES=Null KEY='A1' QTY=2.5 NOTES=Null");
  EXPECT_EQ(stage.database_calls(), text("C1.Open 'DSN=x' '' '' -1\n"
                                         "R1.CursorLocation = 2\n"
                                         "R1.Open Select * From {T} Where {K}='A1' | C1 3 1 -1\n"
                                         "R1.MoveLast\n"
                                         "R1.MoveFirst\n"
                                         "R1.Close\n"
                                         "C1.Close\n"));
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
}

TEST_P(KeyRecordTest, ReadOfAMissingKeySucceedsAndReportsIt) {
  EXPECT_EQ(play("Read"), (Outcome{100, 10000003, "text of Msg10000003"}));
  EXPECT_EQ(fields.text(), "NAME='x' NOTES=Null");
  EXPECT_EQ(stage.database_calls(), text("C1.Open 'DSN=x' '' '' -1\n"
                                         "R1.CursorLocation = 2\n"
                                         "R1.Open Select * From {T} Where {K}='A1' | C1 3 1 -1\n"
                                         "R1.Close\n"
                                         "C1.Close\n"));
}

TEST_P(KeyRecordTest, InsertBuildsOnTheEmptyExistenceQueryAndRunsWithoutTransaction) {
  stage.set("CanInsert", 1);
  EXPECT_EQ(play("Insert"), done);
  EXPECT_EQ(stage.database_calls(), text("C1.Open 'DSN=x' '' '' -1\n"
                                         "R1.CursorLocation = 2\n"
                                         "R1.Open Select * From {T} where {K}='A1' | C1 3 1 -1\n"
                                         "R1.Close\n"
                                         "C1.Execute <GetInsertSQL {T}> | -1\n"
                                         "C1.Close\n"));
  EXPECT_NE(stage.transcript().find(text("rights.PowerCheck '{F}'\nrights.CanInsert\n")), std::string::npos);
  EXPECT_NE(stage.transcript().find(text("rights.GetInsertSQL '{T}' object object R1\nrights.ErrNumber\n")),
            std::string::npos);
}

TEST_P(KeyRecordTest, InsertTakesAnyRightAboveZero) {
  const struct {
    Value right;
    Outcome outcome;
  } rows[] = {{1, done},
              {2, done},
              {0.5, done},
              {"1", done},
              {0, refused(10000016)},
              {-1, refused(10000016)},
              {Null{}, refused(10000016)},
              {true, refused(10000016)}};
  for (const auto& [right, outcome] : rows)
    EXPECT_EQ((stage.set("CanInsert", right), play("Insert")), outcome) << stage::shown(right);
}

TEST_P(KeyRecordTest, CollectionsThatDoNotMatchAreRefusedBeforeAnyRightIsAsked) {
  const Object object = client();
  Fields::add(fields.names, "SURPLUS");
  for (const char* method : {"Insert", "Update"}) {
    stage.clear();
    EXPECT_EQ(play(object, method), refused(10000002)) << method;
    EXPECT_EQ(stage.database_calls(), "") << method;
    EXPECT_EQ(stage.transcript().find("rights.PowerCheck"), std::string::npos) << method;
  }
  fields = Fields();
  for (const char* method : {"Insert", "Update"})
    EXPECT_EQ(play(object, method), refused(10000002)) << method;
}

TEST_P(KeyRecordTest, InsertOfAnExistingKeyIsRefused) {
  stage.set("CanInsert", 1).finds(text("Select * From {T} where {K}='A1'"), {{"K"}, {{"A1"}}});
  EXPECT_EQ(play("Insert"), refused(10000004));
  EXPECT_EQ(stage.database_calls(), text("C1.Open 'DSN=x' '' '' -1\n"
                                         "R1.CursorLocation = 2\n"
                                         "R1.Open Select * From {T} where {K}='A1' | C1 3 1 -1\n"
                                         "R1.Close\n"
                                         "C1.Close\n"));
}

TEST_P(KeyRecordTest, ABuilderErrorIsPassedOnWithEverythingClosed) {
  stage.set("CanInsert", 1).set("CanUpdate", 1);
  stage.set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(play("Insert"), trapped(77, "no such column"));
  EXPECT_TRUE(stage.database_calls().ends_with("R1.Close\nC1.Close\n"));
  EXPECT_EQ(play("Update"), trapped(77, "no such column"));
  EXPECT_TRUE(stage.database_calls().ends_with("R2.Close\nC2.Close\n"));
  EXPECT_EQ(stage.transcript().find("Execute"), std::string::npos);
}

TEST_P(KeyRecordTest, TheBuilderMayReplaceTheCollections) {
  stage.set("CanInsert", 1);
  const Fields other{{"OTHER", 1}};
  stage.set("rights.replaces 1", other.names).set("rights.replaces 2", other.values);
  EXPECT_EQ(play("Insert"), done);
  EXPECT_EQ(fields.text(), "OTHER=1");
}

TEST_P(KeyRecordTest, UpdateWithTheRightNeverAsksWhoOwnsTheRow) {
  stage.set("CanUpdate", 1);
  EXPECT_EQ(play("Update"), done);
  EXPECT_EQ(stage.database_calls(), text("C1.Open 'DSN=x' '' '' -1\n"
                                         "R1.CursorLocation = 2\n"
                                         "R1.Open Select top 1 * From {T} | C1 0 1 -1\n"
                                         "R1.Close\n"
                                         "C1.Execute <GetUpdateSQL {T}> Where {K}='A1' | -1\n"
                                         "C1.Close\n"));
  EXPECT_EQ(stage.transcript().find("Owner"), std::string::npos);
}

TEST_P(KeyRecordTest, RightsOtherThanOneAreNoRights) {
  for (const Value& right : {Value(2), Value(-1), Value(0), Value(Null{}), Value(true)}) {
    stage.set("CanUpdate", right).set("CanDelete", right).set("Owner", right);
    EXPECT_EQ(play("Update"), refused(10000016)) << stage::shown(right);
    EXPECT_EQ(play("Delete"), refused(10000016)) << stage::shown(right);
  }
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(KeyRecordTest, AnOwnerEndsInTheTrapBecauseTheConnectionIsOpenedTwice) {
  stage.set("Owner", 1).finds(text("Select ADDBY from {T} WHERE {O}='A1'"), {{"ADDBY"}, {{" TESTER "}}});
  const Outcome open_twice = trapped(3705, "Operation is not allowed when the object is open.");
  EXPECT_EQ(play("Update"), open_twice);
  EXPECT_EQ(stage.database_calls(), text("C1.Open 'DSN=x' '' '' -1\n"
                                         "R1.Open Select ADDBY from {T} WHERE {O}='A1' | C1 0 1 -1\n"
                                         "R1.MoveLast\n"
                                         "R1.Close\n"
                                         "C1.Open 'DSN=x' '' '' -1\n"));
  stage.clear();
  EXPECT_EQ(play("Delete"), open_twice);
  EXPECT_EQ(stage.database_calls(), text("C2.Open 'DSN=x' '' '' -1\n"
                                         "R2.Open Select ADDBY from {T} WHERE {O}='A1' | C2 0 1 -1\n"
                                         "R2.MoveLast\n"
                                         "R2.Close\n"
                                         "C2.Open 'DSN=x' '' '' -1\n"));
}

TEST_P(KeyRecordTest, AnOwnerTestWithoutARowPassesAndLeavesItsRecordsetOpen) {
  stage.set("Owner", 1);
  EXPECT_EQ(play("Update"), trapped(3705, "Operation is not allowed when the object is open."));
  EXPECT_EQ(stage.database_calls(), text("C1.Open 'DSN=x' '' '' -1\n"
                                         "R1.Open Select ADDBY from {T} WHERE {O}='A1' | C1 0 1 -1\n"
                                         "C1.Open 'DSN=x' '' '' -1\n"));
}

TEST_P(KeyRecordTest, WhoDoesNotOwnTheRowIsRefused) {
  for (const Value& owner : {Value("tester"), Value("OTHER"), Value("TESTER X"), Value(Null{})}) {
    Stage other;
    other.set("Owner", 1).finds(text("Select ADDBY from {T} WHERE {O}='A1'"), {{"ADDBY"}, {{owner}}});
    const Object object = other.client(GetParam().class_name);
    EXPECT_EQ(play(object, "Update"), refused(10000016)) << stage::shown(owner);
    EXPECT_TRUE(other.database_calls().ends_with("R1.MoveLast\nR1.Close\nC1.Close\n"));
    EXPECT_EQ(play(object, "Delete"), refused(10000016)) << stage::shown(owner);
  }
}

TEST_P(KeyRecordTest, DeleteRunsInATransaction) {
  stage.set("CanDelete", 1);
  EXPECT_EQ(play("Delete"), done);
  EXPECT_EQ(stage.database_calls(), text("C1.Open 'DSN=x' '' '' -1\n"
                                         "C1.BeginTrans\n"
                                         "C1.Execute Delete From {T} Where {K}='A1' | -1\n"
                                         "C1.CommitTrans\n"
                                         "C1.Close\n"));
}

TEST_P(KeyRecordTest, DeleteRollsBackAndClosesWhenTheStatementFails) {
  stage.set("CanDelete", 1).fails("Execute", Error(-2147217900, "locked"));
  EXPECT_EQ(play("Delete"), trapped(-2147217900, "locked"));
  EXPECT_EQ(stage.database_calls(), text("C1.Open 'DSN=x' '' '' -1\n"
                                         "C1.BeginTrans\n"
                                         "C1.Execute Delete From {T} Where {K}='A1' | -1 ! locked\n"
                                         "C1.RollbackTrans\n"
                                         "C1.Close\n"));
}

TEST_P(KeyRecordTest, OnlyDeleteClosesAndRollsBackInTheTrap) {
  stage.set("CanInsert", 1).set("CanUpdate", 1).fails("Execute", Error(-2147217900, "bad"), 1);
  EXPECT_EQ(play("Insert"), trapped(-2147217900, "bad"));
  EXPECT_TRUE(stage.database_calls().ends_with("! bad\n"));
  stage.fails("Execute", Error(-2147217900, "worse"));
  EXPECT_EQ(play("Update"), trapped(-2147217900, "worse"));
  EXPECT_TRUE(stage.database_calls().ends_with("! worse\n"));
}

TEST_P(KeyRecordTest, AKeyIsWrittenAsItStands) {
  stage.set("CanDelete", 1);
  Value key = "O'Neil";
  client().call("Delete", ref(key));
  EXPECT_NE(stage.transcript().find(text("C1.Execute Delete From {T} Where {K}='O'Neil' | -1")),
            std::string::npos);
}

TEST_P(KeyRecordTest, TheErrorFieldsAreClearedByTheNextCall) {
  const Object object = client();
  EXPECT_EQ(play(object, "Delete"), refused(10000016));
  stage.set("CanDelete", 1);
  EXPECT_EQ(play(object, "Delete"), done);
}

TEST_P(KeyRecordTest, BlanksAroundBothNamesDoNotMakeAnotherOwner) {
  stage.user = " TESTER ";
  stage.set("Owner", 1).finds(text("Select ADDBY from {T} WHERE {O}='A1'"), {{"ADDBY"}, {{"TESTER"}}});
  EXPECT_EQ(play("Delete").number, 3705);
  stage.user = "TES TER";
  EXPECT_EQ(play("Delete"), refused(10000016));
}

// Takes so many items, then raises an error.
class FullCollection : public automation::Collection {
 public:
  explicit FullCollection(std::size_t room) : room_(room) {}
  Value invoke(automation::MemberId id, automation::Access access, automation::Arguments arguments) override {
    if (id == 1 && items().size() == room_) throw Error(7);
    return automation::Collection::invoke(id, access, arguments);
  }

 private:
  std::size_t room_;
};

TEST_P(KeyRecordTest, AReadThatFailsHalfwayTakesBackWhatItHasAdded) {
  stage.finds(text("Select * From {T} Where {K}='A1'"), {{"A", "B", "C"}, {{1, 2, 3}}});
  const Object values = automation::make_object<FullCollection>(2U);
  const Object object = client();
  EXPECT_EQ(outcome_of(object, object.call("Read", "A1", ref(fields.names), values)),
            trapped(7, "Out of memory"));
  EXPECT_EQ(automation::to_int32(automation::to_object(fields.names).get("Count")), 2);
  EXPECT_EQ(automation::to_int32(values.get("Count")), 0);
}

TEST_P(KeyRecordTest, ABuilderMayHandAnotherRecordsetBackButNothingElse) {
  stage.set("CanInsert", 1);
  for (const Value& replacement : {Value("text"), Value()}) {
    stage.set("rights.GetInsertSQL replaces 4", replacement);
    EXPECT_EQ(play("Insert"), trapped(13, "Type mismatch")) << stage::shown(replacement);
  }
  const Object other = automation::create("ADODB.Recordset");
  stage.set("rights.GetInsertSQL replaces 4", other);
  stage.clear();
  EXPECT_EQ(play("Insert"), trapped(3704, "Operation is not allowed when the object is closed."));
  EXPECT_TRUE(stage.database_calls().ends_with("R3.Close\n")) << stage.database_calls();
}

TEST_P(KeyRecordTest, ABuilderWithoutAnErrorNumberHasNoError) {
  stage.set("CanInsert", 1);
  for (const Value& number : {Value(Null{}), Value(), Value("0")}) {
    stage.set("rights.ErrNumber", number);
    EXPECT_EQ(play("Insert"), done) << stage::shown(number);
  }
}

TEST_P(KeyRecordTest, ARollbackThatFailsTooLeavesTheFirstError) {
  stage.set("CanDelete", 1).fails("Execute", Error(-2147217900, "locked")).fails("RollbackTrans", Error(5));
  EXPECT_EQ(play("Delete"), trapped(-2147217900, "locked"));
  EXPECT_TRUE(stage.database_calls().find("RollbackTrans") != std::string::npos);
}

TEST_P(KeyRecordTest, AFailingOpenRollsNothingBack) {
  stage.set("CanDelete", 1).fails(".Open", Error(-2147467259, "unreachable"));
  EXPECT_EQ(play("Delete"), trapped(-2147467259, "unreachable"));
  EXPECT_EQ(stage.database_calls(), "C1.Open 'DSN=x' '' '' -1 ! unreachable\n");
}

TEST_P(KeyRecordTest, PropertiesWrittenLaterCountForTheObjectItself) {
  stage.set("CanDelete", 1).set("Owner", 1);
  const Object object = client();
  play(object, "Delete");
  object.put("ConnectionString", "DSN=other");
  stage.clear();
  play(object, "Delete");
  EXPECT_TRUE(stage.database_calls().starts_with("C2.Open 'DSN=other' '' '' -1\n"));
  stage.set("CanDelete", 0).finds(text("Select ADDBY from {T} WHERE {O}='A1'"), {{"ADDBY"}, {{"LATER"}}});
  EXPECT_EQ(play(object, "Delete"), refused(10000016));
  object.put("UserID", "LATER");
  EXPECT_EQ(play(object, "Delete").number, 3705);
}

}  // namespace
}  // namespace tallyra
