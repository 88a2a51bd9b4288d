#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "automation/enumerable.h"
#include "automation/member_table.h"

namespace tallyra::automation {

// An ordered collection of values as classic clients know it, counted from 1: Item (the default member) and
// Remove by number or key, Add(Item, [Key], [Before], [After]), Count. A key is a text of one item, the same
// in capitals and small letters; any text in the place of a number is one. Before and After are a number or
// key each.
//
// Errors: 9 for a number that no item has, 5 for such a key and for Before together with After, 457 for a key
// that an item has already, 13 for what is neither number nor text. A call that fails changes nothing.
class Collection : public Implements<Collection>, public Enumerable {
 public:
  static const MemberTable<Collection>& members();

  Value add(Arguments arguments);
  Value count();
  Value item(Arguments arguments);
  Value remove(Arguments arguments);

  std::size_t item_count() const override { return items_.size(); }
  Value item_at(std::size_t position) const override { return items_[position].value; }
  void begin_walk(std::size_t& next) override { walks_.push_back(&next); }
  void end_walk(std::size_t& next) noexcept override { std::erase(walks_, &next); }

 private:
  struct Item {
    Value value;
    const std::string* key;  // in keys_; none for an item without
  };

  // Positions are from 0. An index may be an object whose default member runs code that changes the items, so
  // nothing is kept over these but what they answer.
  std::size_t position_of(const Value& index);
  std::size_t position_of_key(const std::string& key);
  std::size_t place_for(const Value* before, const Value* after);
  void insert(std::size_t position, const Value& value, const std::string* key);

  std::vector<Item> items_;
  std::unordered_map<std::string, std::size_t> keys_;  // in small letters, and where the item was last seen
  std::vector<std::size_t*> walks_;
};

}  // namespace tallyra::automation
