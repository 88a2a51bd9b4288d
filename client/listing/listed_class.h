#pragma once

#include <span>
#include <string_view>

namespace tallyra::client {

struct ListedColumn {
  std::string_view sql;
  std::string_view heading;
  bool is_number = false;
};

// How the records of a class are listed: from where, in which order, and what can be asked of them. A column
// that the class does not have is empty.
struct ListedClass {
  std::string_view name;
  std::string_view from;
  std::span<const ListedColumn> columns;
  std::string_view order;
  std::string_view date = {};
  std::string_view type = {};
  bool type_is_number = false;
  std::string_view status = {};
  std::string_view department = {};
  // A transfer also belongs to the department that it comes into.
  bool has_transfers = false;
};

std::span<const ListedClass> listed_classes();

// By the name of the class, whatever its case, with or without the library. Throws UsageError for a class
// that has nothing to list, or that is none.
const ListedClass& listed_class(std::string_view name);

}  // namespace tallyra::client
