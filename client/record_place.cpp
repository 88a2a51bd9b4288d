#include "client/record_place.h"

#include <algorithm>
#include <array>
#include <optional>

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/catalogue.h"
#include "client/database/reader.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

using automation::equals_folded;
using automation::Value;

constexpr std::string_view document_key[] = {"TRANNO"};
constexpr std::string_view line_key[] = {"TRANNO", "", "REFERENCE", "PARTNO"};  // the second is the type
constexpr std::string_view check_key[] = {"CHECKNO"};
constexpr std::string_view counted_key[] = {"CHECKNO", "PARTNO"};
constexpr std::string_view cost_key[] = {"MTYPESN"};
constexpr std::string_view close_key[] = {"CLOSEDT"};
constexpr std::string_view address_key[] = {"ADDRNO"};
constexpr std::string_view controller_key[] = {"CONTROLLERNO"};

constexpr RecordPlace places[] = {
    {"CTranHead", "STKTRANHD", document_key},      {"CTranDetail", "STKTRANDT", line_key},
    {"CCheckHead", "STKCHECKHD", check_key},       {"CCheckDetail", "STKCHECKDT", counted_key},
    {"CPartCostSet", "PARTCOSTSET", cost_key},     {"CStockClose", "STKCLOSEHD", close_key},
    {"CRevAddr", "REVADDR", address_key},          {"CSTKController", "STKCONTROLLER", controller_key},
    {"CStkShipNote", "STKSHIPNOTE", document_key},
};

std::optional<std::string> whole_number(const Value& value) {
  try {
    return std::to_string(automation::to_int32(value));
  } catch (const automation::Error&) {
    return std::nullopt;
  }
}

// Nothing for a value that the column cannot have.
std::optional<std::string> key_literal(std::string_view column, const Value& value, char date_quote) {
  if (column == "CLOSEDT") {
    const auto date = automation::parse_date(shown_text(value));
    if (!date) return std::nullopt;
    return date_quote + automation::to_text(Value(*date)) + date_quote;
  }
  if (column == "MTYPESN" || column == "SN") return whole_number(value);
  return Reader::text_literal(shown_text(value));
}

// A line is told by its number when one is given that is not below zero, else by its part.
std::optional<std::string> line_number(const Call& call) {
  constexpr std::size_t place = std::size(line_key);
  if (call.arguments.size() <= place || call.arguments[place].is_missing()) return std::nullopt;
  const auto number = whole_number(call.arguments[place]);
  return number && !number->starts_with('-') ? number : std::nullopt;
}

// Others than Update and Delete have keys of their own, and deleting a close is more than its record.
bool is_about_a_row(const RecordPlace& place, const Call& call) {
  return equals_folded(call.member, "Update") ||
         (equals_folded(call.member, "Delete") && place.class_name != "CStockClose");
}

}  // namespace

const RecordPlace* record_place(std::string_view prog_id) {
  if (!prog_id.starts_with(library_prefix)) return nullptr;
  const auto found = std::ranges::find_if(places, [&](const RecordPlace& place) {
    return equals_folded(place.class_name, prog_id.substr(library_prefix.size()));
  });
  return found == std::end(places) ? nullptr : found;
}

bool writes_columns(std::string_view member) {
  return std::ranges::any_of(std::to_array<std::string_view>({"Insert", "Update", "InsertRTN", "UpdateRTN"}),
                             [&](std::string_view name) { return equals_folded(name, member); });
}

std::string row_condition(const RecordPlace& place, const Call& call, char date_quote) {
  if (!is_about_a_row(place, call) || call.arguments.size() < place.key.size()) return {};
  const auto number = place.class_name == "CTranDetail" ? line_number(call) : std::nullopt;
  std::string condition;
  for (std::size_t i = 0; i < place.key.size(); ++i) {
    const std::string_view column = place.key[i];
    if (column.empty()) continue;
    const bool by_number = number && column == "PARTNO";
    const auto literal = by_number ? number : key_literal(column, call.arguments[i], date_quote);
    if (!literal) return {};
    condition.append(condition.empty() ? " Where " : " And ").append(by_number ? "SN" : column);
    condition.append("=").append(*literal);
  }
  return condition;
}

}  // namespace tallyra::client
