#include <gtest/gtest.h>

#include "tests/support/company_database.h"
#include "tests/support/record_methods.h"

// What a client has to know of its session: whose rights count, and what the error fields tell.
namespace tallyra::behaviour {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::Outcome;

class SharedThread : public testing::Test {
 protected:
  SharedThread() {
    company.grant("CLERK", "CANINSERT");
    company.run({"INSERT INTO REVADDR(ADDRNO,ADDBY) VALUES('A1','OTHER'),('A2','OTHER'),('A3','OTHER')"});
  }
  static Outcome remove(const Object& object, const char* address) {
    return stage::play_record(object, "Delete", address);
  }
  CompanyDatabase company;
};

TEST_F(SharedThread, TheRightsOfWhoeverSetTheCollaboratorsUpLastCountForAll) {
  const Object boss = company.client("CRevAddr", "ADMIN");
  const Object clerk = company.client("CRevAddr", "CLERK");
  EXPECT_EQ(remove(boss, "A1"), done);
  EXPECT_EQ(remove(clerk, "A2").number, 10000016);
  EXPECT_EQ(remove(boss, "A2").number, 10000016) << "asked of the clerk's rights now";
  const Object another_boss = company.client("CRevAddr", "ADMIN");
  EXPECT_EQ(remove(another_boss, "A2"), done);
  EXPECT_EQ(remove(clerk, "A3"), done) << "asked of the boss's rights now";
}

TEST_F(SharedThread, AUserOrDatabaseThatIsSetAfterTheFirstCallDoesNotReachTheRights) {
  const Object object = company.client("CRevAddr", "ADMIN");
  EXPECT_EQ(remove(object, "A1"), done);
  object.put("UserID", "CLERK");
  EXPECT_EQ(remove(object, "A2"), done) << "still with the rights of the first user";
  const Object fresh = company.client("CRevAddr", "CLERK");
  EXPECT_EQ(remove(fresh, "A3").number, 10000016);
}

TEST_F(SharedThread, TheErrorFieldsHoldUntilTheNextCall) {
  const Object object = company.client("CRevAddr", "CLERK");
  const Outcome refused = remove(object, "A1");
  EXPECT_EQ(refused.number, 10000016);
  object.put("UserID", "ADMIN");
  object.put("Language", "DE");
  EXPECT_EQ(stage::outcome_of(object, 0), refused);
  Fields fields{{"ADDRNO", "A9"}};
  EXPECT_EQ(stage::outcome_of(object, object.call("Insert", "A9", ref(fields.names), ref(fields.values))),
            done);
}

// The classes that append, and those that put collections of their own in place of what they are given.
TEST_F(SharedThread, VariablesThatHoldNothingAreFilledByTheReplacingClassesAlone) {
  company.run({"INSERT INTO STKCONTROLLER(CONTROLLERNO) VALUES('A1')",
               "INSERT INTO STKSHIPNOTE(TRANNO) VALUES('A1')",
               "INSERT INTO STKTRANHD(TRANNO,TRANTYPE) VALUES('A1','X')",
               "INSERT INTO STKCLOSEHD(CLOSEDT) VALUES('2024-01-31 00:00:00')",
               "INSERT INTO STKCHECKHD(CHECKNO) VALUES('A1')", "INSERT INTO PARTCOSTSET(MTYPESN) VALUES(1)"});
  const struct {
    const char* class_name;
    Value key;
    bool appends;
  } rows[] = {{"CRevAddr", "A1", true},     {"CSTKController", "A1", true},
              {"CStkShipNote", "A1", true}, {"CStockClose", "2024/01/31", true},
              {"CCheckHead", "A1", false},  {"CPartCostSet", 1, false}};
  for (const auto& [class_name, key, appends] : rows)
    for (const Value& nothing : {Value(Object()), Value()}) {
      SCOPED_TRACE(class_name);
      const Object object = company.client(class_name);
      Value names = nothing;
      Value values = nothing;
      const Outcome outcome = stage::outcome_of(object, object.call("Read", key, ref(names), ref(values)));
      if (appends) {
        EXPECT_EQ(outcome, stage::trapped(91, "Object variable or With block variable not set"));
      } else {
        EXPECT_EQ(outcome, done);
        EXPECT_GT(automation::to_int32(automation::to_object(names).get("Count")), 0);
      }
    }
}

}  // namespace
}  // namespace tallyra::behaviour
