#include "client/call_run.h"

#include <algorithm>
#include <utility>

#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/create.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/catalogue.h"
#include "client/database/connection_text.h"
#include "client/usage_error.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

namespace error_number = automation::error_number;
using automation::Access;
using automation::Argument;
using automation::Error;
using automation::MemberId;
using automation::Object;
using automation::Value;

Object create_object(const std::string& prog_id) {
  try {
    return automation::create(prog_id);
  } catch (const Error& error) {
    if (error.number() != error_number::cannot_create) throw;
    if (find_class(prog_id)) throw UsageError("class " + prog_id + " is not registered here");
    throw UsageError("there is no class " + prog_id + "; the classes of Tallyra are " + class_names() +
                     ", any other needs its whole ProgID");
  }
}

MemberId resolve_member(const Object& object, const Call& call) {
  try {
    return object.resolve(call.member);
  } catch (const Error& error) {
    if (error.number() != error_number::no_such_member) throw;
    throw UsageError(call.prog_id + " has no member " + call.member + members_hint(call.prog_id));
  }
}

// The arguments of the call as variables that the object may replace.
class ArgumentList {
 public:
  explicit ArgumentList(const Call& call) : call_(call), values_(call.arguments) {
    if (!call.collections_after) return;
    const Object names = automation::make_object<automation::Collection>();
    const Object values = automation::make_object<automation::Collection>();
    for (const auto& field : call.fields) {
      names.call("Add", field.name);
      values.call("Add", field.value);
    }
    values_.insert(values_.begin() + static_cast<std::ptrdiff_t>(*call.collections_after), {names, values});
  }

  const std::vector<Value>& values() const { return values_; }

  Value pass_to(const Object& object, MemberId member) {
    std::vector<Argument> list;
    list.reserve(values_.size());
    for (Value& value : values_) list.push_back(Argument::by_reference(value));
    return object.invoke(member, Access::read, list);
  }

  std::vector<ReturnedArgument> returned_arguments() const {
    std::vector<ReturnedArgument> result;
    for (std::size_t i = 0; i < call_.arguments.size(); ++i) {
      const bool behind = call_.collections_after && i >= *call_.collections_after;
      const std::size_t position = behind ? i + 2 : i;
      const Value& before = call_.arguments[i];
      const Value& after = values_[position];
      // A text that came back as the number it spells has only been converted.
      const bool same = before == after || (shown_text(before) == shown_text(after) && !after.is_null());
      if (same && !before.is_empty()) continue;
      result.push_back({position + 1, after});
    }
    return result;
  }

  std::vector<Field> returned_fields() const {
    if (!call_.collections_after) return {};
    std::vector<Field> fields =
        collected(values_[*call_.collections_after], values_[*call_.collections_after + 1]);
    const auto same = [](const Field& left, const Field& right) {
      return left.name == right.name && left.value == right.value;
    };
    if (!call_.fields.empty() && std::ranges::equal(fields, call_.fields, same)) fields.clear();
    return fields;
  }

 private:
  // Collections of different length show what there is: the shorter one's entries are missing.
  static std::vector<Field> collected(const Value& names, const Value& values) {
    const std::vector<Value> name_items = items_of(names);
    const std::vector<Value> value_items = items_of(values);
    std::vector<Field> fields(std::max(name_items.size(), value_items.size()));
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (i < name_items.size()) fields[i].name = shown_text(name_items[i]);
      fields[i].value = i < value_items.size() ? value_items[i] : Value(automation::Missing{});
    }
    return fields;
  }

  static std::vector<Value> items_of(const Value& collection) {
    const Object object = automation::to_object(collection);
    if (!object) return {};
    const std::int32_t count = automation::to_int32(object.get("Count"));
    const automation::BoundMember item(object, "Item");
    std::vector<Value> items;
    for (std::int32_t i = 1; i <= count; ++i) items.push_back(item.call(i));
    return items;
  }

  const Call& call_;
  std::vector<Value> values_;
};

// Errors that an object raises because of what it was handed, before it does anything.
bool blames_arguments(const Error& error) {
  switch (error.number()) {
    case error_number::type_mismatch:
    case error_number::no_such_named_argument:
    case error_number::argument_not_optional:
    case error_number::wrong_argument_count: return true;
    default: return error.argument() > 0;
  }
}

std::string argument_message(const Error& error, const Call& call, const std::vector<Value>& values) {
  std::string message =
      (call.prog_id + " " + call.member + ": ").append(without_passwords(error.description()));
  const auto position = static_cast<std::size_t>(std::max(error.argument(), 0));
  if (position == 0) {
    const std::size_t count = values.size();
    message += " (" + std::to_string(count) + (count == 1 ? " argument was" : " arguments were") + " given)";
  } else if (position > values.size()) {
    message += " (argument " + std::to_string(position) + " was not given)";
  } else {
    const Value& value = values[position - 1];
    message += " (argument " + std::to_string(position) + ", " + std::string(type_name(value)) + " '" +
               shown_text(value) + "')";
  }
  return message + usage_hint(call.prog_id, call.member);
}

// Whether the object says that the member is none to be called or read. A method of ours may well be called;
// such an error is its own, raised by what it has done.
bool refuses_member(const Error& error, const Call& call) {
  return error.number() == error_number::no_such_member && !is_method(call.prog_id, call.member);
}

// The result or the error that the method has raised.
void invoke(const Object& object, MemberId member, ArgumentList& arguments, const Call& call,
            Outcome& outcome) {
  const std::vector<Value> given = arguments.values();
  try {
    outcome.result = arguments.pass_to(object, member);
  } catch (const Error& error) {
    if (refuses_member(error, call))
      throw UsageError((call.prog_id + " " + call.member + " cannot be called: ")
                           .append(without_passwords(error.description())));
    if (blames_arguments(error)) throw UsageError(argument_message(error, call, given));
    outcome.raised = error;
  }
}

// Nothing for a class that has no such property.
std::optional<Value> property_if_any(const Object& object, std::string_view name) {
  try {
    return object.get(name);
  } catch (const Error& error) {
    if (error.number() != error_number::no_such_member) throw;
    return std::nullopt;
  }
}

void read_error_fields(const Object& object, Outcome& outcome) {
  try {
    if (const auto number = property_if_any(object, "ErrNumber"))
      outcome.error_number = automation::to_double(*number);
    if (const auto description = property_if_any(object, "ErrDescription"))
      outcome.error_description = without_passwords(shown_text(*description));
  } catch (const Error&) {
    // An object that is gone fails here once more; what counts is how it failed first.
    if (!outcome.raised) throw;
  }
}

}  // namespace

bool Outcome::succeeded() const {
  if (raised) return false;
  if (error_number && *error_number != 0) return false;
  const auto* answer = result.get_if<float>();
  return !answer || *answer != 0 || automation::equals_folded(member, "ErrNumber");
}

Outcome run_call(const Call& call, const Session& session) {
  const Object object = create_object(call.prog_id);
  const MemberId member = resolve_member(object, call);
  set_session(object, call.prog_id, session);

  ArgumentList arguments(call);
  Outcome outcome;
  outcome.prog_id = call.prog_id;
  outcome.member = call.member;
  invoke(object, member, arguments, call, outcome);
  read_error_fields(object, outcome);
  outcome.returned_arguments = arguments.returned_arguments();
  outcome.fields = arguments.returned_fields();
  return outcome;
}

}  // namespace tallyra::client
