#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"
#include "tests/transcript/frame/record_class.h"

namespace tallyra::records {

using automation::Error;
using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::no_rights;
using stage::Outcome;
using stage::outcome_of;
using stage::refused;
using stage::Stage;
using stage::trapped;

inline const Outcome missing{100, 10000003, "text of Msg10000003"};
inline const Outcome opened_twice = trapped(3705, "Operation is not allowed when the object is open.");

// A class on a kind of database.
struct Setting {
  RecordClass record;
  const char* kind;
  friend void PrintTo(const Setting& setting, std::ostream* out) {
    *out << setting.record.class_name << "_" << (*setting.kind ? setting.kind : "None");
  }
};

// Every class that the condition holds for, on every kind of database.
std::vector<Setting> settings(bool (*condition)(const RecordClass&));

// One of the classes on a stage of its own.
class RecordTest : public testing::TestWithParam<Setting> {
 protected:
  const RecordClass& record = GetParam().record;

  // On a stage that knows the queries of the class; where it is told nothing else, they find nothing.
  Object client(Stage& on) const;
  // Calls the member with the key of the description, or with another, as clients pass it.
  Outcome play(std::string_view member) { return play(client(stage), member); }
  Outcome play(const Object& object, std::string_view member) {
    return play(object, member, keys_of(member));
  }
  const std::vector<Value>& keys_of(std::string_view member) const {
    return member == "Read" && !record.read_keys.empty() ? record.read_keys : record.keys;
  }
  Outcome play(const Object& object, std::string_view member, std::vector<Value> keys) {
    return play(object, member, keys, record.every_key_by_reference || member == "Read");
  }
  Outcome play(const Object& object, std::string_view member, std::vector<Value>& keys,
               bool keys_by_reference);

  // The members that let a builder write their statement.
  std::vector<const char*> building_members() const {
    return record.inserts ? std::vector{"Insert", "Update"} : std::vector{"Update"};
  }

  // The user has every right that inserting, changing and deleting need, and an insert finds what it has to.
  void grant_everything() { grant_everything(stage); }
  void grant_everything(Stage& to) const;
  // An insert finds what has to be there, whatever the rights.
  void let_insert_look_up(Stage& on) const;

  // Calls as they stand in a transcript; C1 and R1 are the first connection and recordset of a stage.
  inline static const std::string open = "C1.Open 'DSN=x' '' '' -1\n";
  static std::string opened(const Query& query);
  std::string existence_test() const;
  // An insertion from the moment on when the connection is open.
  std::string insert_calls() const;
  // An update and a deletion from the moment on when the right is granted and the connection is open.
  std::string update_calls() const;
  std::string delete_calls() const;
  // Of these calls what is left when this one of them fails.
  static std::string failing_at(const std::string& call, const std::string& calls);
  // The opening before them, where the method did not open the connection for an owner test.
  std::string open_for_writing() const { return record.opens_again ? open : "C1.State\n" + open; }
  // What is asked of the rights object before the method goes on.
  std::string asked(const char* right) const {
    return std::string("rights.PowerCheck '") + record.function_code + "'\nrights." + right + "\n";
  }
  std::string built(const char* builder) const {
    return std::string("rights.") + builder + " '" + record.table + "' object object R1\nrights.ErrNumber\n";
  }

  Stage stage{GetParam().kind};
  Fields fields{{"NAME", "x"}, {"NOTES", Null{}}};
  // The tag of an update; without one it is left out, or empty where it is needed.
  std::optional<Value> tag;
};

// Runs the tests of the fixture with every class that the condition holds for; `each` is the class.
#define TALLYRA_ON_RECORD_CLASSES(fixture, condition)                                                  \
  INSTANTIATE_TEST_SUITE_P(                                                                            \
      Records, fixture,                                                                                \
      testing::ValuesIn(settings([]([[maybe_unused]] const RecordClass& each) { return condition; })), \
      testing::PrintToStringParamName())

}  // namespace tallyra::records
