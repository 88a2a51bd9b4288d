#include "client/stocktaking/approval.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "automation/clock.h"
#include "automation/convert.h"
#include "automation/create.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/refusal.h"
#include "client/verbs/context.h"

namespace tallyra::client {
namespace {

using automation::Date;
using automation::Value;

constexpr double second = 1.0 / (24 * 60 * 60);

std::optional<Value> column_of(const Outcome& read, std::string_view name) {
  const auto found = std::ranges::find_if(
      read.fields, [&](const Field& field) { return automation::equals_folded(field.name, name); });
  return found == read.fields.end() ? std::nullopt : std::optional(found->value);
}

Outcome read_header(const VerbContext& context, const std::string& number) {
  return context.call({"Tallyra.CCheckHead", "Read", {number}, 1, {}});
}

bool is_moment(const std::optional<Value>& value, Date moment) {
  return value && value->holds<Date>() &&
         std::fabs(value->get_if<Date>()->serial - moment.serial) < second / 2;
}

// Another one than the header has: it tells this change from every earlier one.
Date new_moment(const Outcome& header) {
  Date moment = automation::now();
  if (is_moment(column_of(header, "STATUSDT"), moment)) moment.serial += second;
  return moment;
}

bool is_stored(const Outcome& header, int status, Date moment) {
  const auto stored = column_of(header, "STATUSSN");
  return stored && !stored->is_null() && automation::to_int32(*stored) == status &&
         is_moment(column_of(header, "STATUSDT"), moment);
}

Value issued_number(const Session& session) {
  const automation::Object system = automation::create("Corvane.CSystem");
  system.put("Language", session.language.value_or(""));
  system.put("ConnectionString", *session.connection_string);
  system.put("UserID", session.user.value_or(""));
  system.put("DatabaseName", session.database_kind);
  const automation::CivilTime day = automation::civil_time(automation::now());
  Value number{std::string()};
  system.call("GetTableKeyID", "STKCHECKISS", "TRANNO", automation::ref(number),
              static_cast<std::int16_t>(day.year), static_cast<std::int16_t>(day.month),
              static_cast<std::int16_t>(day.day));
  if (automation::to_text(number).empty())
    throw automation::Error(automation::to_int32(system.get("ErrNumber")),
                            automation::to_text(system.get("ErrDescription")));
  return number;
}

}  // namespace

void require_posting_number(const VerbContext& context) {
  try {
    issued_number(context.session());
  } catch (const automation::Error& error) {
    throw Refusal("no number is issued for the posting (error " + std::to_string(error.number()) + ": " +
                  std::string(error.description()) +
                  "). It would be stored under no number and count several times over; nothing was done");
  }
}

StatusChange change_status(const VerbContext& context, const std::string& number, bool approve) {
  const int status = approve ? 1 : 0;
  const Date moment = new_moment(read_header(context, number));
  Call call{"Tallyra.CCheckHead", "Update", {number, approve ? "APPROVED" : "UNAPPROVED"}, 1, {}};
  call.fields = {{"STATUS", approve ? "APPROVED" : "OPEN"},
                 {"STATUSSN", status},
                 {"STATUSBY", context.user()},
                 {"STATUSDT", moment}};
  StatusChange change;
  change.outcome = context.call(call);
  change.stored = is_stored(read_header(context, number), status, moment);
  return change;
}

}  // namespace tallyra::client
