#pragma once

#include <string>

#include "automation/member_table.h"

namespace tallyra::standins::corvane {

// Corvane.CSystem: document numbers and part costs.
//
// The session goes in through Language, ConnectionString, UserID and DatabaseName, all write-only.
//
// GetTableKeyID(type, key column, key) and GetTableKeyID(type, key column, key, year, month, day) issue the
// next document number of the type, or of the type and the day, and write it into the third argument. The
// result is 1; or 0 when no number could be issued: then the third argument is as it was, and ErrNumber and
// ErrDescription say why. It raises no error.
//
// The cost functions take five arguments each and give a double; they read over the connection that is handed
// in, keep no hold of it, and raise what the database raises:
//   GetPartCost(part, close date, previous close date, quantity, connection)
//   GetLastUprice(part, close date, previous close date, connection, material type)
//   GetAvgUprice(part, close date, previous close date, connection, material type)
class SystemServices : public automation::Implements<SystemServices> {
 public:
  static const automation::MemberTable<SystemServices>& members();

  void set_connection_string(const automation::Value& connection_string);
  // Neither numbers nor costs depend on the language, the user or the database kind.
  void accept_text(const automation::Value& text);

  automation::Value table_key_id(automation::Arguments arguments);
  automation::Value err_number() { return err_number_; }
  automation::Value err_description() { return err_description_; }

  automation::Value part_cost(automation::Arguments arguments);
  automation::Value last_uprice(automation::Arguments arguments);
  automation::Value avg_uprice(automation::Arguments arguments);

 private:
  std::string next_key(automation::Arguments arguments) const;

  std::string connection_string_;
  std::int32_t err_number_ = 0;
  std::string err_description_;
};

}  // namespace tallyra::standins::corvane
