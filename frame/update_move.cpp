#include "frame/update_move.h"

#include <string_view>

#include "frame/schema/codes.h"

namespace tallyra::frame {
namespace {

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

void open_structure(Call& call, const UpdateMove::Structure& structure) {
  Recordset& recordset = call.recordset();
  if (structure.location) recordset.set_cursor_location(*structure.location);
  recordset.open(structure.statement, call.connection, structure.cursor);
}

}  // namespace

void update_rows(Call& call, const FieldCollections& fields, const UpdateMove& move) {
  call.require_fields(fields);
  call.power_check(move.function_code);
  require_right_to_update(call, move);

  open_for_writing(call, move.opening);
  if (move.before_structure) move.before_structure();
  open_structure(call, move.structure);
  const automation::Value statement = call.update_statement(move.table, fields).append(move.condition);
  arm(call, move.transaction);
  call.recordset().close();
  write(call, move.transaction, [&] {
    call.connection.execute(statement);
    if (move.also) move.also();
  });
}

}  // namespace tallyra::frame
