#include "standins/ado/cursor.h"

#include <algorithm>

#include "automation/folded_name.h"
#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {

const RowSet& Cursor::rows() const {
  if (!rows_) raise(ado_error::object_closed);
  return *rows_;
}

std::size_t Cursor::column_index(std::string_view name) const {
  const auto& all = columns();
  for (std::size_t index = 0; index < all.size(); ++index)
    if (automation::equals_folded(all[index].name, name)) return index;
  raise(ado_error::item_not_found);
}

std::size_t Cursor::column_index(std::int32_t ordinal) const {
  if (ordinal < 0 || static_cast<std::size_t>(ordinal) >= columns().size()) raise(ado_error::item_not_found);
  return static_cast<std::size_t>(ordinal);
}

void Cursor::move_first() {
  if (row_count() == 0) raise(ado_error::no_current_record);
  at_ = 0;
}

void Cursor::move_last() {
  if (row_count() == 0) raise(ado_error::no_current_record);
  at_ = count() - 1;
}

void Cursor::move_next() {
  if (after_last()) raise(ado_error::no_current_record);
  ++at_;
}

void Cursor::move_previous() {
  if (before_first()) raise(ado_error::no_current_record);
  if (forward_only_) raise(provider_error::cannot_fetch_backward);
  --at_;
}

void Cursor::move(std::int64_t distance) {
  if (distance > 0 ? after_last() : before_first()) raise(ado_error::no_current_record);
  if (distance < 0 && forward_only_) raise(provider_error::cannot_fetch_backward);
  const std::int64_t target = at_ + distance;
  at_ = static_cast<std::ptrdiff_t>(std::clamp<std::int64_t>(target, -1, count()));
}

void Cursor::go_to(std::int64_t absolute_position) {
  if (absolute_position < 1 || absolute_position > count()) raise(ado_error::invalid_argument);
  at_ = static_cast<std::ptrdiff_t>(absolute_position - 1);
}

automation::Value Cursor::value(std::size_t column) const {
  const RowSet& all = rows();
  if (at_ < 0 || static_cast<std::size_t>(at_) >= all.row_count()) raise(ado_error::no_current_record);
  return all.value(static_cast<std::size_t>(at_), column);
}

}  // namespace tallyra::standins::ado
