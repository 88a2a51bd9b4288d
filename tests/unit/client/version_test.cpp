#include "client/version.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tallyra::client {
namespace {

TEST(Version, IsALineWithTheProgramAndANumberOfThreeParts) {
  const std::string text = version_text();
  const std::string name = "tallyra-client ";
  ASSERT_TRUE(text.starts_with(name) && text.ends_with("\n")) << text;
  const std::string number = text.substr(name.size(), text.size() - name.size() - 1);
  EXPECT_EQ(std::ranges::count(number, '.'), 2) << number;
  EXPECT_EQ(number.find_first_not_of("0123456789."), number.npos) << number;
}

}  // namespace
}  // namespace tallyra::client
