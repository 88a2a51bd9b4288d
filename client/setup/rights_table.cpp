#include "client/setup/rights_table.h"

#include "automation/convert.h"
#include "client/refusal.h"
#include "client/setup/functions.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

std::string table_of(VerbContext& context) {
  const auto table = RightsLibrary(context.session(), context.user()).table();
  if (!table)
    throw Refusal(
        "the installed Corvane keeps rights in a place of its own, not in a table of this database: grant "
        "and "
        "revoke them with the administration of the suite that it belongs to; 'rights USER' shows what it "
        "answers");
  return *table;
}

bool is_one(const automation::Value& value) {
  if (const bool* yes = value.get_if<bool>()) return *yes;
  return !value.is_null() && automation::equals_number(value, 1);
}

std::string condition_for(const RightsRow& row) {
  return " Where USERID=" + Reader::text_literal(row.user) +
         " And FUNCCODE=" + Reader::text_literal(row.function);
}

}  // namespace

RightsTable::RightsTable(VerbContext& context) : reader_(context.reader()), table_(table_of(context)) {
  if (!reader_.has_table(table_))
    throw Refusal("the database has no table " + table_ +
                  ": 'upgrade' adds what is missing, 'init' sets up a new one");
}

std::vector<RightsRow> RightsTable::rows() const {
  std::string columns;
  for (const RightName& right : right_names()) columns.append(",").append(right.column);
  std::vector<RightsRow> rows;
  reader_.each_row("Select USERID,FUNCCODE" + columns + " From " + table_ + " Order By USERID,FUNCCODE",
                   [&](const Row& read) {
                     RightsRow row{automation::to_text(read[0]), automation::to_text(read[1]), {}};
                     for (std::size_t i = 2; i < read.size(); ++i) row.flags.push_back(is_one(read[i]));
                     rows.push_back(std::move(row));
                   });
  return rows;
}

std::optional<RightsRow> RightsTable::find(const std::string& user, const std::string& function) const {
  for (RightsRow& row : rows())
    if (automation::trimmed(row.user) == user && automation::trimmed(row.function) == function)
      return std::move(row);
  return std::nullopt;
}

void RightsTable::write(const RightsRow& row) const {
  const auto names = right_names();
  std::string assignments;
  std::string columns;
  std::string values;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string value = row.flags[i] ? "1" : "0";
    assignments.append(i == 0 ? "" : ",").append(names[i].column).append("=").append(value);
    columns.append(",").append(names[i].column);
    values.append(",").append(value);
  }
  if (find(automation::trimmed(row.user), automation::trimmed(row.function)))
    reader_.execute("Update " + table_ + " Set " + assignments + condition_for(row));
  else
    reader_.execute("Insert Into " + table_ + "(USERID,FUNCCODE" + columns + ") Values(" +
                    Reader::text_literal(row.user) + "," + Reader::text_literal(row.function) + values + ")");
}

void RightsTable::remove(const RightsRow& row) const {
  reader_.execute("Delete From " + table_ + condition_for(row));
}

std::string flags_text(const RightFlags& flags) {
  std::string text;
  for (std::size_t i = 0; i < flags.size(); ++i)
    if (flags[i]) text.append(text.empty() ? "" : ", ").append(right_names()[i].word);
  return text.empty() ? "nothing" : text;
}

std::optional<std::string> refusal_of_user_name(const std::string& user) {
  constexpr std::size_t longest = 50;
  if (user.empty() || user != automation::trimmed(user))
    return "a user's name has no blanks around it and is not empty";
  if (user.find('\'') != std::string::npos)
    return "a user's name cannot have an apostrophe: the statements of the classes cannot bear it";
  if (user.size() > longest) return "a user's name has at most 50 characters";
  return std::nullopt;
}

void require_user_name(const std::string& user) {
  if (const auto refusal = refusal_of_user_name(user)) throw UsageError(*refusal);
}

}  // namespace tallyra::client
