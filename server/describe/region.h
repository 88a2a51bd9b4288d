#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "server/class_table.h"

namespace tallyra::server::describe {

// A part of a file that is made from the description of the classes. In the file it stands between a line
// that has "tallyra-describe: " and the name, and the next line that has "tallyra-describe: end".
struct Region {
  std::string path;
  std::string name;
  std::string text;  // whole lines
};

// All there are; those of one file stand together.
std::vector<Region> regions(std::span<const ClassTable> classes);

// The content of the region's file with the region as it has to be. Throws std::runtime_error when it is not
// marked there.
std::string with_region(std::string content, const Region& region);

}  // namespace tallyra::server::describe
