#include "transactions/tran_detail_bill_of_materials.h"

#include <string_view>
#include <utility>

#include "automation/error.h"
#include "automation/folded_name.h"

namespace tallyra::transactions {
namespace {

// The number of a recursion that does not end, which is what following such a bill would be.
constexpr std::int32_t endless_recursion = 28;

// What all spellings of a part number have in common.
std::string common_form(std::string_view number) {
  return automation::folded(number.substr(0, number.find_last_not_of(' ') + 1));
}

}  // namespace

std::size_t BillOfMaterials::index_of(const std::string& part) {
  const auto [found, added] = indexes_.try_emplace(part, parts_.size());
  if (added) parts_.push_back({.number = part});
  return found->second;
}

void BillOfMaterials::order(const std::string& part, double quantity) {
  parts_[index_of(part)].ordered += quantity;
}

void BillOfMaterials::add(const std::string& assembly, const std::string& component, double quantity) {
  if (parts_.empty() || parts_[last_assembly_].number != assembly) last_assembly_ = index_of(assembly);
  std::size_t& lot = parts_[last_assembly_].lot;
  if (lot == 0) lot = lot_;
  if (lot != lot_) return;
  const std::size_t used = index_of(component);
  ++parts_[used].uses;
  parts_[last_assembly_].bill.push_back({used, quantity});
}

std::optional<BillOfMaterials::Spellings> BillOfMaterials::two_spellings(const std::string& part) const {
  std::unordered_map<std::string, const std::string*> seen;
  seen.reserve(parts_.size() + 1);
  seen.emplace(common_form(part), &part);
  for (const Part& each : parts_) {
    const auto [found, added] = seen.try_emplace(common_form(each.number), &each.number);
    if (!added && *found->second != each.number) return Spellings{*found->second, each.number};
  }
  return std::nullopt;
}

void BillOfMaterials::unite_spellings() {
  const std::vector<Part> apart = std::exchange(parts_, {});
  indexes_.clear();
  united_ = true;
  std::vector<std::size_t> united;
  united.reserve(apart.size());
  for (const Part& part : apart) {
    const auto [found, added] = indexes_.try_emplace(common_form(part.number), parts_.size());
    if (added) parts_.push_back({.number = part.number});
    united.push_back(found->second);
  }
  for (std::size_t i = 0; i < apart.size(); ++i) {
    Part& whole = parts_[united[i]];
    whole.ordered += apart[i].ordered;
    whole.uses += apart[i].uses;
    for (const Component& component : apart[i].bill)
      whole.bill.push_back({united[component.part], component.quantity});
  }
}

std::optional<double> BillOfMaterials::requirement(const std::string& part) const {
  std::vector<double> required;
  std::vector<std::size_t> open_uses;
  std::vector<std::size_t> settled;
  required.reserve(parts_.size());
  open_uses.reserve(parts_.size());
  settled.reserve(parts_.size());
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    required.push_back(parts_[i].ordered);
    open_uses.push_back(parts_[i].uses);
    if (open_uses[i] == 0) settled.push_back(i);
  }
  // A part's quantity is settled once that of every assembly using it is.
  for (std::size_t next = 0; next < settled.size(); ++next)
    for (const Component& component : parts_[settled[next]].bill) {
      required[component.part] += required[settled[next]] * component.quantity;
      if (--open_uses[component.part] == 0) settled.push_back(component.part);
    }
  if (settled.size() < parts_.size()) report_cycle(open_uses);

  const auto found = indexes_.find(united_ ? common_form(part) : part);
  if (found == indexes_.end()) return std::nullopt;
  return required[found->second];
}

void BillOfMaterials::report_cycle(const std::vector<std::size_t>& open_uses) const {
  // Each part that is still open has a user that is open as well; going from user to user ends in a cycle.
  constexpr auto none = static_cast<std::size_t>(-1);
  std::vector<std::size_t> user(parts_.size(), none);
  std::size_t at = none;
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    if (open_uses[i] == 0) continue;
    at = i;
    for (const Component& component : parts_[i].bill) user[component.part] = i;
  }
  for (std::vector<bool> passed(parts_.size()); !passed[at]; at = user[at]) passed[at] = true;

  std::string chain = parts_[at].number;
  for (std::size_t i = user[at]; i != at; i = user[i]) chain.insert(0, parts_[i].number + " > ");
  const std::string& number = parts_[at].number;
  throw automation::Error(endless_recursion, "The bill of materials of " + number +
                                                 " contains itself: " + number + " > " + chain + ".");
}

}  // namespace tallyra::transactions
