#include "client/verbs/limit.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

// What --limit comes to where 50 is usual.
std::size_t limit_with(std::vector<std::string> values) {
  std::ostringstream out;
  const Console console{out, out};
  Words words;
  if (!values.empty()) words.options["--limit"] = std::move(values);
  return limit_of(VerbContext(std::move(words), {}, console), 50);
}

TEST(Limit, IsTheUsualOneUntilAnotherIsSaid) {
  EXPECT_EQ(limit_with({}), 50U);
  EXPECT_EQ(limit_with({"7"}), 7U);
  EXPECT_EQ(limit_with({"0"}), 0U);
  EXPECT_EQ(limit_with({"7", "8"}), 8U);
}

TEST(Limit, IsAWholeNumber) {
  for (const char* word : {"", "x", "-1", "1.5", "7 ", " 7", "99999999999999999999999"})
    EXPECT_EQ(usage_error_text([&] { limit_with({word}); }),
              "--limit '" + std::string(word) + "': write a whole number");
}

}  // namespace
}  // namespace tallyra::client
