#include "standins/ado/dialect/insert_heads.h"

namespace tallyra::standins::ado::dialect {
namespace {

constexpr std::size_t most_heads = 16;
constexpr std::size_t longest_head = 4096;

}  // namespace

const InsertHead* InsertHeads::match(std::string_view sql) {
  if (last_ < heads_.size() && sql.starts_with(heads_[last_].text)) return &heads_[last_];
  for (std::size_t i = 0; i < heads_.size(); ++i) {
    if (!sql.starts_with(heads_[i].text)) continue;
    last_ = i;
    return &heads_[i];
  }
  return nullptr;
}

void InsertHeads::remember(std::string_view text, const std::vector<bool>& dates) {
  if (text.size() > longest_head) return;
  if (heads_.size() < most_heads) {
    heads_.push_back({std::string(text), dates});
    return;
  }
  heads_[oldest_].text = text;
  heads_[oldest_].dates = dates;
  oldest_ = (oldest_ + 1) % most_heads;
}

}  // namespace tallyra::standins::ado::dialect
