#include "automation/collection.h"

#include <utility>

#include "automation/convert.h"

namespace tallyra::automation {

const MemberTable<Collection>& Collection::members() {
  static const MemberTable<Collection> table{
      {default_member, "Item", method<&Collection::item>},
      {1, "Add", method<&Collection::add>},
      {2, "Count", property<&Collection::count>},
      {3, "Remove", method<&Collection::remove>},
  };
  return table;
}

std::vector<Value>::iterator Collection::at(const Value& position) {
  const std::int32_t index = to_int32(position);
  if (index < 1 || static_cast<std::size_t>(index) > items_.size()) throw Error(error_number::bad_index);
  return items_.begin() + (index - 1);
}

Value Collection::add(Arguments arguments) {
  expect_arguments(arguments, 1, 1);
  items_.push_back(arguments[0].get());
  return {};
}

Value Collection::count() {
  return static_cast<std::int32_t>(items_.size());
}

Value Collection::item(Arguments arguments) {
  expect_arguments(arguments, 1, 1);
  return *at(arguments[0].get());
}

Value Collection::remove(Arguments arguments) {
  expect_arguments(arguments, 1, 1);
  const auto place = at(arguments[0].get());
  // An object that goes may use the collection while it does, so it goes last.
  const Value removed = std::move(*place);
  items_.erase(place);
  return {};
}

}  // namespace tallyra::automation
