#include "tests/support/printed_value.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "automation/collection.h"

// A failed comparison of values tells in words what it compared.
namespace tallyra::automation {
namespace {

TEST(PrintedValue, TellsKindAndContent) {
  const struct {
    Value value;
    const char* text;
  } rows[] = {{Value(), "Empty"},
              {Null{}, "Null"},
              {Missing{}, "missing"},
              {true, "boolean True"},
              {std::uint8_t{7}, "byte 7"},
              {std::int16_t{-7}, "int16 -7"},
              {7, "int32 7"},
              {std::int64_t{7}, "int64 7"},
              {1.5F, "single 1.5"},
              {1.5, "double 1.5"},
              {Currency{12500}, "currency 1.25"},
              {Date{45382}, "date 2024/03/31"},
              {"it's", "text 'it's'"},
              {Object(), "Nothing"},
              {make_object<Collection>(), "object"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(testing::PrintToString(value), text);
}

}  // namespace
}  // namespace tallyra::automation
