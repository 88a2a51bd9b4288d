#pragma once

#include <string>
#include <vector>

#include "automation/member_table.h"
#include "standins/corvane/assignment.h"
#include "standins/corvane/rights.h"

namespace tallyra::standins::corvane {

// Corvane.CPowerCheck: the rights of a user, and statements built from columns and values.
//
// The session goes in through Language, ConnectionString, UserID and SystemDatabase, all write-only.
// PowerCheck(code) loads the rights that CanInsert, CanUpdate, CanDelete, CanApproved, CanUnapproved,
// CanCancel, CanFinished and Owner then give as 32-bit integers; they are 0 before, and after a PowerCheck
// that failed. GetInsertSQL and GetUpdateSQL never raise an error: they give an empty text, and ErrNumber and
// ErrDescription the reason.
class PowerCheck : public automation::Implements<PowerCheck> {
 public:
  static const automation::MemberTable<PowerCheck>& members();

  void set_language(const automation::Value& language);
  void set_connection_string(const automation::Value& connection_string);
  void set_user(const automation::Value& user);
  void set_database_kind(const automation::Value& kind);

  // The name of the table in which the rights stand: who may write there tells a library that keeps them
  // elsewhere from this one by it.
  automation::Value rights_table() { return std::string(rights_table_name); }
  // 1 when there is any right under the function code, else 0. Raises what the database raises.
  automation::Value power_check(automation::Arguments arguments);
  template <std::int32_t Rights::*Right>
  automation::Value right() {
    return rights_.*Right;
  }

  // Table name, column names, values, recordset on the table.
  automation::Value insert_sql(automation::Arguments arguments);
  automation::Value update_sql(automation::Arguments arguments);
  automation::Value err_number() { return err_number_; }
  automation::Value err_description() { return err_description_; }

 private:
  using Statement = std::string (*)(std::string_view table, const std::vector<Assignment>& assignments);
  automation::Value build(automation::Arguments arguments, Statement statement);

  std::string connection_string_;
  std::string user_;
  std::string database_kind_;
  Rights rights_;
  std::int32_t err_number_ = 0;
  std::string err_description_;
};

}  // namespace tallyra::standins::corvane
