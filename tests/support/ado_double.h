#pragma once

#include "automation/member_table.h"
#include "tests/support/ado_script.h"
#include "tests/support/named.h"

namespace tallyra::stage {

// Doubles of ADO's objects, in the states and with the errors of the real ones, that tell a script every call
// by their names, C1, C2, R1 and so on, and answer what it says.
class ConnectionDouble : public automation::Implements<ConnectionDouble>, public Named {
 public:
  explicit ConnectionDouble(AdoScript& script);
  ~ConnectionDouble() override;
  static const automation::MemberTable<ConnectionDouble>& members();

  automation::Value open(automation::Arguments arguments);
  automation::Value execute(automation::Arguments arguments);
  automation::Value begin(automation::Arguments arguments);
  automation::Value commit(automation::Arguments arguments);
  automation::Value roll_back(automation::Arguments arguments);
  automation::Value close(automation::Arguments arguments);
  automation::Value state();
  automation::Value command_timeout();
  void set_command_timeout(const automation::Value& value);
  automation::Value properties();

  bool is_open() const { return open_; }

 private:
  void require_open() const;

  AdoScript& script_;
  bool open_ = false;
  bool in_transaction_ = false;
};

class RecordsetDouble : public automation::Implements<RecordsetDouble>, public Named {
 public:
  explicit RecordsetDouble(AdoScript& script);
  ~RecordsetDouble() override;
  static const automation::MemberTable<RecordsetDouble>& members();

  automation::Value open(automation::Arguments arguments);
  automation::Value close(automation::Arguments arguments);
  automation::Value at_end();
  automation::Value move_first(automation::Arguments arguments);
  automation::Value move_last(automation::Arguments arguments);
  automation::Value move_next(automation::Arguments arguments);
  automation::Value fields();
  automation::Value cursor_location();
  void set_cursor_location(const automation::Value& value);
  // A let is for a connection string, which nobody has here; a connection or none is set by reference.
  static automation::Value use_active_connection(RecordsetDouble& recordset, automation::Access access,
                                                 automation::Arguments arguments);

  // Is open on these rows, as Execute hands one back.
  void stand_on(Rows rows);
  AdoScript& script() { return script_; }
  const Rows& rows() const { return *rows_; }
  automation::Value value_of(std::size_t column) const;

 private:
  void require_open() const;
  automation::Value move(const char* how, std::size_t row);

  AdoScript& script_;
  const Rows* rows_ = nullptr;
  Rows own_rows_;
  bool client_side_ = false;
  std::size_t row_ = 0;
};

}  // namespace tallyra::stage
