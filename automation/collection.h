#pragma once

#include <vector>

#include "automation/enumerable.h"
#include "automation/member_table.h"

namespace tallyra::automation {

// An ordered collection of values as classic clients know it: Add, Count, Item (the default member, counted
// from 1), Remove. Errors: 9 for a position that does not exist.
class Collection : public Implements<Collection>, public Enumerable {
 public:
  static const MemberTable<Collection>& members();

  Value add(Arguments arguments);
  Value count();
  Value item(Arguments arguments);
  Value remove(Arguments arguments);

  std::size_t item_count() const override { return items_.size(); }
  Value item_at(std::size_t position) const override { return items_[position]; }

 private:
  std::vector<Value>::iterator at(const Value& position);

  std::vector<Value> items_;
};

}  // namespace tallyra::automation
