#include "standins/corvane/system_services.h"

#include "automation/convert.h"
#include "standins/corvane/document_database.h"
#include "standins/corvane/document_number.h"
#include "standins/corvane/failure.h"
#include "standins/corvane/issued_documents.h"
#include "standins/corvane/key_counter.h"
#include "standins/corvane/part_cost.h"

namespace tallyra::standins::corvane {
namespace {

using automation::Arguments;
using automation::Error;
using automation::Value;

[[noreturn]] void refuse_shape() {
  throw Error(
      failure::bad_key_request,
      "A document number is asked for with type, key column and key, or with year, month and day as well.");
}

std::int32_t date_part(const Value& value) {
  try {
    return automation::to_int32(value);
  } catch (const Error&) {
    throw Error(failure::bad_key_date, "Year, month and day of a document number must be numbers.");
  }
}

automation::CivilTime day_of(Arguments parts) {
  automation::CivilTime day;
  day.year = date_part(parts[0].get());
  day.month = date_part(parts[1].get());
  day.day = date_part(parts[2].get());
  if (!automation::date_from_civil(day))
    throw Error(failure::bad_key_date, "There is no day " + std::to_string(day.year) + "/" +
                                           std::to_string(day.month) + "/" + std::to_string(day.day) + ".");
  return day;
}

std::string word(const Value& value) {
  const auto* text = value.get_if<std::string>();
  if (!text) refuse_shape();
  return automation::trimmed(*text);
}

Series series_of(Arguments arguments) {
  std::size_t given = arguments.size();
  while (given > 0 && arguments[given - 1].get().is_missing()) --given;
  // A key that is itself missing does not matter: it is only written.
  if (arguments.size() >= 3 && given < 3) given = 3;
  if (given != 3 && given != 6) refuse_shape();
  const std::string type = word(arguments[0].get());
  return given == 3 ? Series::running(type) : Series::daily(type, day_of(arguments.subspan(3, 3)));
}

// The cost functions differ in the place of the connection only.
struct CostRequest {
  CostRequest(Arguments arguments, std::size_t connection_at)
      : part((automation::expect_arguments(arguments, 5, 5), automation::to_text(arguments[0].get()))),
        until(automation::to_text(arguments[1].get())),
        after(automation::to_text(arguments[2].get())),
        connection(automation::to_object(arguments[connection_at].get())) {}

  Period period() const { return {after, until}; }

  std::string part;
  std::string until;
  std::string after;
  automation::Object connection;
};

}  // namespace

const automation::MemberTable<SystemServices>& SystemServices::members() {
  using automation::method;
  using automation::property;
  using automation::write_only;
  static const automation::MemberTable<SystemServices> table{
      {1, "Language", write_only<&SystemServices::accept_text>},
      {2, "ConnectionString", write_only<&SystemServices::set_connection_string>},
      {3, "UserID", write_only<&SystemServices::accept_text>},
      {4, "DatabaseName", write_only<&SystemServices::accept_text>},
      {5, "GetTableKeyID", method<&SystemServices::table_key_id>},
      {6, "ErrNumber", property<&SystemServices::err_number>},
      {7, "ErrDescription", property<&SystemServices::err_description>},
      {8, "GetPartCost", method<&SystemServices::part_cost>},
      {9, "GetLastUprice", method<&SystemServices::last_uprice>},
      {10, "GetAvgUprice", method<&SystemServices::avg_uprice>},
  };
  return table;
}

void SystemServices::set_connection_string(const Value& connection_string) {
  connection_string_ = automation::to_text(connection_string);
}

void SystemServices::accept_text(const Value& text) {
  automation::to_text(text);
}

Value SystemServices::table_key_id(Arguments arguments) {
  err_number_ = 0;
  err_description_.clear();
  try {
    std::string key = next_key(arguments);
    arguments[2].set(std::move(key));
    return 1;
  } catch (const Error& error) {
    err_number_ = error.number();
    err_description_ = error.description();
    return 0;
  }
}

std::string SystemServices::next_key(Arguments arguments) const {
  const Series series = series_of(arguments);
  const std::string key_column = word(arguments[1].get());
  document_table(key_column);
  if (connection_string_.empty())
    throw Error(failure::no_key_database, "No connection string is set to issue document numbers with.");
  try {
    const DocumentDatabase documents(connection_string_);
    const std::int32_t highest = highest_stored_counter(documents.connection(), key_column, series);
    const automation::Object counters = documents.open_counters();
    std::string number = series.number(take_next_counter(counters, series, highest));
    counters.call("Close");
    return number;
  } catch (const Error& error) {
    if (error.number() == failure::series_exhausted) throw;
    throw Error(
        failure::key_database_failed,
        ("No document number could be issued for " + series.prefix() + ": ").append(error.description()));
  }
}

Value SystemServices::part_cost(Arguments arguments) {
  const CostRequest request(arguments, 4);
  return production_cost(request.connection, request.part, request.period());
}

Value SystemServices::last_uprice(Arguments arguments) {
  const CostRequest request(arguments, 3);
  return last_purchase_price(request.connection, request.part, request.until);
}

Value SystemServices::avg_uprice(Arguments arguments) {
  const CostRequest request(arguments, 3);
  return average_purchase_price(request.connection, request.part, request.period());
}

}  // namespace tallyra::standins::corvane
