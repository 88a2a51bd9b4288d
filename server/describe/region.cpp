#include "server/describe/region.h"

#include <stdexcept>

#include "server/describe/class_objects.h"
#include "server/describe/client_catalogue.h"
#include "server/describe/interface_description.h"
#include "server/describe/reference_table.h"

namespace tallyra::server::describe {
namespace {

const std::string mark = "tallyra-describe: ";

std::size_t end_of_line(const std::string& content, std::size_t from) {
  const std::size_t end = content.find('\n', from);
  return end == std::string::npos ? content.size() : end + 1;
}

// Where a mark begins; its name ends where the word does.
std::size_t find_mark(const std::string& content, const std::string& name, std::size_t from) {
  for (std::size_t at = content.find(mark + name, from); at != std::string::npos;
       at = content.find(mark + name, at + 1)) {
    const std::size_t behind = at + mark.size() + name.size();
    if (behind == content.size() || content[behind] == '\n' || content[behind] == ' ') return at;
  }
  return std::string::npos;
}

}  // namespace

std::vector<Region> regions(std::span<const ClassTable> classes) {
  std::vector<Region> list{
      {"client/catalogue.cpp", "catalogue", client_catalogue(classes)},
      {"server/com/class_objects.h", "objects", "\n" + class_objects(classes) + "\n"},
      {"server/com/served_classes.cpp", "classes", served_classes(classes)},
      {"server/com/tallyra.idl", "names", interface_names(classes)},
      {"server/com/tallyra.idl", "interfaces", interfaces(classes)},
      {"server/com/tallyra.idl", "classes", creatable_classes(classes)},
  };
  for (const auto& table : classes)
    list.push_back({"docs/classes.md", std::string(table.name), reference_table(table)});
  return list;
}

std::string with_region(std::string content, const Region& region) {
  const std::size_t begins = find_mark(content, region.name, 0);
  const std::size_t ends = begins == std::string::npos ? begins : find_mark(content, "end", begins);
  if (ends == std::string::npos)
    throw std::runtime_error(region.path + " has no lines \"" + mark + region.name + "\" and \"" + mark +
                             "end\"");
  const std::size_t first = end_of_line(content, begins);
  const std::size_t behind = content.rfind('\n', ends) + 1;
  return content.replace(first, behind - first, region.text);
}

}  // namespace tallyra::server::describe
