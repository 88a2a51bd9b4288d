#include "standins/corvane/rights.h"

#include "automation/convert.h"
#include "standins/corvane/database.h"

namespace tallyra::standins::corvane {
namespace {

struct RightColumn {
  const char* name;
  std::int32_t Rights::*right;
};

constexpr RightColumn right_columns[] = {
    {"CANINSERT", &Rights::can_insert},         {"CANUPDATE", &Rights::can_update},
    {"CANDELETE", &Rights::can_delete},         {"CANAPPROVED", &Rights::can_approved},
    {"CANUNAPPROVED", &Rights::can_unapproved}, {"CANCANCEL", &Rights::can_cancel},
    {"CANFINISHED", &Rights::can_finished},     {"OWNER", &Rights::owner},
};

constexpr std::string_view anybody = "*";
constexpr int no_match = -1;

// A yes/no column says True, which is -1 as a number.
std::int32_t right_of(const automation::Value& value) {
  if (const bool* yes = value.get_if<bool>()) return *yes ? 1 : 0;
  return value.is_null() ? 0 : automation::to_int32(value);
}

std::string trimmed_text(const automation::Value& value) {
  return value.is_null() ? std::string() : automation::trimmed(automation::to_text(value));
}

// How exactly a stored user or code fits the wanted one: 1 exactly, 0 as the default, no_match not at all.
int exactness(const automation::Value& stored, std::string_view wanted) {
  const std::string text = trimmed_text(stored);
  return text == wanted ? 1 : text == anybody ? 0 : no_match;
}

// The database may ignore case or blanks where this system does not, so the rows are judged once more here.
std::string rights_query(std::string_view user, std::string_view code) {
  return "Select * From " + std::string(rights_table_name) +
         " Where (LTRIM(RTRIM(USERID))=" + quoted_text(user) +
         " Or USERID='*') And (LTRIM(RTRIM(FUNCCODE))=" + quoted_text(code) + " Or FUNCCODE='*')";
}

}  // namespace

bool Rights::any() const {
  for (const RightColumn& column : right_columns)
    if (this->*column.right != 0) return true;
  return false;
}

Rights load_rights(const std::string& connection_string, std::string_view user,
                   std::string_view function_code) {
  const std::string wanted_user = automation::trimmed(user);
  const std::string wanted_code = automation::trimmed(function_code);
  const automation::Object connection = open_connection(connection_string);
  const Query rows(connection, rights_query(wanted_user, wanted_code));
  Rights rights;
  int best = no_match;
  for (; !rows.at_end(); rows.move_next()) {
    const int user_fit = exactness(rows.value("USERID"), wanted_user);
    const int code_fit = exactness(rows.value("FUNCCODE"), wanted_code);
    if (user_fit == no_match || code_fit == no_match) continue;
    const int rank = 2 * user_fit + code_fit;
    if (rank <= best) continue;
    best = rank;
    for (const RightColumn& column : right_columns) rights.*column.right = right_of(rows.value(column.name));
  }
  rows.close();
  connection.call("Close");
  return rights;
}

}  // namespace tallyra::standins::corvane
