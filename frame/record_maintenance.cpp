#include "frame/record_maintenance.h"

#include <utility>

#include "automation/collection.h"
#include "automation/convert.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"

namespace tallyra::frame {
namespace {

using automation::BoundMember;
using automation::Object;
using automation::Value;

// Appends the fields of the current row one by one: each is the collections' before the next is read.
void append_row(const Recordset& recordset, const FieldCollections& collections) {
  const Object fields = recordset.fields();
  const std::int32_t count = automation::to_int32(fields.get("Count"));
  const BoundMember item(fields, "Item");
  LazyMember add_name("Add");
  LazyMember add_value("Add");
  for (std::int32_t i = 0; i < count; ++i) {
    const Object field = automation::to_object(item.call(i));
    const Value name = field.get("Name");
    add_name.of(collections.names).call(name);
    const Value value = field.get("Value");
    add_value.of(collections.values).call(value);
  }
}

bool passes_owner_test(Call& call, const OwnerTest& test) {
  if (test.statement.empty() || !call.has_right("Owner")) return false;
  call.open_connection();
  Recordset& recordset = call.recordset();
  if (test.location) recordset.set_cursor_location(*test.location);
  recordset.open(std::string(test.statement), call.connection, test.cursor);
  if (!recordset.at_end()) {
    if (test.row == OwnerTest::Row::last) recordset.move_last();
    std::string owner;
    automation::append_concatenated(owner, recordset.value(schema::column::created_by));
    if (automation::trimmed(call.user_id()) != automation::trimmed(owner)) return false;
    recordset.close();
  } else if (test.then == OwnerTest::Then::open_if_closed) {
    recordset.close();
  }
  return true;
}

void require_right_or_owner(Call& call, std::string_view right, const OwnerTest& test) {
  if (call.has_right(right)) return;
  if (!passes_owner_test(call, test)) call.refuse(message::no_right);
}

// The right of a status operation; none for an edit.
std::optional<std::string_view> right_of_its_own(std::string_view operation_tag) {
  if (operation_tag == schema::operation_tag::approved) return "CanApproved";
  if (operation_tag == schema::operation_tag::unapproved) return "CanUnapproved";
  if (operation_tag == schema::operation_tag::cancel) return "CanCancel";
  if (operation_tag == schema::operation_tag::finished) return "CanFinished";
  return std::nullopt;
}

void require_right_to_update(Call& call, const UpdateMove& move) {
  if (const auto right = right_of_its_own(move.operation_tag))
    require_right_or_owner(call, *right, {});
  else
    require_right_or_owner(call, "CanUpdate", move.owner);
}

void open_for_writing(Call& call, const OwnerTest& test) {
  if (test.then == OwnerTest::Then::open_again || !call.connection.is_open()) call.open_connection();
}

}  // namespace

void read_row(Call& call, const FieldCollections& fields, const ReadMove& move) {
  call.open_connection();
  Recordset& recordset = call.recordset();
  recordset.set_cursor_location(CursorLocation::server);
  recordset.open(std::string(move.statement), call.connection, CursorType::static_copy);
  const bool replace = move.fill == ReadMove::Fill::replace;
  Object names = replace ? automation::make_object<automation::Collection>() : fields.names;
  Object values = replace ? automation::make_object<automation::Collection>() : fields.values;
  if (recordset.at_end()) {
    call.report(message::not_found);
  } else {
    if (move.count_rows) recordset.move_last();
    recordset.move_first();
    append_row(recordset, {names, values});
  }
  recordset.close();
  call.connection.close();
  if (!replace) return;
  fields.names = std::move(names);
  fields.values = std::move(values);
}

void insert_row(Call& call, const FieldCollections& fields, const InsertMove& move) {
  call.require_fields(fields);
  call.power_check(move.function_code);
  const bool granted = move.grant == InsertMove::Grant::equal_to_one
                           ? call.has_right("CanInsert")
                           : automation::exceeds_number(collaborators().rights.get("CanInsert"), 0);
  if (!granted) call.refuse(message::no_right);

  call.open_connection();
  if (move.before_existing) move.before_existing(call);
  Recordset& recordset = call.recordset();
  recordset.set_cursor_location(CursorLocation::server);
  recordset.open(std::string(move.existing), call.connection, CursorType::static_copy);
  if (!recordset.at_end()) call.refuse(message::already_exists);

  const Value statement = call.insert_statement(move.table, fields);
  recordset.close();
  if (move.in_transaction) call.connection.begin();
  call.connection.execute(statement);
  if (move.also) move.also(call);
  if (move.in_transaction) call.connection.commit();
  call.connection.close();
}

void update_rows(Call& call, const FieldCollections& fields, const UpdateMove& move) {
  call.require_fields(fields);
  call.power_check(move.function_code);
  require_right_to_update(call, move);

  open_for_writing(call, move.owner);
  if (move.before_structure) move.before_structure(call);
  Recordset& recordset = call.recordset();
  if (move.structure_location) recordset.set_cursor_location(*move.structure_location);
  recordset.open(std::string(move.structure), call.connection, move.structure_cursor);
  const Value statement = call.update_statement(move.table, fields).append(move.condition);
  if (move.roll_back_on_error) call.roll_back_on_error();
  recordset.close();
  if (move.in_transaction) call.connection.begin();
  call.connection.execute(statement);
  if (move.also) move.also(call);
  if (move.in_transaction) call.connection.commit();
  call.connection.close();
}

void delete_rows(Call& call, const DeleteMove& move) {
  call.power_check(move.function_code);
  require_right_or_owner(call, "CanDelete", move.owner);

  open_for_writing(call, move.owner);
  if (move.roll_back_on_error) call.roll_back_on_error();
  call.connection.begin();
  for (const auto statement : move.statements) call.connection.execute(statement);
  call.connection.commit();
  call.connection.close();
}

}  // namespace tallyra::frame
