#include "frame/owner.h"

#include <utility>

#include "automation/convert.h"
#include "frame/schema/names.h"
#include "frame/sql.h"

namespace tallyra::frame {
namespace {

bool is_owner(const Call& call, const Recordset& rows) {
  const std::string owner = text_of(rows.value(schema::column::created_by));
  return automation::trimmed(call.user_id()) == automation::trimmed(owner);
}

bool passes(Call& call, const OwnerTest& test) {
  if (test.statement.empty() || !call.has_right("Owner")) return false;
  call.open_connection();
  Recordset& rows = call.recordset();
  if (test.location) rows.set_cursor_location(*test.location);
  rows.open(test.statement, call.connection, test.cursor);
  if (!rows.at_end()) {
    if (test.row == OwnerTest::Row::last) rows.move_last();
    if (!is_owner(call, rows)) return false;
    rows.close();
  } else if (test.missing_row == OwnerTest::MissingRow::closed) {
    rows.close();
  }
  return true;
}

}  // namespace

OwnerTest closed_owner_test(std::string owner_query, CursorType cursor,
                            std::optional<CursorLocation> location) {
  OwnerTest test(std::move(owner_query), cursor);
  test.location = location;
  test.missing_row = OwnerTest::MissingRow::closed;
  return test;
}

void require_right_or_owner(Call& call, std::string_view right, const OwnerTest& test) {
  if (call.has_right(right)) return;
  if (!passes(call, test)) call.refuse(message::no_right);
}

}  // namespace tallyra::frame
