#include "standins/ado/sqlite/prepared_forms.h"

#include <algorithm>
#include <utility>

namespace tallyra::standins::ado {
namespace {

using dialect::Literal;
using dialect::LiteralUse;

constexpr std::size_t most_forms = 64;
constexpr std::size_t most_variants = 16;

// A text whose column has not met a text yet: it may be one for dates.
bool is_known(const dialect::StatementForm& form, const std::vector<LiteralUse>& uses) {
  if (uses.size() != form.literals.size()) return false;  // memory has run out when it was to be remembered
  for (std::size_t i = 0; i < form.literals.size(); ++i)
    if (form.literals[i].kind == Literal::Kind::text && uses[i].place != LiteralUse::Place::fixed &&
        uses[i].text == LiteralUse::Text::unknown)
      return false;
  return true;
}

bool same_places(const std::vector<LiteralUse>& left, const std::vector<LiteralUse>& right) {
  return std::ranges::equal(left, right, {}, &LiteralUse::place, &LiteralUse::place);
}

}  // namespace

PreparedForm PreparedForms::find(const dialect::StatementForm& form, std::string_view sql) {
  const auto found = entries_.find(form.form);
  if (found == entries_.end() || !is_known(form, found->second.uses)) return {};
  read_fixed(form, sql, found->second.uses);
  const Variant* const variant = variant_of(found->second);
  if (!variant) return {};
  return {variant->statement.get(), &found->second.uses};
}

// Tells apart what must not be told by its use alone: `,` cannot stand in for a part of another value,
// because sizes stand in front.
void PreparedForms::read_fixed(const dialect::StatementForm& form, std::string_view sql,
                               const std::vector<LiteralUse>& uses) {
  fixed_.clear();
  for (std::size_t i = 0; i < form.literals.size(); ++i) {
    const Literal& literal = form.literals[i];
    if (can_be_apart(literal.kind, uses[i])) continue;
    fixed_.append(std::to_string(i)).append(1, ' ').append(std::to_string(literal.end - literal.begin));
    fixed_.append(1, ' ').append(sql, literal.begin, literal.end - literal.begin);
  }
}

PreparedForms::Variant* PreparedForms::variant_of(Entry& entry) {
  for (Variant& variant : entry.variants) {
    if (variant.fixed != fixed_) continue;
    variant.used = entry.used = ++now_;
    return &variant;
  }
  return nullptr;
}

PreparedForm PreparedForms::add(const dialect::StatementForm& form, std::string_view sql,
                                const std::vector<LiteralUse>& uses, StatementHandle statement) {
  if (!entries_.contains(form.form)) make_room();
  Entry& entry = entries_[form.form];
  if (!same_places(entry.uses, uses)) {
    entry.uses = uses;
    entry.variants.clear();
  }
  for (std::size_t i = 0; i < uses.size(); ++i)
    if (uses[i].text != LiteralUse::Text::unknown) entry.uses[i].text = uses[i].text;
  read_fixed(form, sql, uses);
  Variant* variant = variant_of(entry);
  if (!variant) {
    if (entry.variants.size() == most_variants)
      entry.variants.erase(std::ranges::min_element(entry.variants, {}, &Variant::used));
    variant = &entry.variants.emplace_back(Variant{fixed_, std::move(statement)});
    variant->used = entry.used = ++now_;
  }
  return {variant->statement.get(), &entry.uses};
}

void PreparedForms::make_room() {
  if (entries_.size() < most_forms) return;
  entries_.erase(std::ranges::min_element(entries_, {}, [](const auto& entry) { return entry.second.used; }));
}

}  // namespace tallyra::standins::ado
