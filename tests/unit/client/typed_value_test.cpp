#include "client/typed_value.h"

#include <gtest/gtest.h>

#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

using automation::Date;
using automation::Missing;
using automation::Null;
using automation::Value;

TEST(TypedValue, IsTextUnlessAMarkSaysOtherwise) {
  const struct {
    const char* word;
    Value value;
  } rows[] = {
      {"A1", "A1"},
      {"", ""},
      {"12.5", "12.5"},
      {"-3", "-3"},
      {"2024/01/31", "2024/01/31"},
      {"仓库", "仓库"},
      {"http://x", "http://x"},
      {"N:5", "N:5"},
      {"null", "null"},
      {"t:", ""},
      {"t:n:12", "n:12"},
      {"t:A=1", "A=1"},
      {"t:@", "@"},
      {"n:12.5", 12.5},
      {"n:-0.25", -0.25},
      {"n:+7", 7.0},
      {"n:1e3", 1000.0},
      {"i:3", std::int32_t{3}},
      {"i:-2147483648", std::int32_t{-2147483647 - 1}},
      {"i:+2147483647", std::int32_t{2147483647}},
      {"d:2024/01/31", Date{45322}},
      {"d:2024-01-31 12:00:00", Date{45322.5}},
      {"d:2024/01/31 18:00", Date{45322.75}},
      {"b:true", true},
      {"b:False", false},
      {"null:", Null{}},
      {"empty:", Value()},
      {"missing:", Missing{}},
  };
  for (const auto& row : rows) EXPECT_TRUE(parse_typed_value(row.word) == row.value) << row.word;
}

TEST(TypedValue, ThatDoesNotFitItsMarkIsWrongUsage) {
  for (const char* word : {"n:",
                           "n:abc",
                           "n:1,5",
                           "n:1.5x",
                           "n:+-1",
                           "n: 1",
                           "n:inf",
                           "n:nan",
                           "n:1e999",
                           "i:",
                           "i:1.5",
                           "i:2147483648",
                           "i:--1",
                           "d:",
                           "d:31.01.2024",
                           "d:2024/02/30",
                           "d:2024/01/31 25:00",
                           "b:",
                           "b:1",
                           "null:x",
                           "empty:0",
                           "missing:x"})
    EXPECT_THROW(parse_typed_value(word), UsageError) << word;
}

TEST(TypedValue, ErrorSaysWhatIsWrongAndWhatWouldBeRight) {
  EXPECT_EQ(
      usage_error_text([] { parse_typed_value("n:abc"); }),
      "'n:abc' is no valid value: write a number such as n:12.5 or n:-3, or t:n:abc for this very text");
}

}  // namespace
}  // namespace tallyra::client
