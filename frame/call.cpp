#include "frame/call.h"

#include "automation/convert.h"

namespace tallyra::frame {
namespace {

using automation::Error;
using automation::Object;
using automation::Value;

std::int32_t count(const Object& collection) {
  return automation::to_int32(collection.get("Count"));
}

void take_back(Object& object, const Value& value) {
  const auto* returned = value.get_if<Object>();
  if (!returned) throw Error(automation::error_number::type_mismatch);
  object = *returned;
}

}  // namespace

Call::Call(BusinessObject& object, std::size_t recordsets) : object_(object) {
  for (std::size_t i = 0; i < recordsets; ++i) recordsets_[i].emplace();
}

void Call::prepare() {
  if (!object_.has_set_collaborators_up_) {
    const Session& session = object_.session_;
    InitObjects(session.language, session.system_database, session.connection_string, session.user_id);
    object_.has_set_collaborators_up_ = true;
  }
  set_error(0, {});
}

void Call::report(const Message& message) {
  set_error(message.number, automation::to_text(collaborators().messages.get(message.key)));
}

void Call::refuse(const Message& message) {
  report(message);
  close_all();
  leave();
}

void Call::set_error(float number, std::string description) {
  set_error(object_, number, std::move(description));
}

void Call::set_error(BusinessObject& object, float number, std::string description) {
  // Made first, so that both fields change or none.
  automation::ErrorText text(std::move(description));
  object.error_number_ = number;
  object.error_description_ = std::move(text);
}

void Call::copy_error(Object collaborator) {
  const float number = automation::to_single(collaborator.get("ErrNumber"));
  set_error(number, automation::to_text(collaborator.get("ErrDescription")));
}

void Call::close_all() {
  for (auto& each : recordsets_)
    if (each && each->opened()) each->close();
  if (connection.opened()) connection.close();
}

void Call::leave() {
  throw Left{};
}

void Call::require_fields(const FieldCollections& fields) {
  const std::int32_t names = count(fields.names);
  if (names == 0 || names != count(fields.values)) refuse(message::fields_do_not_match);
}

void Call::power_check(std::string_view function_code) {
  collaborators().rights.call("PowerCheck", function_code);
}

bool Call::has_right(std::string_view right) const {
  return automation::equals_number(collaborators().rights.get(right), 1);
}

std::optional<std::string> Call::try_build(std::string_view builder, std::string_view table,
                                           const FieldCollections& fields, Recordset& structure) {
  const Object rights = collaborators().rights;
  builder_ = rights;
  Value table_name(table);
  Value names(fields.names);
  Value values(fields.values);
  Value source(structure.object());
  std::string statement =
      automation::to_text(rights.call(builder, automation::ref(table_name), automation::ref(names),
                                      automation::ref(values), automation::ref(source)));
  take_back(fields.names, names);
  take_back(fields.values, values);
  Object returned = structure.object();
  take_back(returned, source);
  structure.replace(std::move(returned));
  const Value number = rights.get("ErrNumber");
  if (number.is_null() || automation::equals_number(number, 0)) return statement;
  return std::nullopt;
}

std::string Call::built_statement(std::string_view builder, std::string_view table,
                                  const FieldCollections& fields) {
  auto statement = try_build(builder, table, fields, recordset());
  if (statement) return *std::move(statement);
  copy_builder_error();
  close_all();
  leave();
}

std::string Call::insert_statement(std::string_view table, const FieldCollections& fields) {
  return built_statement("GetInsertSQL", table, fields);
}

std::string Call::update_statement(std::string_view table, const FieldCollections& fields) {
  return built_statement("GetUpdateSQL", table, fields);
}

void Call::trap(const Error& error) noexcept {
  trap(object_, error);
  if (!roll_back_on_error_) return;
  // The error that led here is the one the client is told; a connection that is already broken adds nothing.
  try {
    connection.roll_back();
  } catch (...) {
  }
  try {
    connection.close();
  } catch (...) {
  }
}

void Call::trap(BusinessObject& object, const Error& error) noexcept {
  object.error_number_ = static_cast<float>(error.number());
  object.error_description_ =
      error.description().empty() ? automation::ErrorText::of_literal("Automation error") : error.text();
}

}  // namespace tallyra::frame
