#include <gtest/gtest.h>

#include <set>

#include "automation/convert.h"
#include "automation/create.h"
#include "server/class_table.h"
#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"

// How a late-bound client gets at the classes within one process.
namespace tallyra {
namespace {

using automation::Error;
using automation::Missing;
using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::Fields;
using stage::Stage;

struct Failure {
  std::int32_t number = 0;
  int argument = 0;
  friend bool operator==(const Failure&, const Failure&) = default;
};

template <class Use>
Failure failure_of(const Use& use) {
  try {
    use();
  } catch (const Error& error) {
    return {error.number(), error.argument()};
  }
  return {};
}

TEST(Dispatch, EveryClassIsCreatedByItsProgId) {
  Stage stage;
  for (const auto& table : server::classes())
    EXPECT_TRUE(automation::create("Tallyra." + std::string(table.name))) << table.name;
}

TEST(Dispatch, SessionPropertiesAreWriteOnlyAndErrorPropertiesReadOnly) {
  Stage stage;
  for (const auto& table : server::classes()) {
    const Object object = stage.client(table.name);
    for (const char* name : {"Language", "SystemDatabase", "UserID", "ConnectionString"}) {
      object.put(name, "x");
      EXPECT_EQ(failure_of([&] { object.get(name); }), Failure{438}) << table.name << "." << name;
    }
    for (const char* name : {"ErrNumber", "ErrDescription"})
      EXPECT_EQ(failure_of([&] { object.put(name, 1); }), Failure{438}) << table.name << "." << name;
    EXPECT_EQ(object.get("ErrNumber"), Value(0.0F));
    EXPECT_EQ(object.get("ErrDescription"), Value(""));
  }
}

TEST(Dispatch, MemberNamesAreFoundWhateverTheCaseAndUnknownOnesAreNot) {
  Stage stage;
  const Object object = stage.client("cstockclose");
  EXPECT_EQ(object.get("ERRNUMBER"), Value(0.0F));
  EXPECT_EQ(failure_of([&] { object.call("Reads"); }), Failure{438});
}

TEST(Dispatch, IdsAndNamesOfAClassAreUnique) {
  for (const auto& table : server::classes()) {
    std::set<automation::MemberId> ids;
    std::set<std::string_view> names;
    for (const auto& member : table.members) {
      EXPECT_TRUE(ids.insert(member.id).second) << table.name << "." << member.name;
      EXPECT_TRUE(names.insert(member.name).second) << table.name << "." << member.name;
    }
  }
}

// The position of an argument that was not passed at all; COM has no way to tell it.
int position_of_absent(int position) {
#ifdef _WIN32
  static_cast<void>(position);
  return 0;
#else
  return position;
#endif
}

TEST(Dispatch, AWrongArgumentIsNamed) {
  Stage stage;
  const Object object = stage.client("CRevAddr");
  Fields fields;
  EXPECT_EQ(failure_of([&] { object.call("Read"); }), (Failure{449, position_of_absent(1)}));
  EXPECT_EQ(failure_of([&] { object.call("Read", "A1", fields.names); }),
            (Failure{449, position_of_absent(3)}));
  EXPECT_EQ(failure_of([&] { object.call("Read", "A1", Missing{}, fields.values); }), (Failure{449, 2}));
  EXPECT_EQ(failure_of([&] { object.call("Read", "A1", "names", fields.values); }), (Failure{13, 2}));
  EXPECT_EQ(failure_of([&] { object.call("Read", Null{}, fields.names, fields.values); }), (Failure{13, 1}));
  EXPECT_EQ(failure_of([&] { object.call("Read", fields.names, fields.names, fields.values); }),
            (Failure{450, 1}));
  EXPECT_EQ(failure_of([&] { object.call("Delete", "A1", "surplus"); }), Failure{450});
  EXPECT_EQ(stage.transcript(), "");
}

TEST(Dispatch, ArgumentsAreConvertedAndOnlyChangedOnesComeBack) {
  Stage stage;
  stage.set("CanDelete", 1);
  Value key = 12.5;
  stage.client("CRevAddr").call("Delete", ref(key));
  EXPECT_NE(stage.transcript().find("Where AddrNo='12.5'"), std::string::npos);
  EXPECT_EQ(key, Value(12.5));
}

TEST(Dispatch, CollectionsThatAreNoneEndInTheTrap) {
  Stage stage;
  stage.set("CanInsert", 1).set("CanUpdate", 1);
  const Object object = stage.client("CRevAddr");
  const Object no_collection = automation::create("ADODB.Connection");
  const struct {
    Value names;
    double number;
  } rows[] = {{Object(), 91}, {Value(), 91}, {no_collection, 438}};
  for (const auto& [names, number] : rows)
    for (const char* method : {"Insert", "Update"}) {
      const auto outcome = stage::outcome_of(object, object.call(method, "A1", names, names));
      EXPECT_EQ(outcome.result, 0);
      EXPECT_EQ(outcome.number, number) << method;
    }
}

TEST(Dispatch, AReadIntoWhatIsNoCollectionEndsWhereTheCollectionIsMissing) {
  Stage stage;
  stage.finds("Select * From REVADDR Where AddrNo='A1'", {{"A"}, {{"A1"}}});
  const Object object = stage.client("CRevAddr");
  Fields fields;
  const auto outcome = stage::outcome_of(object, object.call("Read", "A1", fields.names, Object()));
  EXPECT_EQ(outcome, stage::trapped(91, "Object variable or With block variable not set"));
  EXPECT_EQ(automation::to_int32(automation::to_object(fields.names).get("Count")), 1) << "the first name";
}

TEST(Dispatch, AClassThatIsNotRegisteredEndsInTheTrap) {
  for (const char* prog_id : {"ADODB.Connection", "ADODB.Recordset", "Lexbank.ErrMsg", "Corvane.CPowerCheck",
                              "Lexbank.CPartF", "Corvane.CSystem"}) {
    Stage stage;
    const automation::local::ScopedClass hidden(prog_id, nullptr);
    const Object object = stage.client("CRevAddr");
    EXPECT_EQ(stage::outcome_of(object, object.call("Delete", "A1")),
              stage::trapped(429, "ActiveX component can't create object"))
        << prog_id;
  }
}

TEST(Session, TheInstanceThatRanTheSetUpLastDecidesForTheThread) {
  Stage stage;
  const Object first = stage.client("CRevAddr");
  first.call("Delete", "A1");
  stage.user = "SECOND";
  const Object second = stage.client("CSTKController");
  second.call("Delete", "A1");
  EXPECT_NE(stage.transcript().find("rights.UserID = 'SECOND'"), std::string::npos);
  stage.clear();
  first.put("UserID", "THIRD");
  first.call("Delete", "A1");
  EXPECT_EQ(stage.transcript().find("UserID ="), std::string::npos)
      << "a property written later does not reach the collaborators";
}

}  // namespace
}  // namespace tallyra
