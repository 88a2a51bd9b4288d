#include "company/cell_literal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "automation/convert.h"
#include "automation/date.h"
#include "company/options.h"
#include "standins/corvane/database.h"

namespace tallyra::company {
namespace {

using automation::Value;

[[noreturn]] void refuse(const schema::Column& column, const Value& value, std::string_view what) {
  throw Refusal(std::string(column.name) + " holds '" + automation::to_text(value) + "', which is no " +
                std::string(what));
}

void append_number(std::string& out, const schema::Column& column, const Value& value) {
  if (value.is_text()) refuse(column, value, "number");
  const double number = automation::to_double(value);
  if (!std::isfinite(number)) refuse(column, value, "number");
  std::array<char, 32> text{};
  // Adding 0 makes a plain 0 of -0, which an integer column does not have.
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number + 0.0).ptr;
  out.append(text.data(), end);
}

void append_date(std::string& out, const schema::Column& column, const Value& value) {
  const auto* date = value.get_if<automation::Date>();
  if (!date) refuse(column, value, "date");
  std::string text;
  automation::append_time_stamp(text, *date);
  std::ranges::replace(text, '/', '-');
  out.append("'").append(text).append("'");
}

}  // namespace

void append_literal(std::string& out, const schema::Column& column, const Value& value) {
  if (value.is_null()) {
    out += "NULL";
    return;
  }
  switch (column.kind) {
    case schema::Kind::number:
    case schema::Kind::integer: append_number(out, column, value); break;
    case schema::Kind::date: append_date(out, column, value); break;
    case schema::Kind::text: standins::corvane::append_quoted(out, automation::to_text(value)); break;
  }
}

}  // namespace tallyra::company
