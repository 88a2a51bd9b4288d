#include "client/call_run.h"

#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/local/local_classes.h"
#include "client/value_text.h"
#include "tests/unit/client/scripted_object.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

using automation::Arguments;
using automation::Error;
using automation::Object;
using automation::Value;
using automation::local::ScopedClass;

class CallRun : public testing::Test {
 protected:
  // The class Tallyra.CRevAddr, whose new objects get their members from `script`.
  void script_class(std::function<void(ScriptedObject&)> script) {
    class_.emplace("Tallyra.CRevAddr", [this, script = std::move(script)] {
      auto* scripted = new ScriptedObject(log_);
      Object object(scripted);
      script(*scripted);
      return object;
    });
  }
  // An object with the session properties and one method.
  void script_method(std::string name, ScriptedObject::Body body, float number = 0,
                     std::string description = {}) {
    script_class(
        [=](ScriptedObject& object) { object.session_properties(number, description).method(name, body); });
  }

  Outcome run(const std::vector<std::string>& words) { return run_call(parse_call(words), session_); }
  std::string refusal(const std::vector<std::string>& words) {
    return usage_error_text([&] { run(words); });
  }

  ScriptedObject::Log log_;
  Session session_;

 private:
  std::optional<ScopedClass> class_;
};

ScriptedObject::Body answer(Value value) {
  return [value = std::move(value)](Arguments) { return value; };
}

ScriptedObject::Body raise(Error error) {
  return [error](Arguments) -> Value { throw error; };
}

std::string shape(const std::vector<Field>& fields) {
  std::string text;
  for (const auto& field : fields)
    text += field.name + "=" + std::string(type_name(field.value)) + " " + shown_text(field.value) + ";";
  return text;
}

TEST_F(CallRun, SetsTheSessionThenCallsThenReadsTheErrorFields) {
  script_method("Delete", answer(100.0F));
  session_ = {.connection_string = "DSN=x", .user = "ANNA", .language = "en"};
  const Outcome outcome = run({"CRevAddr", "delete", "A1", "n:2"});
  EXPECT_EQ(log_, (ScriptedObject::Log{"put ConnectionString DSN=x", "put UserID ANNA", "put Language en",
                                       "put SystemDatabase MSACCESS", "call Delete A1 2", "get ErrNumber",
                                       "get ErrDescription"}));
  EXPECT_TRUE(outcome.result == Value(100.0F));
  EXPECT_TRUE(outcome.succeeded());
  EXPECT_TRUE(outcome.returned_arguments.empty());
  EXPECT_TRUE(outcome.fields.empty());
}

TEST_F(CallRun, PassesPairsAsTwoCollectionsInTheirOrder) {
  std::string seen;
  script_method("Insert", [&](Arguments arguments) -> Value {
    const Object names = automation::to_object(arguments[1].get());
    const Object values = automation::to_object(arguments[2].get());
    for (std::int32_t i = 1; i <= automation::to_int32(names.get("Count")); ++i) {
      const Value value = values.call("Item", i);
      seen += automation::to_text(names.call("Item", i)) + "=" + std::string(type_name(value)) + ";";
    }
    return 100.0F;
  });
  const Outcome outcome =
      run({"CRevAddr", "Insert", "A1", "ADDRNO=A1", "SN=i:3", "D=d:2024/01/31", "N=null:"});
  EXPECT_EQ(seen, "ADDRNO=text;SN=int32;D=date;N=null;");
  EXPECT_EQ(outcome.fields.size(), 0U);
}

TEST_F(CallRun, ReturnsTheFieldsThatWereAddedToEmptyCollections) {
  script_method("Read", [](Arguments arguments) -> Value {
    automation::to_object(arguments[1].get()).call("Add", "ADDRNO");
    automation::to_object(arguments[2].get()).call("Add", "A1");
    automation::to_object(arguments[1].get()).call("Add", "EDITDT");
    automation::to_object(arguments[2].get()).call("Add", automation::Null{});
    return 100.0F;
  });
  EXPECT_EQ(shape(run({"CRevAddr", "Read", "A1"}).fields), "ADDRNO=text A1;EDITDT=null NULL;");
}

TEST_F(CallRun, ReturnsTheFieldsOfCollectionsThatWereReplaced) {
  script_method("Read", [](Arguments arguments) -> Value {
    const Object names = automation::make_object<automation::Collection>();
    const Object values = automation::make_object<automation::Collection>();
    names.call("Add", "TRANNO");
    names.call("Add", "SN");
    values.call("Add", "T1");
    arguments[1].set(names);
    arguments[2].set(values);
    return 100.0F;
  });
  EXPECT_EQ(shape(run({"CRevAddr", "Read", "T1"}).fields), "TRANNO=text T1;SN=missing ;");
}

TEST_F(CallRun, ReturnsThePairsOnlyWhenTheObjectHasChangedThem) {
  script_method("Update", [](Arguments arguments) -> Value {
    automation::to_object(arguments[1].get()).call("Add", "EDITBY");
    automation::to_object(arguments[2].get()).call("Add", "ANNA");
    return 100.0F;
  });
  EXPECT_EQ(shape(run({"CRevAddr", "Update", "A1", "ADDRNM=Harbour"}).fields),
            "ADDRNM=text Harbour;EDITBY=text ANNA;");
}

TEST_F(CallRun, TellsWhichArgumentsCameBackChangedCountingTheCollections) {
  script_method("Change", [](Arguments arguments) -> Value {
    arguments[0].set(2.5);
    arguments[3].set(std::int32_t{3});  // the text "3" converted, not changed
    arguments[4].set(automation::Null{});
    return {};
  });
  const Outcome outcome = run({"CRevAddr", "Change", "empty:", "A=1", "3", "x", "y"});
  ASSERT_EQ(outcome.returned_arguments.size(), 2U);
  EXPECT_EQ(outcome.returned_arguments[0].position, 1U);
  EXPECT_TRUE(outcome.returned_arguments[0].value == Value(2.5));
  EXPECT_EQ(outcome.returned_arguments[1].position, 5U);
  EXPECT_TRUE(outcome.returned_arguments[1].value.is_null());
}

TEST_F(CallRun, TellsAnEmptyArgumentAlsoWhenItWasNotFilled) {
  script_method("Change", answer({}));
  const Outcome outcome = run({"CRevAddr", "Change", "0", "empty:", "null:", "missing:"});
  ASSERT_EQ(outcome.returned_arguments.size(), 1U);
  EXPECT_EQ(outcome.returned_arguments[0].position, 2U);
  EXPECT_TRUE(outcome.returned_arguments[0].value.is_empty());
}

TEST_F(CallRun, SucceedsByErrNumberAndByTheHundredOrZeroOfSinglePrecisionAnswers) {
  const struct {
    Value result;
    float number;
    bool succeeded;
  } rows[] = {
      {100.0F, 0, true},
      {0.0F, 0, false},
      {0.0F, 10000016, false},
      {100.0F, 10000003, false},
      {12.5F, 0, true},
      {0.0, 0, true},
      {0.0, 5, false},
      {12.5, 0, true},
      {std::int16_t{0}, 0, true},
      {Value(), 0, true},
      {"", 0, true},
      {Value(), 10000112, false},
      {100.0F, -2147217920.0F, false},
  };
  for (const auto& row : rows) {
    script_method("Delete", answer(row.result), row.number, "text");
    const Outcome outcome = run({"CRevAddr", "Delete", "A1"});
    EXPECT_EQ(outcome.succeeded(), row.succeeded) << shown_text(row.result) << " " << row.number;
    EXPECT_EQ(outcome.error_number, row.number);
    EXPECT_EQ(outcome.error_description, "text");
  }
}

TEST_F(CallRun, ReadsAPropertyAndTakesErrNumberZeroForNoFailure) {
  script_class([](ScriptedObject& object) { object.session_properties(); });
  const Outcome outcome = run({"CRevAddr", "ErrNumber"});
  EXPECT_TRUE(outcome.result == Value(0.0F));
  EXPECT_TRUE(outcome.succeeded());
}

TEST_F(CallRun, DoesWithoutErrorFieldsWhereAClassHasNone) {
  script_class([](ScriptedObject& object) { object.readable("Msg10000003", "No such record"); });
  const Outcome outcome = run({"CRevAddr", "Msg10000003"});
  EXPECT_FALSE(outcome.error_number.has_value());
  EXPECT_TRUE(outcome.succeeded());
}

TEST_F(CallRun, SaysThatAClassDoesNotExist) {
  EXPECT_EQ(
      refusal({"CRevAdr", "Read", "A1"}),
      "there is no class Tallyra.CRevAdr; the classes of Tallyra are CTranHead, CTranDetail, CCheckHead, "
      "CCheckDetail, CStkrptFuns, CPartCostSet, CStockClose, CRevAddr, CSTKController, CStkShipNote, any "
      "other needs its whole ProgID");
  EXPECT_EQ(refusal({"CTranHead", "Read", "T1"}), "class Tallyra.CTranHead is not registered here");
}

TEST_F(CallRun, SaysThatAMemberDoesNotExistBeforeItTouchesTheObject) {
  script_method("Read", answer(100.0F));
  EXPECT_EQ(refusal({"CRevAddr", "Raed", "A1"}),
            "Tallyra.CRevAddr has no member Raed; its members are Read, Insert, Update, Delete");
  EXPECT_TRUE(log_.empty());
}

TEST_F(CallRun, SaysThatAPropertyCannotBeRead) {
  script_class([](ScriptedObject& object) { object.session_properties(); });
  EXPECT_EQ(refusal({"CRevAddr", "UserID"}),
            "Tallyra.CRevAddr UserID cannot be called: Object doesn't support this property or method");
}

Error blaming(std::int32_t number, int position) {
  Error error(number);
  error.blame_argument(position);
  return error;
}

TEST_F(CallRun, SaysWhichArgumentIsWrongAndHowTheMemberIsCalled) {
  const struct {
    Error error;
    const char* message;
  } rows[] = {
      {Error(13), "Type mismatch (4 arguments were given)"},
      {Error(450), "Wrong number of arguments or invalid property assignment (4 arguments were given)"},
      {blaming(13, 1), "Type mismatch (argument 1, double '2.5')"},
      {blaming(13, 4), "Type mismatch (argument 4, text 'x')"},
      {blaming(6, 4), "Overflow (argument 4, text 'x')"},
#ifndef _WIN32  // COM tells the position among the arguments that were given.
      {blaming(449, 5), "Argument not optional (argument 5 was not given)"},
#endif
  };
  for (const auto& row : rows) {
    script_method("Update", raise(row.error));
    EXPECT_EQ(
        refusal({"CRevAddr", "Update", "n:2.5", "A=1", "x"}),
        std::string("Tallyra.CRevAddr Update: ") + row.message + "; write: Update cAddrNo COLUMN=value...");
  }
}

TEST_F(CallRun, HandsOnAnyOtherErrorBesideTheErrorFields) {
  script_method("Delete", raise(Error(3704, "closed")), 10000112, "closed period");
  const Outcome outcome = run({"CRevAddr", "Delete", "A1"});
  ASSERT_TRUE(outcome.raised.has_value());
  EXPECT_EQ(outcome.raised->number(), 3704);
  EXPECT_EQ(outcome.raised->description(), "closed");
  EXPECT_EQ(outcome.error_number, 10000112);
  EXPECT_EQ(outcome.error_description, "closed period");
  EXPECT_TRUE(outcome.result.is_empty());
  EXPECT_FALSE(outcome.succeeded());
}

TEST_F(CallRun, HasFailedWithARaisedErrorWhateverTheErrorFieldsSay) {
  script_method("Delete", raise(Error(3704)));
  const Outcome outcome = run({"CRevAddr", "Delete", "A1"});
  EXPECT_EQ(outcome.error_number, 0);
  EXPECT_FALSE(outcome.succeeded());
}

TEST_F(CallRun, TakesAMissingMemberForTheMethodsOwnErrorOnlyInMethodsItKnows) {
  for (const bool known : {true, false}) {
    const std::string method = known ? "Delete" : "Destroy";
    script_method(method, raise(Error(438)), 10000112);
    if (known)
      EXPECT_EQ(run({"CRevAddr", method, "A1"}).raised.value_or(Error(0)).number(), 438);
    else
      EXPECT_EQ(refusal({"CRevAddr", method, "A1"}),
                "Tallyra.CRevAddr Destroy cannot be called: Object doesn't support this property or method");
  }
}

TEST_F(CallRun, TellsTheFirstErrorOfAnObjectThatIsGone) {
  script_class([](ScriptedObject& object) {
    for (const char* name : {"ConnectionString", "UserID", "Language", "SystemDatabase"})
      object.writable(name);
    object.method("Delete", raise(Error(462))).method("ErrNumber", raise(Error(70)));
  });
  const Outcome outcome = run({"CRevAddr", "Delete", "A1"});
  EXPECT_EQ(outcome.raised.value_or(Error(0)).number(), 462);
  EXPECT_FALSE(outcome.error_number.has_value());
  script_class([](ScriptedObject& object) {
    for (const char* name : {"ConnectionString", "UserID", "Language", "SystemDatabase"})
      object.writable(name);
    object.method("Delete", answer(100.0F)).method("ErrNumber", raise(Error(70)));
  });
  EXPECT_THROW(run({"CRevAddr", "Delete", "A1"}), Error);
}

}  // namespace
}  // namespace tallyra::client
