#include "client/setup/functions.h"

#include <algorithm>
#include <set>

#include "automation/folded_name.h"
#include "client/suggestion.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

constexpr FunctionCode codes[] = {
    {"*", "every function that has no row of its own"},
    {"STK010POREV", "receipts against purchase orders"},
    {"STK010PORTN", "returns against purchase orders"},
    {"STK011PORTN", "purchase returns"},
    {"STK020MISS", "issues to production orders"},
    {"STK020MISSSO", "issues to sales orders"},
    {"STK021RTN1", "returns from production orders"},
    {"STK021RTNSO", "returns from sales orders"},
    {"STK022REVMO", "receipts from production orders"},
    {"STK022REVSO", "receipts from sales orders"},
    {"STK024MRPL", "transfers"},
    {"STK026CHECK", "stocktakings"},
    {"STK027CLOSE", "month closes"},
    {"STK028ADDR", "receiving addresses"},
    {"STK030SHIP", "shipments"},
    {"STK030SHIPN", "shipping notes"},
    {"STK032USER", "stock controllers"},
    {"STK050PCOST", "cost settings of material types"},
};

// Classes that ask for one function alone.
struct ClassFunction {
  std::string_view name;
  std::string_view code;
};
constexpr ClassFunction class_functions[] = {
    {"CCheckHead", "STK026CHECK"},   {"CCheckDetail", "STK026CHECK"}, {"CStockClose", "STK027CLOSE"},
    {"CRevAddr", "STK028ADDR"},      {"CStkShipNote", "STK030SHIPN"}, {"CSTKController", "STK032USER"},
    {"CPartCostSet", "STK050PCOST"},
};

constexpr RightName names[] = {
    {"insert", "CANINSERT", "CanInsert"},
    {"update", "CANUPDATE", "CanUpdate"},
    {"delete", "CANDELETE", "CanDelete"},
    {"approve", "CANAPPROVED", "CanApproved"},
    {"unapprove", "CANUNAPPROVED", "CanUnapproved"},
    {"cancel", "CANCANCEL", "CanCancel"},
    {"finish", "CANFINISHED", "CanFinished"},
    {"owner", "OWNER", "Owner"},
};

}  // namespace

std::span<const FunctionCode> function_codes() {
  return codes;
}

std::span<const RightName> right_names() {
  return names;
}

std::optional<std::string_view> function_of_class(std::string_view class_name) {
  for (const ClassFunction& function : class_functions)
    if (automation::equals_folded(function.name, class_name)) return function.name;
  return std::nullopt;
}

std::string function_code(std::string_view word) {
  std::vector<std::string_view> known;
  for (const FunctionCode& function : codes) {
    if (automation::equals_folded(function.code, word)) return std::string(function.code);
    known.push_back(function.code);
  }
  for (const ClassFunction& function : class_functions) {
    if (automation::equals_folded(function.name, word)) return std::string(function.code);
    known.push_back(function.name);
  }
  throw UsageError("there is no function '" + std::string(word) + "'" + did_you_mean(word, known) +
                   "; 'help grant' names them, '*' is for all");
}

std::vector<std::size_t> right_places(std::span<const std::string> words) {
  std::set<std::size_t> places;
  std::vector<std::string_view> known{"all"};
  for (const RightName& right : names) known.push_back(right.word);
  for (const std::string& word : words) {
    const auto found = std::ranges::find_if(
        known, [&](std::string_view right) { return automation::equals_folded(right, word); });
    if (found == known.end())
      throw UsageError(
          "there is no right '" + word + "'" + did_you_mean(word, known) +
          "; there are insert, update, delete, approve, unapprove, cancel, finish, owner and all");
    const auto place = static_cast<std::size_t>(found - known.begin());
    if (place != 0) places.insert(place - 1);
    if (place == 0)
      for (std::size_t i = 0; i < std::size(names); ++i) places.insert(i);
  }
  return {places.begin(), places.end()};
}

}  // namespace tallyra::client
