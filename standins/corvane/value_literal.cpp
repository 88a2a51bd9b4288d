#include "standins/corvane/value_literal.h"

#include <cmath>

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/number_text.h"
#include "standins/corvane/database.h"

namespace tallyra::standins::corvane {
namespace {

using automation::Value;
using Literal = std::optional<std::string>;

bool is_blank(const Value& value) {
  const auto* text = value.get_if<std::string>();
  return text && text->find_first_not_of(' ') == std::string::npos;
}

Literal text_literal(const Value& value) {
  const std::string text = automation::to_text(value);
  if (text.find('\0') != std::string::npos) return std::nullopt;
  return quoted_text(text);
}

Literal date_literal(const Value& value, Dialect dialect) {
  std::optional<automation::Date> date;
  if (const auto* given = value.get_if<automation::Date>())
    date = *given;
  else if (const auto* text = value.get_if<std::string>())
    date = automation::parse_date(*text);
  if (!date) return std::nullopt;
  const char delimiter = dialect == Dialect::access ? '#' : '\'';
  std::string literal(1, delimiter);
  automation::append_date(literal, *date);
  return literal += delimiter;
}

Literal boolean_literal(bool value) {
  return value ? "1" : "0";
}

// A plain decimal text keeps all its digits; any other text that is a number goes through a double.
Value number_in(const std::string& text) {
  if (const auto exact = automation::Decimal::parse(automation::trimmed(text))) return *exact;
  return automation::parse_number(text);
}

// The text decides, for it is what reaches the database: 0.1 * 30 is written 3, and 3 it is. With an exponent
// the digits say nothing.
bool is_whole(std::string_view literal, double number) {
  if (literal.find('E') != std::string_view::npos) return number == std::floor(number);
  return literal.find('.') == std::string_view::npos;
}

Literal number_literal(const Value& value, bool whole) {
  if (const auto* text = value.get_if<std::string>()) return number_literal(number_in(*text), whole);
  if (const auto* yes = value.get_if<bool>()) return boolean_literal(*yes);
  if (value.holds<automation::Date>()) return std::nullopt;
  const double number = automation::to_double(value);
  if (!std::isfinite(number)) return std::nullopt;
  std::string literal = automation::to_text(value);
  if (whole && !is_whole(literal, number)) return std::nullopt;
  return literal;
}

Literal literal_of_own_kind(const Value& value, Dialect dialect) {
  if (value.is_text()) return text_literal(value);
  if (value.holds<automation::Date>()) return date_literal(value, dialect);
  return number_literal(value, false);
}

Literal convert(const Value& value, ColumnKind kind, Dialect dialect) {
  switch (kind) {
    case ColumnKind::text: return text_literal(value);
    case ColumnKind::whole_number: return number_literal(value, true);
    case ColumnKind::number: return number_literal(value, false);
    case ColumnKind::boolean: return boolean_literal(automation::to_boolean(value));
    case ColumnKind::date: return date_literal(value, dialect);
    case ColumnKind::any: return literal_of_own_kind(value, dialect);
    case ColumnKind::unsupported: break;
  }
  return std::nullopt;
}

}  // namespace

Literal value_literal(const Value& value, ColumnKind kind, Dialect dialect) {
  if (value.is_null() || value.is_empty()) return "Null";
  const bool takes_text = kind == ColumnKind::text || kind == ColumnKind::any;
  if (!takes_text && is_blank(value)) return "Null";
  try {
    return convert(value, kind, dialect);
  } catch (const automation::Error&) {
    return std::nullopt;
  }
}

}  // namespace tallyra::standins::corvane
