#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "standins/ado/ado_object.h"
#include "standins/ado/cursor.h"
#include "standins/ado/enumerations.h"

namespace tallyra::standins::ado {

class Connection;

// ADODB.Recordset: the rows of a statement, read-only. They are read whole when it opens, whatever the
// cursor: the cursor decides what the client may do and sees. Where a provider would give a lesser cursor
// than asked for, this one gives a static one; a forward-only recordset allows MoveFirst and MoveLast.
class Recordset : public AdoObject<Recordset> {
 public:
  static const automation::MemberTable<Recordset>& members();

  Recordset() = default;
  // What a connection's Execute returns for a statement with rows: forward-only and read-only.
  Recordset(Connection& connection, std::string_view source, std::unique_ptr<RowSet> rows);
  ~Recordset() override;

  automation::Value open(automation::Arguments arguments);
  automation::Value close(automation::Arguments arguments);
  automation::Value requery(automation::Arguments arguments);

  automation::Value fields(automation::Arguments arguments);
  automation::Value is_eof();
  automation::Value is_bof();
  automation::Value move_first(automation::Arguments arguments);
  automation::Value move_last(automation::Arguments arguments);
  automation::Value move_next(automation::Arguments arguments);
  automation::Value move_previous(automation::Arguments arguments);
  automation::Value move(automation::Arguments arguments);
  automation::Value record_count();
  automation::Value absolute_position();
  void set_absolute_position(const automation::Value& value);
  // AddNew, Update, Delete and the like: throws 3251.
  automation::Value refuse_change(automation::Arguments arguments);

  automation::Value state();
  automation::Value active_connection();
  void set_active_connection(const automation::Value& value);
  automation::Value source();
  void set_source(const automation::Value& value);
  automation::Value location();
  void set_location(const automation::Value& value);
  automation::Value type();
  void set_type(const automation::Value& value);
  automation::Value lock();
  void set_lock(const automation::Value& value);

  // The connection that this recordset is open on closes: so does the recordset.
  void close_with_connection();

 private:
  Cursor& cursor() const;
  Connection& usable_connection() const;
  void connect(const automation::Value& value);
  // The rows of the source; none when it is a statement without rows.
  std::unique_ptr<RowSet> fetch(std::int32_t options) const;
  void adopt(std::unique_ptr<RowSet> rows);
  void detach();
  void require_closed() const;

  std::shared_ptr<Cursor> cursor_;  // while open
  automation::Object connection_;   // a Connection, or none
  std::string source_;
  std::optional<CursorLocation> location_;  // the connection's unless set
  CursorType type_ = CursorType::forward_only;
  LockType lock_ = LockType::read_only;
};

}  // namespace tallyra::standins::ado
