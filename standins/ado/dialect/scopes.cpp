#include "standins/ado/dialect/scopes.h"

#include "standins/ado/dialect/keyword.h"

namespace tallyra::standins::ado::dialect {
namespace {

constexpr std::uint32_t most_tables = 64;

// Tables and scopes looked at for one column: keeps the time for a hostile statement linear in its length.
constexpr int most_steps = 256;

}  // namespace

void Scopes::clear() {
  scopes_.clear();
  tables_.clear();
}

Scopes::Id Scopes::open(Id parent) {
  scopes_.push_back({.parent = parent});
  return static_cast<Id>(scopes_.size() - 1);
}

void Scopes::add(Id scope, Table table) {
  Scope& owner = scopes_[scope];
  if (owner.count == most_tables) return;
  const auto id = static_cast<Id>(tables_.size());
  table.next = none;
  tables_.push_back(table);
  if (owner.last == none)
    owner.first = id;
  else
    tables_[owner.last].next = id;
  owner.last = id;
  ++owner.count;
}

void Scopes::adopt(Id scope, Id subquery, std::string_view alias) {
  for (Id id = scopes_[subquery].first; id != none; id = tables_[id].next)
    add(scope, {.name = tables_[id].name, .exposed = alias, .written = {}});
}

const Scopes::Table* Scopes::target(Id scope, std::string_view exposed) const {
  const Table* found = nullptr;
  for (Id id = scopes_[scope].first; id != none; id = tables_[id].next) {
    if (!same_name(tables_[id].exposed, exposed)) continue;
    if (found != nullptr) return nullptr;
    found = &tables_[id];
  }
  return found != nullptr && !found->written.empty() ? found : nullptr;
}

bool Scopes::is_date(Id scope, std::string_view qualifier, std::string_view column,
                     DateColumnCache& columns) const {
  int steps = most_steps;
  for (; scope != none && steps > 0; scope = scopes_[scope].parent, --steps) {
    bool qualifier_found = false;
    for (Id id = scopes_[scope].first; id != none && steps > 0; id = tables_[id].next, --steps) {
      const Table& table = tables_[id];
      if (!qualifier.empty() && !same_name(table.exposed, qualifier)) continue;
      qualifier_found = !qualifier.empty();
      if (columns.is_date(table.name, column)) return true;
    }
    // The nearest table of that name hides those further out.
    if (qualifier_found) return false;
  }
  return false;
}

}  // namespace tallyra::standins::ado::dialect
