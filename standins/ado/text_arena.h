#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tallyra::standins::ado {

// Keeps many short texts in few allocations, at addresses that never change, until it goes.
class TextArena {
 public:
  // Room for `size` characters.
  char* allocate(std::size_t size) {
    if (size > free_) grow(size);
    char* const room = next_;
    next_ += size;
    free_ -= size;
    return room;
  }

  const char* keep(std::string_view text) {
    char* const room = allocate(text.size());
    text.copy(room, text.size());
    return room;
  }

 private:
  void grow(std::size_t size);

  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  std::size_t free_ = 0;
  std::size_t next_block_ = 512;
};

}  // namespace tallyra::standins::ado
