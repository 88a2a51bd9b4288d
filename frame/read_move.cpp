#include "frame/read_move.h"

#include <utility>

#include "automation/collection.h"
#include "automation/convert.h"
#include "frame/lazy_member.h"

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

}  // namespace

void read_row(Call& call, const FieldCollections& fields, const ReadMove& move) {
  call.open_connection();
  Recordset& recordset = call.recordset();
  recordset.set_cursor_location(CursorLocation::server);
  recordset.open(move.statement, call.connection, CursorType::static_copy);
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

}  // namespace tallyra::frame
