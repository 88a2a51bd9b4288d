#include "automation/object.h"

#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/local/local_classes.h"
#include "automation/member_table.h"
#include "tests/unit/automation/error_of.h"

namespace tallyra::automation {
namespace {

// Counts how often its names are asked for and replaces what comes by reference.
class Counter : public Implements<Counter> {
 public:
  static const MemberTable<Counter>& members() {
    static const MemberTable<Counter> table{{1, "Replace", method<&Counter::replace>},
                                            {2, "Resolved", property<&Counter::resolved>},
                                            {3, "Text", read_write<&Counter::text, &Counter::set_text>}};
    return table;
  }
  MemberId resolve(std::string_view name) override {
    ++resolved_;
    return Implements::resolve(name);
  }
  Value replace(Arguments arguments) {
    for (const auto& argument : arguments) argument.set(to_text(argument.get()) + "!");
    return static_cast<std::int32_t>(arguments.size());
  }
  Value resolved() { return resolved_; }
  Value text() { return text_; }
  void set_text(const Value& value) { text_ = to_text(value); }

 private:
  std::int32_t resolved_ = 0;
  std::string text_;
};

TEST(LateBoundObject, FindsItsMembersWhateverTheCase) {
  const Object counter = make_object<Counter>();
  counter.put("TEXT", "a");
  EXPECT_EQ(counter.get("text"), Value("a"));
  EXPECT_EQ(error_of([&] { counter.get("texts"); }), error_number::no_such_member);
  EXPECT_EQ(error_of([&] { counter.put("Replace", 1); }), error_number::no_such_member);
}

TEST(LateBoundObject, HandsBackOnlyWhatWentByReference) {
  const Object counter = make_object<Counter>();
  Value by_reference = "a";
  const Value by_value = "b";
  EXPECT_EQ(counter.call("Replace", ref(by_reference), by_value, "c", 4), Value(4));
  EXPECT_EQ(by_reference, Value("a!"));
  EXPECT_EQ(by_value, Value("b"));
}

TEST(LateBoundObject, ABoundMemberResolvesItsNameOnce) {
  const Object counter = make_object<Counter>();
  const BoundMember replace(counter, "Replace");
  Value text = "a";
  for (int i = 0; i < 100; ++i) replace.call(ref(text));
  EXPECT_EQ(counter.get("Resolved"), Value(2));
}

TEST(LateBoundObject, NoObjectIsAnErrorOfItsOwn) {
  EXPECT_EQ(error_of([] { Object().get("Text"); }), error_number::object_not_set);
  EXPECT_EQ(error_of([] { Object().call("Text", 1); }), error_number::object_not_set);
}

TEST(Creation, FindsRegisteredClassesWhateverTheCase) {
  const local::ScopedClass scoped("Sample.Counter", [] { return make_object<Counter>(); });
  EXPECT_TRUE(create("sample.COUNTER"));
  EXPECT_EQ(error_of([] { create("Sample.Other"); }), error_number::cannot_create);
  {
    const local::ScopedClass hidden("Sample.Counter", nullptr);
    EXPECT_EQ(error_of([] { create("Sample.Counter"); }), error_number::cannot_create);
  }
  EXPECT_TRUE(create("Sample.Counter"));
}

TEST(ErrorNumbers, FollowTheHresultThatCarriesThem) {
  const struct {
    std::uint32_t hresult;
    std::int32_t number;
  } rows[] = {
      {0x80020003, 438},         {0x80020006, 438},  {0x80020005, 13},          {0x8002000A, 6},
      {0x8002000E, 450},         {0x8002000F, 449},  {0x80040154, 429},         {0x800401F3, 429},
      {0x800A0E79, 3705},        {0x800A0BCD, 3021}, {0x80040E14, -2147217900}, {0x8004D00E, -2147168242},
      {0x80004005, -2147467259}, {0x80070005, 70},   {0x80020001, 438},         {0x80020004, 448},
      {0x80028CA0, 13},          {0x80020007, 446},  {0x80020008, 458},         {0x8002000B, 9},
      {0x8002000D, 10},          {0x80020011, 451},  {0x80020012, 11},          {0x8007000E, 7},
      {0x80070057, 5},           {0x80004001, 445},  {0x80004002, 430},         {0x80080005, 429},
      {0x800706BA, 462}};
  for (const auto& [hresult, number] : rows) {
    EXPECT_EQ(number_from_hresult(static_cast<std::int32_t>(hresult)), number);
    EXPECT_EQ(number_from_hresult(hresult_from_number(number)), number);
  }
  EXPECT_EQ(static_cast<std::uint32_t>(hresult_from_number(3705)), 0x800A0E79U);
  EXPECT_EQ(static_cast<std::uint32_t>(hresult_of_raised(438)), 0x800A01B6U);
  EXPECT_EQ(static_cast<std::uint32_t>(hresult_of_raised(3705)), 0x800A0E79U);
  EXPECT_EQ(hresult_of_raised(-2147217900), -2147217900);
  EXPECT_EQ(Error(13).description(), "Type mismatch");
  EXPECT_EQ(Error(-5).description(), "");
}

}  // namespace
}  // namespace tallyra::automation
