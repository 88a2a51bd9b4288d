#include "company/masters.h"

#include <algorithm>
#include <array>

#include "company/database.h"
#include "company/naming.h"

namespace tallyra::company {
namespace {

constexpr int bom_levels = 5;
constexpr int price_types = 3;

// Of ten parts in a row five are bought, three are made for further use and two are sold.
int material_type_of(int index) {
  const int place = index % 10;
  return place < 5 ? raw_material : place < 8 ? semi_finished : finished_product;
}

Part make_part(int index, Random& random) {
  const int type = material_type_of(index);
  Part part;
  part.number = part_number(type, index, random);
  part.name = part_name(type, random);
  part.material_type = type;
  part.price_type =
      index / 10 % price_types + 1;  // all combinations with the material type within thirty parts
  part.cost = type == raw_material ? random.between(500, 80'000) : 0;
  part.by_weight = type == raw_material && random.chance(20);
  return part;
}

// Components come from lower levels only, so that no part is its own component.
void make_bom(Part& part, const std::vector<int>& raw, const std::vector<int>& level_below,
              std::vector<Part>& parts, Random& random) {
  std::vector<int> chosen;
  const int lines = random.between(3, 6);
  for (int line = 0; line < lines; ++line) {
    const bool made = !level_below.empty() && (line == 0 || random.chance(25));
    const int component = made ? random.pick(level_below) : random.pick(raw);
    if (std::find(chosen.begin(), chosen.end(), component) != chosen.end()) continue;
    chosen.push_back(component);
    part.bom.push_back(
        {component, made ? 1 : random.between(1, 4), random.chance(30) ? random.between(1, 8) : 0});
    part.cost += parts[static_cast<std::size_t>(component)].cost * part.bom.back().quantity;
  }
  part.cost += part.cost / 5;  // wages and machines
}

void make_boms(Masters& masters, Random& random) {
  std::vector<int> raw;
  std::vector<int> made;
  std::vector<int> finished;
  for (int index = 0; index < static_cast<int>(masters.parts.size()); ++index) {
    const int type = masters.parts[static_cast<std::size_t>(index)].material_type;
    (type == raw_material ? raw : type == semi_finished ? made : finished).push_back(index);
  }
  // Semi-finished parts fill the lower levels in equal shares, finished products stand on top.
  std::array<std::vector<int>, bom_levels> levels;
  for (std::size_t place = 0; place < made.size(); ++place) {
    levels[place * (bom_levels - 1) / made.size()].push_back(made[place]);
  }
  levels[bom_levels - 1] = finished;
  const std::vector<int> nothing;
  for (std::size_t level = 0; level < levels.size(); ++level) {
    for (const int index : levels[level]) {
      make_bom(masters.parts[static_cast<std::size_t>(index)], raw, level == 0 ? nothing : levels[level - 1],
               masters.parts, random);
      masters.products.push_back(index);
    }
  }
}

void make_suppliers(Masters& masters, int count, Random& random) {
  for (int index = 0; index < count; ++index) {
    masters.suppliers.push_back({numbered("S", 1001 + index), supplier_name(index, random), {}});
  }
  for (int index = 0; index < static_cast<int>(masters.parts.size()); ++index) {
    // A few semi-finished parts can be bought as well as made.
    const int type = masters.parts[static_cast<std::size_t>(index)].material_type;
    const bool bought = type == raw_material || (type == semi_finished && random.chance(10));
    if (!bought) continue;
    const int first = random.below(count);
    masters.suppliers[static_cast<std::size_t>(first)].parts.push_back(index);
    if (random.chance(30) && count > 1) {
      masters.suppliers[static_cast<std::size_t>((first + 1) % count)].parts.push_back(index);
    }
  }
  std::erase_if(masters.suppliers, [](const Supplier& supplier) { return supplier.parts.empty(); });
}

void write_parts(const Masters& masters, Day entered, Database& database) {
  constexpr std::array<std::string_view, 5> colors = {"None", "Grey", "Black", "Red", "Blue"};
  Insert parts(database, "PARTS",
               {{"PARTNO", Kind::text},
                {"PARTNM", Kind::text},
                {"CATEGORYNO", Kind::text},
                {"COLORNO", Kind::text},
                {"COLORNM", Kind::text},
                {"UNITNM", Kind::text},
                {"MTYPESN", Kind::integer},
                {"PRICETYPESN", Kind::integer},
                {"ADDBY", Kind::text},
                {"ADDDT", Kind::text},
                {"EDITBY", Kind::text},
                {"EDITDT", Kind::text}});
  Insert bom(database, "ASSMBOM",
             {{"ASSMNO", Kind::text},
              {"SN", Kind::integer},
              {"PARTNO", Kind::text},
              {"ENGQTY", Kind::number},
              {"URATE", Kind::number},
              {"WSRATE", Kind::number}});
  const std::string at = timestamp(entered);
  std::size_t index = 0;
  for (const Part& part : masters.parts) {
    const std::size_t color = index++ * 7 % colors.size();
    parts.row(part.number, part.name, numbered("C", part.material_type * 10 + static_cast<int>(color)),
              std::to_string(color), colors[color], part.by_weight ? "kg" : "pcs", part.material_type,
              part.price_type, "ADMIN", at, "ADMIN", at);
    int line = 0;
    for (const BomLine& component : part.bom) {
      bom.row(part.number, ++line, masters.parts[static_cast<std::size_t>(component.part)].number,
              static_cast<double>(component.quantity), 1.0, component.waste_percent / 100.0);
    }
  }
}

}  // namespace

Masters make_masters(const Options& options, Random& random) {
  Masters masters;
  for (int index = 0; index < options.departments; ++index) {
    masters.departments.push_back({std::to_string(10 * (index + 1)), department_name(index)});
  }
  for (int index = 0; index < options.parts; ++index) masters.parts.push_back(make_part(index, random));
  make_boms(masters, random);
  make_suppliers(masters, 5 + options.parts / 20, random);
  masters.customers = 10 + options.parts / 10;
  return masters;
}

void write_masters(const Masters& masters, Day entered, Database& database) {
  Insert departments(database, "DEPARTS",
                     {{"DEPTNO", Kind::text}, {"DEPTNM", Kind::text}, {"MANAGER", Kind::text}});
  for (const Department& department : masters.departments) {
    departments.row(department.number, department.name, "MANAGER");
  }
  Insert suppliers(database, "SUPPLIERS",
                   {{"SUPPLIERS", Kind::text}, {"SUPPLIERNM", Kind::text}, {"COUNTRY", Kind::text}});
  for (const Supplier& supplier : masters.suppliers) suppliers.row(supplier.number, supplier.name, "Germany");
  write_parts(masters, entered, database);
}

}  // namespace tallyra::company
