#include "standins/corvane/assignment.h"

#include <algorithm>
#include <cstdint>

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "standins/corvane/column_kind.h"
#include "standins/corvane/column_name.h"
#include "standins/corvane/failure.h"
#include "standins/corvane/value_literal.h"

namespace tallyra::standins::corvane {
namespace {

using automation::Error;
using automation::Object;
using automation::Value;

struct Column {
  std::string name;
  ColumnKind kind;
  bool assigned = false;
};

std::vector<Column> columns_of(const Object& recordset) {
  const Object fields = automation::to_object(recordset.get("Fields"));
  const std::int32_t count = automation::to_int32(fields.get("Count"));
  const automation::BoundMember item(fields, "Item");
  std::vector<Column> columns;
  columns.reserve(static_cast<std::size_t>(count));
  for (std::int32_t i = 0; i < count; ++i) {
    const Object field = automation::to_object(item.call(i));
    columns.push_back(
        {automation::to_text(field.get("Name")), column_kind(automation::to_int32(field.get("Type")))});
  }
  return columns;
}

std::string name_at(const automation::BoundMember& item, std::int32_t position, std::string_view table) {
  const Value name = item.call(position);
  const auto* text = name.get_if<std::string>();
  if (!text || text->find_first_not_of(' ') == std::string::npos)
    throw Error(failure::no_column_name,
                "Column " + std::to_string(position) + " for " + std::string(table) + " has no name.");
  return *text;
}

Column& column_named(std::vector<Column>& columns, std::string_view name, std::string_view table) {
  const auto found = std::ranges::find_if(
      columns, [&](const Column& column) { return automation::equals_folded(column.name, name); });
  if (found == columns.end() || found->name.find(']') != std::string::npos)
    throw Error(failure::unknown_column, std::string(table) + " has no column " + std::string(name) + ".");
  if (found->assigned)
    throw Error(failure::repeated_column,
                "Column " + found->name + " of " + std::string(table) + " is given more than once.");
  found->assigned = true;
  return *found;
}

std::string text_or_mark(const Value& value) {
  try {
    return automation::to_text(value);
  } catch (const Error&) {
    return "?";
  }
}

// The value as an error text shows it: the start of a long text, cut between two characters.
std::string shown(const Value& value) {
  constexpr std::size_t longest = 60;
  std::string text = text_or_mark(value);
  std::replace(text.begin(), text.end(), '\0', '?');
  if (text.size() <= longest) return '"' + text + '"';
  std::size_t end = longest;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return '"' + text.substr(0, end) + "...\"";
}

std::string literal_of(const Value& value, const Column& column, std::string_view table, Dialect dialect) {
  const std::string place = "column " + column.name + " of " + std::string(table) + ".";
  if (value.is_object() || value.holds<automation::Opaque>() || value.is_missing())
    throw Error(failure::object_as_value,
                "An object, an array or an omitted value cannot be written into " + place);
  auto literal = value_literal(value, column.kind, dialect);
  if (!literal)
    throw Error(failure::unfit_value, "The value " + shown(value) + " does not fit into " + place);
  return std::move(*literal);
}

}  // namespace

std::vector<Assignment> assignments(std::string_view table, const Object& names, const Object& values,
                                    const Object& recordset, Dialect dialect) {
  if (!is_plain_name(table))
    throw Error(failure::bad_table_name, "\"" + std::string(table) + "\" is no name of a table.");
  const std::int32_t count = automation::to_int32(names.get("Count"));
  const std::int32_t value_count = automation::to_int32(values.get("Count"));
  if (count <= 0 || count != value_count)
    throw Error(failure::counts_differ, std::to_string(count) + " columns and " +
                                            std::to_string(value_count) + " values are given for " +
                                            std::string(table) + ".");
  std::vector<Column> columns = columns_of(recordset);
  const automation::BoundMember name_item(names, "Item");
  const automation::BoundMember value_item(values, "Item");
  std::vector<Assignment> result;
  result.reserve(static_cast<std::size_t>(count));
  for (std::int32_t i = 1; i <= count; ++i) {
    const Column& column = column_named(columns, name_at(name_item, i, table), table);
    Assignment& assignment = result.emplace_back();
    append_column_name(assignment.column, column.name);
    assignment.literal = literal_of(value_item.call(i), column, table, dialect);
  }
  return result;
}

}  // namespace tallyra::standins::corvane
