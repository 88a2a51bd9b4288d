#include <memory>

#include "tests/transcript/frame/record_script.h"

// Changing and deleting with nothing but the owner right.
namespace tallyra::records {
namespace {

class RecordOwner : public RecordTest {
 protected:
  static constexpr const char* members[] = {"Update", "Delete"};
  const Query& owner_query(std::string_view member) const {
    return member == "Update" ? record.update_owner : record.delete_owner;
  }
  // A stage whose user owns rows only, and where the rows found belong to these users.
  std::unique_ptr<Stage> owned_by(std::string_view member, const std::vector<Value>& owners) const {
    auto each = std::make_unique<Stage>(GetParam().kind);
    stage::Rows rows{{"ADDBY"}, {}};
    for (const auto& owner : owners) rows.rows.push_back({owner});
    each->set("Owner", 1).finds(owner_query(member).statement, rows);
    return each;
  }
  // What the passed owner test leads to, over its own connection or to the second opening.
  Outcome passed() const { return record.opens_again ? opened_twice : done; }
  std::string after_passing(std::string_view member) const {
    if (record.opens_again) return open;
    return "C1.State\n" + (member == "Update" ? update_calls() : delete_calls());
  }
  std::string rights_after_passing(std::string_view member) const {
    const bool builds = member == "Update" && !record.opens_again;
    return asked_for_owner(member) + (builds ? built("GetUpdateSQL") : "");
  }
  std::string asked_for_owner(std::string_view member) const {
    return asked(member == "Update" ? "CanUpdate" : "CanDelete") + "rights.Owner\n";
  }
};
TALLYRA_ON_RECORD_CLASSES(RecordOwner, each.has_owner());

TEST_P(RecordOwner, TheLastRowTellsTheOwnerWhoThenOpensTheConnectionTwiceOrGoesOn) {
  for (const char* member : members) {
    const auto each = owned_by(member, {"OTHER", "  TESTER "});
    EXPECT_EQ(play(client(*each), member), passed()) << member;
    EXPECT_EQ(each->database_calls(),
              open + opened(owner_query(member)) + "R1.MoveLast\nR1.Close\n" + after_passing(member));
    EXPECT_TRUE(each->rights_calls().ends_with(rights_after_passing(member))) << each->rights_calls();
  }
}

TEST_P(RecordOwner, ATestWithoutARowPassesAndDoesNotStandInTheWayOfTheNextQuery) {
  for (const char* member : members) {
    const auto each = owned_by(member, {});
    EXPECT_EQ(play(client(*each), member), passed()) << member;
    EXPECT_EQ(each->database_calls(), open + opened(owner_query(member)) +
                                          (record.opens_again ? "" : "R1.Close\n") + after_passing(member));
    EXPECT_TRUE(each->rights_calls().ends_with(rights_after_passing(member))) << each->rights_calls();
  }
}

TEST_P(RecordOwner, WhoDoesNotOwnTheRowIsRefused) {
  for (const Value& owner :
       {Value("tester"), Value("OTHER"), Value("TESTER X"), Value(""), Value(" "), Value(Null{})})
    for (const char* member : members) {
      const auto each = owned_by(member, {owner});
      EXPECT_EQ(play(client(*each), member), refused(10000016)) << member << stage::shown(owner);
      EXPECT_EQ(each->database_calls(),
                open + opened(owner_query(member)) + "R1.MoveLast\nR1.Close\nC1.Close\n");
      EXPECT_TRUE(each->rights_calls().ends_with(asked_for_owner(member)));
    }
}

TEST_P(RecordOwner, BlanksAroundBothNamesDoNotMakeAnotherOwner) {
  for (const char* member : members) {
    const auto each = owned_by(member, {"TESTER"});
    each->user = " TESTER ";
    EXPECT_EQ(play(client(*each), member), passed()) << member;
    each->user = "TES TER";
    EXPECT_EQ(play(client(*each), member), refused(10000016)) << member;
  }
}

TEST_P(RecordOwner, ASessionWithoutAUserOwnsRowsOfNobody) {
  for (const char* user : {"", "  "})
    for (const char* member : members) {
      for (const Value& nobody : {Value(Null{}), Value(""), Value(" ")}) {
        const auto each = owned_by(member, {nobody});
        each->user = user;
        EXPECT_EQ(play(client(*each), member), passed()) << member << stage::shown(nobody);
      }
      const auto each = owned_by(member, {"OTHER"});
      each->user = user;
      EXPECT_EQ(play(client(*each), member), refused(10000016)) << member;
    }
}

TEST_P(RecordOwner, AUserIdWrittenLaterCountsInTheOwnerTest) {
  for (const char* member : members) {
    const auto each = owned_by(member, {"LATER"});
    const Object object = client(*each);
    EXPECT_EQ(play(object, member), refused(10000016)) << member;
    object.put("UserID", "LATER");
    EXPECT_EQ(play(object, member), passed()) << member;
  }
}

}  // namespace
}  // namespace tallyra::records
