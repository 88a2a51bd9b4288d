#include "tests/transcript/frame/record_script.h"

// What the members of every class have in common: collaborators, rights, collections, error fields.
namespace tallyra::records {
namespace {

class RecordFrame : public RecordTest {
 protected:
  std::string refused_delete() const {
    return "create ADODB.Connection\ncreate ADODB.Recordset\n" + refused_after_set_up();
  }
  std::string refused_after_set_up() const {
    return asked("CanDelete") + (record.has_owner() ? "rights.Owner\n" : "") + "messages.Msg10000016\n";
  }
};
TALLYRA_ON_RECORD_CLASSES(RecordFrame, true);

TEST_P(RecordFrame, TheFirstCallSetsTheCollaboratorsUpInOrder) {
  play("Delete");
  const std::string kind = std::string("'") + GetParam().kind + "'\n";
  EXPECT_EQ(stage.transcript(),
            "create ADODB.Connection\n"
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
            "rights.SystemDatabase = " +
                kind +
                "system.Language = 'EN'\n"
                "system.ConnectionString = 'DSN=x'\n"
                "system.UserID = 'TESTER'\n"
                "system.DatabaseName = " +
                kind + refused_after_set_up());
}

TEST_P(RecordFrame, LaterCallsOfTheSameObjectUseTheSetThatIsThere) {
  const Object object = client(stage);
  play(object, "Delete");
  stage.clear();
  play(object, "Delete");
  EXPECT_EQ(stage.transcript(), refused_delete());
}

TEST_P(RecordFrame, TheErrorFieldsAreClearedByTheNextCall) {
  const Object object = client(stage);
  EXPECT_EQ(play(object, "Delete"), refused(10000016));
  stage.set("CanDelete", 1);
  EXPECT_EQ(play(object, "Delete"), done);
}

TEST_P(RecordFrame, AnErrorThatReachesTheTrapWithoutATextIsAnAutomationError) {
  for (const std::int32_t number : {-2147220000, 1000}) {
    Stage each(GetParam().kind);
    each.fails("rights.PowerCheck", automation::Error(number));
    EXPECT_EQ(play(client(each), "Delete"), stage::trapped(number, "Automation error"));
  }
}

TEST_P(RecordFrame, AnErrorCopiedFromTheBuilderIsAsItIsThereAlsoWithoutAText) {
  grant_everything();
  stage.set("rights.ErrNumber", 4711).set("rights.ErrDescription", "");
  for (const char* member : building_members()) EXPECT_EQ(play(member), stage::trapped(4711, "")) << member;
}

TEST_P(RecordFrame, AConnectionStringWrittenLaterCountsForTheObjectItself) {
  stage.set("CanDelete", 1);
  const Object object = client(stage);
  play(object, "Delete");
  object.put("ConnectionString", "DSN=other");
  stage.clear();
  play(object, "Delete");
  EXPECT_TRUE(stage.database_calls().starts_with(std::string(record.opens_again ? "" : "C2.State\n") +
                                                 "C2.Open 'DSN=other' '' '' -1\n"));
  EXPECT_EQ(stage.transcript().find("ConnectionString"), std::string::npos)
      << "the collaborators keep theirs";
}

TEST_P(RecordFrame, RightsOtherThanOneAreNoRights) {
  for (const Value& right : no_rights) {
    Stage each(GetParam().kind);
    each.set("CanUpdate", right).set("CanDelete", right).set("Owner", record.has_owner() ? right : Value(1));
    for (const auto& [member, asks] : {std::pair{"Update", "CanUpdate"}, std::pair{"Delete", "CanDelete"}}) {
      EXPECT_EQ(play(client(each), member), refused(10000016)) << member << stage::shown(right);
      EXPECT_TRUE(each.rights_calls().ends_with(asked(asks) + (record.has_owner() ? "rights.Owner\n" : "")))
          << each.rights_calls();
    }
    EXPECT_EQ(each.database_calls(), "");
  }
}

TEST_P(RecordFrame, CollectionsThatDoNotMatchAreRefusedBeforeAnyRightIsAsked) {
  grant_everything();
  Fields more_names, more_values;
  Fields::add(more_names.names, "SURPLUS");
  Fields::add(more_values.values, "surplus");
  for (const Fields& odd : {more_names, more_values, Fields()})
    for (const char* member : building_members()) {
      fields = odd;
      EXPECT_EQ(play(member), refused(10000002)) << member;
    }
  fields = Fields{{"A", 1}, {"B", 2}};
  Fields::add(fields.names, "C");
  for (const char* member : building_members()) EXPECT_EQ(play(member), refused(10000002)) << member;
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(RecordFrame, AFailingOpenIsTrapped) {
  for (const char* member : {"Read", "Insert", "Update", "Delete"}) {
    Stage each(GetParam().kind);
    grant_everything(each);
    each.fails(".Open", Error(-2147467259, "unreachable"));
    EXPECT_EQ(play(client(each), member), trapped(-2147467259, "unreachable")) << member;
    EXPECT_TRUE(each.database_calls().ends_with("C1.Open 'DSN=x' '' '' -1 ! unreachable\n")) << member;
  }
}

TEST_P(RecordFrame, KeysArePassedByValueOrByReference) {
  for (const bool by_reference : {false, true})
    for (const std::string_view member : {"Read", "Insert", "Update", "Delete"}) {
      if (member == "Insert" && !record.inserts) continue;
      Stage each(GetParam().kind);
      grant_everything(each);
      each.finds(record.row_query, {{"KEY"}, {{"A1"}}});
      std::vector<Value> keys = keys_of(member);
      EXPECT_EQ(play(client(each), member, keys, by_reference), done) << member << by_reference;
      EXPECT_EQ(keys, keys_of(member));
    }
}

}  // namespace
}  // namespace tallyra::records
