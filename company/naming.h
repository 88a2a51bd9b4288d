#pragma once

#include <string>
#include <string_view>

#include "company/random.h"

namespace tallyra::company {

// Part numbers differ in case, hyphens and letters beyond ASCII, as grown numbering systems do; `index` keeps
// them apart. No apostrophes: keys go into statements between single quotes as they stand.
std::string part_number(int material_type, int index, Random& random);

std::string part_name(int material_type, Random& random);

// The letters followed by the number: "S1001".
std::string numbered(std::string_view letters, int number);

std::string department_name(int index);

std::string supplier_name(int index, Random& random);

}  // namespace tallyra::company
