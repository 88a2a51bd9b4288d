#include "company/naming.h"

#include <array>
#include <cstdio>
#include <string_view>

namespace tallyra::company {
namespace {

using Words = std::array<std::string_view, 8>;

constexpr Words raw_prefixes = {"RM-", "Rm-", "rm-", "R", "Blä-", "BLECH-", "钢-", "r"};
constexpr Words made_prefixes = {"SA-", "Sa-", "sa", "SUB-", "Sub-", "Träger-", "中-", "S"};
constexpr Words finished_prefixes = {"FG-", "Fg-", "fg", "P-", "p-", "Gerät-", "成-", "F"};
constexpr std::array<std::string_view, 6> suffixes = {"", "", "", "-A", "-b", "ä"};

constexpr Words materials = {"Steel", "Brass", "Copper", "Rubber", "Oak", "Glass", "Nylon", "Zinc"};
constexpr Words shapes = {"plate", "rod", "tube", "sheet", "wire", "profile", "granulate", "ring"};
constexpr Words uses = {"Motor", "Gear", "Pump", "Frame", "Valve", "Control", "Drive", "Door"};
constexpr Words groups = {"housing", "bracket", "shaft", "cover", "module", "panel", "carrier", "hinge"};
constexpr Words goods = {"Bench grinder",  "Water pump",  "Tool cabinet", "Work lamp",
                         "Air compressor", "Drill stand", "Hand truck",   "Shelf unit"};
constexpr Words trades = {"Metals",   "Fasteners", "Plastics", "Timber",
                          "Bearings", "Castings",  "Electric", "Glass"};
constexpr Words places = {"Northern", "Harbour", "Riverside", "Central",
                          "Valley",   "Eastern", "Old Mill",  "Hillside"};

constexpr std::array<std::string_view, 12> named_departments = {
    "Raw Material Store", "Assembly",     "Finished Goods", "Machine Shop", "Tool Crib",  "Spare Parts",
    "Paint Shop",         "Welding Shop", "Packing",        "Service",      "Laboratory", "Returns"};

std::string joined(std::string_view first, std::string_view second) {
  return std::string(first) + " " + std::string(second);
}

std::string digits(int number, int width) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*d", width, number);
  return text;
}

}  // namespace

// Random picks stand in statements of their own: the order in which arguments are evaluated is the compiler's
// choice.

std::string part_number(int material_type, int index, Random& random) {
  const Words& prefixes = material_type == 1   ? raw_prefixes
                          : material_type == 2 ? made_prefixes
                                               : finished_prefixes;
  std::string number(random.pick(prefixes));
  // As many digits as in every other part, so that no suffix can turn one number into another.
  number += digits(index + 1, 5);
  number += random.pick(suffixes);
  return number;
}

std::string part_name(int material_type, Random& random) {
  const std::string_view first = random.pick(material_type == 1   ? materials
                                             : material_type == 2 ? uses
                                                                  : goods);
  if (material_type == 3) return joined(first, numbered("T", random.between(100, 999)));
  const std::string name = joined(first, random.pick(material_type == 1 ? shapes : groups));
  return material_type == 1 ? joined(name, numbered("", random.between(2, 80))) + " mm" : name;
}

std::string numbered(std::string_view letters, int number) {
  std::string text(letters);
  text += std::to_string(number);
  return text;
}

std::string department_name(int index) {
  const auto at = static_cast<std::size_t>(index);
  if (at < named_departments.size()) return std::string(named_departments[at]);
  return numbered("Warehouse ", index + 1);
}

std::string supplier_name(int index, Random& random) {
  const std::string_view place = random.pick(places);
  const std::string_view trade = random.pick(trades);
  return joined(joined(place, trade), numbered("No. ", index + 1));
}

}  // namespace tallyra::company
