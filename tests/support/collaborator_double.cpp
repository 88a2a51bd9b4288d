#include "tests/support/collaborator_double.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "automation/convert.h"

namespace tallyra::stage {

using automation::Arguments;
using automation::Error;
using automation::Value;

namespace {

// What the session tells each of them.
const std::map<std::string, std::set<std::string>> session_properties{
    {"messages", {"Language"}},
    {"wording", {"Language"}},
    {"rights", {"Language", "ConnectionString", "UserID", "SystemDatabase"}},
    {"system", {"Language", "ConnectionString", "UserID", "DatabaseName"}},
};

[[noreturn]] void fail_untold(const std::string& member) {
  ADD_FAILURE() << "a member that the stage was not told about: " << member;
  throw Error(automation::error_number::no_such_member);
}

}  // namespace

CollaboratorDouble::CollaboratorDouble(Stage& stage, std::string role)
    : Named(std::move(role)), stage_(stage) {
  stage_.born();
}

CollaboratorDouble::~CollaboratorDouble() {
  stage_.gone();
}

automation::MemberId CollaboratorDouble::resolve(std::string_view name) {
  for (std::size_t i = 0; i < names_.size(); ++i)
    if (names_[i] == name) return static_cast<automation::MemberId>(i);
  names_.emplace_back(name);
  return static_cast<automation::MemberId>(names_.size() - 1);
}

Value CollaboratorDouble::invoke(automation::MemberId id, automation::Access access, Arguments arguments) {
  const std::string member = names_.at(static_cast<std::size_t>(id));
  if (access != automation::Access::read) {
    stage_.step(name() + "." + member + " =" + shown(arguments));
    if (!session_properties.at(name()).contains(member)) fail_untold("put " + name() + "." + member);
    return {};
  }
  stage_.step(name() + "." + member + shown(arguments));
  stage_.note_forms(name() + "." + member, arguments);
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string replacement = name() + "." + member + " replaces " + std::to_string(i + 1);
    if (stage_.has_member(replacement)) arguments[i].set(stage_.member(replacement));
  }
  return answer(member, arguments);
}

Value CollaboratorDouble::answer(const std::string& member, Arguments arguments) {
  const std::string full = name() + "." + member;
  if (name() == "system" && member == "GetTableKeyID") return issued_number(arguments);
  if (stage_.has_member(full)) return stage_.member(full);
  if (name() == "messages" && member.starts_with("Msg")) return "text of " + member;
  const bool rights = name() == "rights";
  if (rights && (member == "GetInsertSQL" || member == "GetUpdateSQL")) return built(member, arguments);
  if (rights && stage_.has_member(member)) return stage_.member(member);
  if (rights && member == "PowerCheck") return 1;
  if ((rights || name() == "system") && member == "ErrNumber") return 0;
  if ((rights || name() == "system") && member == "ErrDescription") return "";
  fail_untold(full);
}

Value CollaboratorDouble::issued_number(Arguments arguments) {
  const std::string number = stage_.issue_document_number();
  if (number.empty()) return 0;
  arguments[2].set(number);
  return stage_.has_member("system.GetTableKeyID") ? stage_.member("system.GetTableKeyID") : Value(1);
}

// Four references in the order table, names, values, recordset; or the caller has it wrong.
Value CollaboratorDouble::built(const std::string& builder, Arguments arguments) {
  if (arguments.size() != 4) throw Error(automation::error_number::wrong_argument_count);
  for (const auto& argument : arguments)
    if (!argument.is_reference()) throw Error(automation::error_number::type_mismatch);
  for (const std::size_t i : {1U, 2U})
    if (stage_.has_member(name() + ".replaces " + std::to_string(i)))
      arguments[i].set(stage_.member(name() + ".replaces " + std::to_string(i)));
  return "<" + builder + " " + automation::to_text(arguments[0].get()) + ">";
}

}  // namespace tallyra::stage
