#include "standins/ado/arguments.h"

#include "automation/convert.h"
#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {
namespace {

template <class Convert>
auto converted(Convert&& convert) {
  try {
    return convert();
  } catch (const automation::Error&) {
    raise(ado_error::invalid_argument);
  }
}

std::int32_t in_range(std::int32_t number, std::int32_t least, std::int32_t most) {
  if (number < least || number > most) raise(ado_error::invalid_argument);
  return number;
}

}  // namespace

std::int32_t integer_value(const automation::Value& value) {
  return converted([&] { return automation::to_int32(value); });
}

std::string text_value(const automation::Value& value) {
  return converted([&] { return automation::to_text(value); });
}

std::string_view text_view(const automation::Value& value, std::string& storage) {
  if (const auto* text = value.get_if<std::string>()) return *text;
  return storage = text_value(value);
}

std::optional<std::int32_t> integer_argument(automation::Arguments arguments, std::size_t position) {
  const auto* value = automation::argument_at(arguments, position);
  if (!value) return std::nullopt;
  return integer_value(*value);
}

std::optional<std::string> text_argument(automation::Arguments arguments, std::size_t position) {
  const auto* value = automation::argument_at(arguments, position);
  if (!value) return std::nullopt;
  return text_value(*value);
}

CursorLocation cursor_location(std::int32_t number) {
  return static_cast<CursorLocation>(in_range(number, 2, 3));
}

CursorType cursor_type(std::int32_t number) {
  return number == unspecified ? CursorType::forward_only : static_cast<CursorType>(in_range(number, 0, 3));
}

LockType lock_type(std::int32_t number) {
  return number == unspecified ? LockType::read_only : static_cast<LockType>(in_range(number, 1, 4));
}

std::int32_t execute_options(std::int32_t number) {
  constexpr std::int32_t highest = 2048;  // beyond all flags of the enumeration
  return in_range(number, unspecified, highest - 1);
}

std::string_view statement_of(std::string_view source, std::int32_t options, std::string& storage) {
  if (source.find_first_not_of(" \t\r\n") == std::string_view::npos) raise(ado_error::invalid_argument);
  if (options == unspecified) return source;
  if ((options & (execute_option::table | execute_option::table_direct)) != 0)
    return storage = "SELECT * FROM " + std::string(source);
  if ((options & execute_option::stored_procedure) != 0)
    return storage = "{call " + std::string(source) + "}";
  return source;
}

}  // namespace tallyra::standins::ado
