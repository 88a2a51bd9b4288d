#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/error.h"
#include "automation/folded_name.h"
#include "automation/object.h"
#include "client/value_text.h"

namespace tallyra::client {

// A late-bound object whose members are what a test says, and which records each use of one:
// "put UserID ANNA", "get ErrNumber", "call Read A1 (object) (object)".
class ScriptedObject : public automation::Dispatch {
 public:
  using Body = std::function<automation::Value(automation::Arguments)>;
  using Log = std::vector<std::string>;

  explicit ScriptedObject(Log& log) : log_(log) {}

  ScriptedObject& method(std::string name, Body body) {
    return add(std::move(name), "call", std::move(body));
  }
  ScriptedObject& readable(std::string name, automation::Value value) {
    return add(std::move(name), "get", [value = std::move(value)](automation::Arguments) { return value; });
  }
  ScriptedObject& writable(std::string name) {
    return add(std::move(name), "put", [](automation::Arguments) { return automation::Value(); });
  }
  // The properties that every class of the component has.
  ScriptedObject& session_properties(float number = 0, std::string description = {}) {
    for (const char* name : {"ConnectionString", "UserID", "Language", "SystemDatabase"}) writable(name);
    return readable("ErrNumber", number).readable("ErrDescription", std::move(description));
  }

  automation::MemberId resolve(std::string_view name) override {
    for (std::size_t i = 0; i < members_.size(); ++i)
      if (automation::equals_folded(members_[i].name, name)) return static_cast<automation::MemberId>(i);
    throw automation::Error(automation::error_number::no_such_member);
  }

  automation::Value invoke(automation::MemberId id, automation::Access access,
                           automation::Arguments arguments) override {
    const Member& member = members_.at(static_cast<std::size_t>(id));
    if ((access != automation::Access::read) != (member.use == "put"))
      throw automation::Error(automation::error_number::no_such_member);
    std::string line = std::string(member.use) + " " + member.name;
    for (const auto& argument : arguments) line += " " + shown_text(argument.get());
    log_.push_back(std::move(line));
    return member.body(arguments);
  }

 private:
  struct Member {
    std::string name;
    std::string_view use;
    Body body;
  };

  ScriptedObject& add(std::string name, std::string_view use, Body body) {
    members_.push_back({std::move(name), use, std::move(body)});
    return *this;
  }

  Log& log_;
  std::vector<Member> members_;
};

}  // namespace tallyra::client
