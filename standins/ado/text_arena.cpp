#include "standins/ado/text_arena.h"

#include <algorithm>

namespace tallyra::standins::ado {
namespace {
constexpr std::size_t largest_block = std::size_t{64} * 1024;
}

void TextArena::grow(std::size_t size) {
  const std::size_t block = std::max(size, next_block_);
  blocks_.push_back(std::make_unique_for_overwrite<char[]>(block));
  next_ = blocks_.back().get();
  free_ = block;
  next_block_ = std::min(next_block_ * 2, largest_block);
}

}  // namespace tallyra::standins::ado
