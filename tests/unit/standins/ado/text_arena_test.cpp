#include "standins/ado/text_arena.h"

#include <gtest/gtest.h>

#include <string>

namespace tallyra::standins::ado {
namespace {

TEST(TextArena, TextsStayWhereTheyWereKept) {
  TextArena arena;
  std::vector<std::pair<const char*, std::string>> kept;
  for (std::size_t i = 0; i < 5000; ++i) {
    const std::string text(i % 97, static_cast<char>('a' + i % 26));
    kept.emplace_back(arena.keep(text), text);
  }
  for (const auto& [place, text] : kept) ASSERT_EQ(std::string_view(place, text.size()), text);
}

TEST(TextArena, ATextLargerThanABlockHasOneOfItsOwn) {
  TextArena arena;
  const char* const small = arena.keep("small");
  const std::string large(1'000'000, 'x');
  EXPECT_EQ(std::string_view(arena.keep(large), large.size()), large);
  EXPECT_EQ(std::string_view(arena.keep("after"), 5), "after");
  EXPECT_EQ(std::string_view(small, 5), "small");
}

}  // namespace
}  // namespace tallyra::standins::ado
