#include "client/output/json_value.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/collection.h"

namespace tallyra::client {
namespace {

using automation::Value;

std::string written(const Value& value) {
  return value_json(value).dump();
}

TEST(JsonValue, ANumberIsANumberInItsShortestForm) {
  EXPECT_EQ(written(7), "7");
  EXPECT_EQ(written(7.0), "7");
  EXPECT_EQ(written(-0.5), "-0.5");
  EXPECT_EQ(written(0.1F), "0.1") << "not what a double makes of it";
  EXPECT_EQ(written(std::int64_t{9007199254740993}), "9007199254740993");
  EXPECT_EQ(written(true), "true");
}

TEST(JsonValue, AnExactNumberIsATextToStayOne) {
  EXPECT_EQ(written(automation::Currency{12500}), "\"1.25\"");
  EXPECT_EQ(written(*automation::Decimal::parse("1234567890123456789.5")), "\"1234567890123456789.5\"");
}

TEST(JsonValue, WhatIsNoNumberOfJsonIsNull) {
  EXPECT_EQ(number_json(std::numeric_limits<double>::infinity()).dump(), "null");
  EXPECT_EQ(number_json(std::numeric_limits<double>::quiet_NaN()).dump(), "null");
  EXPECT_EQ(number_json(1e300).dump(), "1e+300");
}

TEST(JsonValue, NothingIsNullAndADateIsAText) {
  for (const Value& nothing :
       {Value(), Value(automation::Null{}), Value(automation::Missing{}), Value(automation::Object())})
    EXPECT_EQ(written(nothing), "null");
  EXPECT_EQ(written(automation::Date{45382.5}), "\"2024/03/31 12:00:00\"");
  EXPECT_EQ(written(automation::make_object<automation::Collection>()), "{\"kind\":\"object\"}");
}

TEST(JsonValue, TheTextOfBrokenBytesIsUtf8AllTheSame) {
  EXPECT_EQ(json_text(value_json("a\xFF"
                                 "b")),
            "\"a\xEF\xBF\xBD"
            "b\"\n");
}

}  // namespace
}  // namespace tallyra::client
