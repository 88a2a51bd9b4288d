#include "standins/ado/library_options.h"

#include <gtest/gtest.h>

namespace tallyra::standins::ado::test {
namespace {

std::string read(std::string_view text) {
  std::string told;
  for (const Keyword& option : read_library_options(text))
    told += "[" + option.name + "|" + option.value + "]";
  return told;
}

TEST(LibraryOptions, AreReadAsTheLibraryReadsThem) {
  EXPECT_EQ(read("a=1 b='two words'\tc = x"), "[a|1][b|two words][c|x]");
  EXPECT_EQ(read("a='it\\'s' b=x\\ y c=\\\\"), "[a|it's][b|x y][c|\\]");
  EXPECT_EQ(read(" a='' b="), "[a|][b|]");
  EXPECT_EQ(read(""), "");
}

TEST(LibraryOptions, AreReadAsFarAsTheyMakeSense) {
  EXPECT_EQ(read("a=1 b c=2"), "[a|1]");
  EXPECT_EQ(read("a=1 b='open"), "[a|1][b|open]");
  EXPECT_EQ(read("a=1\\"), "[a|1]");
}

TEST(LibraryOptions, ThatLoadCodeOrAreUnknownAreRefused) {
  EXPECT_TRUE(is_refused_option("sslkey", "engine:x"));
  EXPECT_TRUE(is_refused_option("options", "-c Session_Pre\\load_Libraries=x"));
  EXPECT_TRUE(is_refused_option("service", "x"));
  EXPECT_FALSE(is_refused_option("sslkey", "/etc/key"));
  EXPECT_FALSE(is_refused_option("options", "-c lock_timeout=5"));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
