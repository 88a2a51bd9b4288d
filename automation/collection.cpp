#include "automation/collection.h"

#include <algorithm>
#include <optional>
#include <type_traits>
#include <utility>

#include "automation/convert.h"
#include "automation/letter_case.h"

namespace tallyra::automation {
namespace {

// What stands for an index or key: for an object what its default member holds.
Value plain_index(const Value& value) {
  const auto* object = value.get_if<Object>();
  Value plain = object && *object ? object->invoke(default_member, Access::read, {}) : value;
  if (plain.is_object() || plain.is_null()) throw Error(error_number::type_mismatch);
  return plain;
}

// From 0.
std::size_t position_of_number(const Value& number, std::size_t size) {
  const double wide = to_double(number);
  if (!(wide > 0 && wide < static_cast<double>(size) + 1)) throw Error(error_number::bad_index);
  const auto position = static_cast<std::size_t>(to_int32(number));
  if (position < 1 || position > size) throw Error(error_number::bad_index);
  return position - 1;
}

std::string key_of(const Value& value) {
  const Value plain = plain_index(value);
  const auto* text = plain.get_if<std::string>();
  if (!text) throw Error(error_number::type_mismatch);
  return small_letters(*text);
}

}  // namespace

const MemberTable<Collection>& Collection::members() {
  static const MemberTable<Collection> table{
      {default_member, "Item", method<&Collection::item>},
      {1, "Add", method<&Collection::add>},
      {2, "Count", property<&Collection::count>},
      {3, "Remove", method<&Collection::remove>},
  };
  return table;
}

std::size_t Collection::position_of(const Value& index) {
  if (index.holds<std::int32_t>()) return position_of_number(index, items_.size());
  const Value plain = plain_index(index);
  if (const auto* key = plain.get_if<std::string>()) return position_of_key(small_letters(*key));
  return position_of_number(plain, items_.size());
}

std::size_t Collection::position_of_key(const std::string& key) {
  const auto found = keys_.find(key);
  if (found == keys_.end()) throw Error(error_number::invalid_argument);
  auto& [own_key, position] = *found;
  const auto is_it = [&own_key](const Item& item) { return item.key == &own_key; };
  if (position >= items_.size() || !is_it(items_[position]))
    position = static_cast<std::size_t>(std::find_if(items_.begin(), items_.end(), is_it) - items_.begin());
  return position;
}

std::size_t Collection::place_for(const Value* before, const Value* after) {
  if (before && after) throw Error(error_number::invalid_argument);
  if (before) return position_of(*before);
  if (after) return position_of(*after) + 1;
  return items_.size();
}

void Collection::insert(std::size_t position, const Value& value, const std::string* key) {
  // With the room made, what follows the entry of the key cannot fail.
  static_assert(std::is_nothrow_move_constructible_v<Item> && std::is_nothrow_move_assignable_v<Item>);
  if (items_.size() == items_.capacity()) items_.reserve(std::max<std::size_t>(8, 2 * items_.size()));
  Item item{value, nullptr};
  if (key) {
    const auto [entry, is_new] = keys_.try_emplace(*key, position);
    if (!is_new) throw Error(error_number::key_in_use);
    item.key = &entry->first;
  }
  items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(position), std::move(item));
  for (std::size_t* next : walks_)
    if (*next > position) ++*next;
}

Value Collection::add(Arguments arguments) {
  expect_arguments(arguments, 1, 4);
  if (arguments.size() == 1) {
    items_.push_back({arguments[0].get(), nullptr});
    return {};
  }
  const Value* key = argument_at(arguments, 1);
  std::optional<std::string> own_key;
  if (key) own_key = key_of(*key);
  const std::size_t position = place_for(argument_at(arguments, 2), argument_at(arguments, 3));
  insert(position, arguments[0].get(), own_key ? &*own_key : nullptr);
  return {};
}

Value Collection::count() {
  return static_cast<std::int32_t>(items_.size());
}

Value Collection::item(Arguments arguments) {
  expect_arguments(arguments, 1, 1);
  return items_[position_of(arguments[0].get())].value;
}

Value Collection::remove(Arguments arguments) {
  expect_arguments(arguments, 1, 1);
  const std::size_t position = position_of(arguments[0].get());
  // An object that goes may use the collection while it does, so it goes last.
  const Item removed = std::move(items_[position]);
  if (removed.key) keys_.erase(keys_.find(*removed.key));
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(position));
  for (std::size_t* next : walks_)
    if (*next > position) --*next;
  return {};
}

}  // namespace tallyra::automation
