#include "company/stock.h"

namespace tallyra::company {
namespace {

std::size_t shelf_of(int department, bool made) {
  return static_cast<std::size_t>(department) * 2 + (made ? 1 : 0);
}

}  // namespace

Stock::Stock(int departments, int parts)
    : parts_(parts),
      quantities_(static_cast<std::size_t>(departments) * static_cast<std::size_t>(parts)),
      shelves_(static_cast<std::size_t>(departments) * 2) {}

void Stock::add(int department, int part, double quantity, bool made) {
  double& stock = quantities_[place(department, part)];
  const bool was_empty = stock <= 0;
  stock += quantity;
  if (was_empty && stock > 0) shelves_[shelf_of(department, made)].push_back(part);
}

int Stock::any_part(int department, bool made, Random& random) {
  auto& shelf = shelves_[shelf_of(department, made)];
  while (!shelf.empty()) {
    auto& found = random.pick(shelf);
    if (of(department, found) > 0) return found;
    found = shelf.back();
    shelf.pop_back();
  }
  return -1;
}

}  // namespace tallyra::company
