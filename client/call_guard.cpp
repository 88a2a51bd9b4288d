#include "client/call_guard.h"

#include <algorithm>

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/catalogue.h"
#include "client/database/reader.h"
#include "client/posting_check.h"
#include "client/record_place.h"
#include "client/strict_number.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

// A text that the platform reads as a number although it is none as it is written here.
const std::string* doubtful_number(const automation::Value& value) {
  const auto* text = value.get_if<std::string>();
  if (!text || text->empty() || strict_number(automation::trimmed(*text))) return nullptr;
  try {
    automation::to_double(value);
    return text;
  } catch (const automation::Error&) {
    return nullptr;
  }
}

std::vector<std::string> numeric_columns(const Session& session, const RecordPlace& place) try {
  const Reader reader(*session.connection_string, session.database_kind);
  return reader.numeric_columns(std::string(place.table), place.key.front());
} catch (const automation::Error&) {
  // The call itself tells what is wrong with the database.
  return {};
}

// A class of ours that was given no database ends in a negative number, the database's own, with a text about
// data sources that nobody has written.
bool lacks_database(const Session& session, const Call& call, const Outcome& outcome) {
  return !session.connection_string && find_class(call.prog_id) && outcome.error_number.value_or(0) < 0;
}

}  // namespace

void CallGuard::before(const Call& call) {
  missing_row_.clear();
  check_numbers(call);
  look_for_row(call);
}

void CallGuard::check_numbers(const Call& call) {
  const RecordPlace* place = record_place(call.prog_id);
  if (!place || !writes_columns(call.member) || !session_.connection_string) return;
  for (const Field& field : call.fields) {
    const std::string* text = doubtful_number(field.value);
    if (!text) continue;
    const auto is_column = [&](const std::string& name) {
      return automation::equals_folded(name, field.name);
    };
    if (std::ranges::any_of(numeric_columns(session_, *place), is_column))
      throw UsageError(field.name + " holds numbers: " + number_refusal(*text) + ". Nothing was written");
  }
}

void CallGuard::look_for_row(const Call& call) {
  const RecordPlace* place = record_place(call.prog_id);
  if (!place || !session_.connection_string) return;
  const std::string condition =
      row_condition(*place, call, session_.database_kind == "MSACCESS" ? '#' : '\'');
  if (condition.empty()) return;
  try {
    if (!connection_) connection_.emplace(*session_.connection_string);
    const std::string table(place->table);
    if (connection_->count("Select Count(*) As N From " + table + condition) == 0)
      missing_row_ = "no such row: there was none in " + table + condition + "; nothing has changed there";
  } catch (const automation::Error&) {
    // The call itself tells what is wrong with the database.
  }
}

std::vector<std::string> CallGuard::after(const Call& call, const Outcome& outcome) const {
  std::vector<std::string> complaints;
  if (lacks_database(session_, call, outcome))
    complaints.emplace_back("no database was given: name one by --db or TALLYRA_DB");
  if (!missing_row_.empty() && outcome.succeeded()) complaints.push_back(missing_row_);
  if (may_have_posted(call, outcome))
    if (std::string complaint = posting_complaint(session_); !complaint.empty())
      complaints.push_back(std::move(complaint));
  return complaints;
}

}  // namespace tallyra::client
