#include "standins/corvane/power_check.h"

#include "automation/convert.h"
#include "standins/corvane/statement.h"

namespace tallyra::standins::corvane {

const automation::MemberTable<PowerCheck>& PowerCheck::members() {
  using automation::method;
  using automation::property;
  using automation::write_only;
  static const automation::MemberTable<PowerCheck> table{
      {1, "Language", write_only<&PowerCheck::set_language>},
      {2, "ConnectionString", write_only<&PowerCheck::set_connection_string>},
      {3, "UserID", write_only<&PowerCheck::set_user>},
      {4, "SystemDatabase", write_only<&PowerCheck::set_database_kind>},
      {5, "PowerCheck", method<&PowerCheck::power_check>},
      {6, "CanInsert", property<&PowerCheck::right<&Rights::can_insert>>},
      {7, "CanUpdate", property<&PowerCheck::right<&Rights::can_update>>},
      {8, "CanDelete", property<&PowerCheck::right<&Rights::can_delete>>},
      {9, "CanApproved", property<&PowerCheck::right<&Rights::can_approved>>},
      {10, "CanUnapproved", property<&PowerCheck::right<&Rights::can_unapproved>>},
      {11, "CanCancel", property<&PowerCheck::right<&Rights::can_cancel>>},
      {12, "CanFinished", property<&PowerCheck::right<&Rights::can_finished>>},
      {13, "Owner", property<&PowerCheck::right<&Rights::owner>>},
      {14, "GetInsertSQL", method<&PowerCheck::insert_sql>},
      {15, "GetUpdateSQL", method<&PowerCheck::update_sql>},
      {16, "ErrNumber", property<&PowerCheck::err_number>},
      {17, "ErrDescription", property<&PowerCheck::err_description>},
      {18, "RightsTable", property<&PowerCheck::rights_table>},
  };
  return table;
}

// The texts of this class are English in every language; the value is only tested for being a text.
void PowerCheck::set_language(const automation::Value& language) {
  automation::to_text(language);
}

void PowerCheck::set_connection_string(const automation::Value& connection_string) {
  connection_string_ = automation::to_text(connection_string);
}

// Rights belong to the user for whom they were loaded.
void PowerCheck::set_user(const automation::Value& user) {
  user_ = automation::to_text(user);
  rights_ = {};
}

void PowerCheck::set_database_kind(const automation::Value& kind) {
  database_kind_ = automation::to_text(kind);
}

automation::Value PowerCheck::power_check(automation::Arguments arguments) {
  automation::expect_arguments(arguments, 1, 1);
  rights_ = {};
  rights_ = load_rights(connection_string_, user_, automation::to_text(arguments[0].get()));
  return rights_.any() ? 1 : 0;
}

automation::Value PowerCheck::insert_sql(automation::Arguments arguments) {
  return build(arguments, insert_statement);
}

automation::Value PowerCheck::update_sql(automation::Arguments arguments) {
  return build(arguments, update_statement);
}

automation::Value PowerCheck::build(automation::Arguments arguments, Statement statement) {
  automation::expect_arguments(arguments, 4, 4);
  try {
    const std::string table = automation::to_text(arguments[0].get());
    std::string built =
        statement(table, assignments(table, automation::to_object(arguments[1].get()),
                                     automation::to_object(arguments[2].get()),
                                     automation::to_object(arguments[3].get()), dialect_of(database_kind_)));
    // Last: a collection may have had another statement built meanwhile, and that one may have failed.
    err_number_ = 0;
    err_description_.clear();
    return built;
  } catch (const automation::Error& error) {
    err_number_ = error.number();
    err_description_ = error.description();
    return "";
  }
}

}  // namespace tallyra::standins::corvane
