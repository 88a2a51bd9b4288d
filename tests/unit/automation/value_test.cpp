#include "automation/value.h"

#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/convert.h"

namespace tallyra::automation {
namespace {

TEST(AutomationValue, IsOfTheKindThatItIsMadeOf) {
  EXPECT_TRUE(Value().is_empty());
  EXPECT_TRUE(Value(Null{}).is_null());
  EXPECT_TRUE(Value(Missing{}).is_missing());
  EXPECT_TRUE(Value("text").is_text());
  EXPECT_TRUE(Value(true).holds<bool>());
  EXPECT_TRUE(Value(std::int16_t{1}).holds<std::int16_t>());
  EXPECT_TRUE(Value(1).holds<std::int32_t>());
  EXPECT_TRUE(Value(1.0F).holds<float>());
  EXPECT_TRUE(Value(Object()).is_object()) << "no object is an object variable all the same";
  EXPECT_EQ(Value(1).get_if<double>(), nullptr);
}

TEST(AutomationValue, EqualsAnotherOfTheSameKindAndContentOnly) {
  EXPECT_EQ(Value("a"), Value(std::string("a")));
  EXPECT_NE(Value(1), Value(1.0));
  EXPECT_NE(Value(1), Value(std::int16_t{1}));
  EXPECT_NE(Value(), Value(Null{}));
  EXPECT_NE(Value(""), Value());
  const Object object = make_object<Collection>();
  EXPECT_EQ(Value(object), Value(object));
  EXPECT_NE(Value(object), Value(make_object<Collection>()));
}

TEST(AutomationValue, ATextStartsAgainInTheRoomThatItHas) {
  Value value(std::string(500, 'x'));
  const char* const room = value.get_if<std::string>()->data();
  std::string& text = value.restart_text();
  EXPECT_EQ(text, "");
  text.append(400, 'y');
  EXPECT_EQ(text.data(), room);
  EXPECT_EQ(value, Value(std::string(400, 'y')));
}

TEST(AutomationValue, WhatWasNoTextBecomesAnEmptyOne) {
  Value value(7);
  value.restart_text();
  EXPECT_EQ(value, Value(""));
}

}  // namespace
}  // namespace tallyra::automation
