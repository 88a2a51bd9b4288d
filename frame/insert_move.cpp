#include "frame/insert_move.h"

#include "automation/convert.h"

namespace tallyra::frame {
namespace {

void require_right_to_insert(Call& call, InsertMove::Grant grant) {
  const bool granted = grant == InsertMove::Grant::equal_to_one
                           ? call.has_right("CanInsert")
                           : automation::exceeds_number(collaborators().rights.get("CanInsert"), 0);
  if (!granted) call.refuse(message::no_right);
}

}  // namespace

void insert_row(Call& call, const FieldCollections& fields, const InsertMove& move) {
  call.require_fields(fields);
  call.power_check(move.function_code);
  require_right_to_insert(call, move.grant);

  call.open_connection();
  if (move.before_existing) move.before_existing();
  Recordset& recordset = call.recordset();
  recordset.set_cursor_location(CursorLocation::server);
  recordset.open(move.existing, call.connection, CursorType::static_copy);
  if (!recordset.at_end()) call.refuse(message::already_exists);

  const automation::Value statement = call.insert_statement(move.table, fields);
  recordset.close();
  write(call, move.transaction, [&] {
    call.connection.execute(statement);
    if (move.also) move.also();
  });
}

}  // namespace tallyra::frame
