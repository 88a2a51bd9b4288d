#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "company/calendar.h"
#include "company/options.h"
#include "company/random.h"

namespace tallyra::company {

class Database;

// Material types: what a part is. Costing asks only whether the number is above 1 (made here) or not
// (bought).
inline constexpr int raw_material = 1, semi_finished = 2, finished_product = 3;

struct Department {
  std::string number;
  std::string name;
};

struct BomLine {
  int part;  // index of the component
  int quantity;
  int waste_percent;
};

struct Part {
  std::string number;
  std::string name;
  int material_type;
  int price_type;            // 1 last purchase price, 2 moving cost, 3 average price
  std::int64_t cost;         // standard unit cost in ten-thousandths
  bool by_weight;            // counted in quarters of a kilogram instead of pieces
  std::vector<BomLine> bom;  // empty for raw material
};

struct Supplier {
  std::string number;
  std::string name;
  std::vector<int> parts;  // indexes of the parts it delivers
};

// Everything that is there before the first document is written.
struct Masters {
  std::vector<Department> departments;
  std::vector<Part> parts;
  std::vector<Supplier> suppliers;
  std::vector<int> products;  // indexes of the parts made here
  int customers;
};

Masters make_masters(const Options& options, Random& random);

// Writes DEPARTS, PARTS, ASSMBOM and SUPPLIERS.
void write_masters(const Masters& masters, Day entered, Database& database);

}  // namespace tallyra::company
