#include "automation/collection.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>

#include "automation/convert.h"
#include "tests/unit/automation/error_of.h"

namespace tallyra::automation {
namespace {

class ACollection : public testing::Test {
 protected:
  void fill(std::initializer_list<const char*> items) {
    for (const char* item : items) collection_.call("Add", item);
  }
  // An item that is its own key.
  void add_keyed(const char* text) { collection_.call("Add", text, text); }
  // Every item, as it is told one by one.
  std::string items() const {
    std::string all;
    const std::int32_t count = to_int32(collection_.get("Count"));
    for (std::int32_t i = 1; i <= count; ++i) append_concatenated(all, collection_.call("Item", i));
    return all;
  }
  template <class... Args>
  std::int32_t error_of_call(const char* member, const Args&... arguments) const {
    return error_of([&] { collection_.call(member, arguments...); });
  }

  const Object collection_ = make_object<Collection>();
  const Value missing_ = Missing{};
};

// Has a value of its own as its default member, and may do something when it is asked for it.
class Stand : public Implements<Stand> {
 public:
  static const MemberTable<Stand>& members() {
    static const MemberTable<Stand> table{{default_member, "Value", property<&Stand::value>}};
    return table;
  }
  explicit Stand(
      Value value, std::function<void()> when_asked = [] {})
      : value_(std::move(value)), when_asked_(std::move(when_asked)) {}
  Value value() {
    when_asked_();
    return value_;
  }

 private:
  Value value_;
  std::function<void()> when_asked_;
};

TEST_F(ACollection, CountsFromOneAndForgetsWhatIsRemoved) {
  fill({"a", "b", "c"});
  collection_.call("Remove", 2);
  EXPECT_EQ(collection_.get("Count"), Value(2));
  EXPECT_EQ(collection_.call("Item", 2), Value("c"));
  EXPECT_EQ(collection_.invoke(default_member, Access::read, std::array{Argument(Value(1))}), Value("a"));
}

TEST_F(ACollection, ANumberThatNoItemHasIsError9) {
  fill({"a", "b"});
  const Value numbers[] = {0,
                           3,
                           -1,
                           std::int64_t{1} << 40,
                           0.4,
                           2.6,
                           1e300,
                           -1e300,
                           Value(),
                           true,
                           Currency{25001},
                           std::numeric_limits<double>::quiet_NaN()};
  for (const auto& number : numbers) {
    EXPECT_EQ(error_of_call("Item", number), error_number::bad_index) << to_text(number);
    EXPECT_EQ(error_of_call("Remove", number), error_number::bad_index) << to_text(number);
    EXPECT_EQ(error_of_call("Add", "x", missing_, number), error_number::bad_index) << to_text(number);
    EXPECT_EQ(error_of_call("Add", "x", missing_, missing_, number), error_number::bad_index);
  }
  EXPECT_EQ(items(), "ab");
}

TEST_F(ACollection, NumbersOfEveryKindFindAnItemAndHalvesTheEvenOne) {
  fill({"a", "b", "c"});
  const Value seconds[] = {std::int16_t{2},
                           std::uint8_t{2},
                           std::int64_t{2},
                           2.0F,
                           1.5,
                           2.5,
                           Currency{15001},
                           Currency{25000},
                           Date{2},
                           Decimal(std::int64_t{2}),
                           make_object<Stand>(2)};
  for (const auto& number : seconds) EXPECT_EQ(collection_.call("Item", number), Value("b"));
}

TEST_F(ACollection, FindsAnItemByItsKeyInAnyCase) {
  fill({"a"});
  collection_.call("Add", "b", "Key");
  collection_.call("Add", "c", "ÄÖÜ Σ Ж Ｋ 文");
  collection_.call("Add", "d", "2");
  collection_.call("Add", "e", "");
  for (const char* key : {"Key", "KEY", "key"}) EXPECT_EQ(collection_.call("Item", key), Value("b"));
  EXPECT_EQ(collection_.call("Item", "äöü σ ж ｋ 文"), Value("c"));
  EXPECT_EQ(collection_.call("Item", "2"), Value("d")) << "a text is a key, never a number";
  EXPECT_EQ(collection_.call("Item", ""), Value("e"));
  EXPECT_EQ(collection_.call("Item", make_object<Stand>("kEY")), Value("b"));
  collection_.call("Remove", "KEY");
  EXPECT_EQ(items(), "acde");
  EXPECT_EQ(error_of_call("Item", "key"), error_number::invalid_argument);
}

TEST_F(ACollection, AKeyThatNoItemHasIsError5) {
  fill({"a"});
  add_keyed("b");
  for (const char* key : {"a", "1", "", "b ", "bb"}) {
    EXPECT_EQ(error_of_call("Item", key), error_number::invalid_argument) << key;
    EXPECT_EQ(error_of_call("Remove", key), error_number::invalid_argument) << key;
    EXPECT_EQ(error_of_call("Add", "x", missing_, key), error_number::invalid_argument) << key;
    EXPECT_EQ(error_of_call("Add", "x", missing_, missing_, key), error_number::invalid_argument) << key;
  }
  EXPECT_EQ(items(), "ab");
}

TEST_F(ACollection, AKeyGivenTwiceIsError457AndChangesNothing) {
  collection_.call("Add", "a", "Key");
  EXPECT_EQ(error_of_call("Add", "b", "kEY"), 457);
  EXPECT_EQ(error_of_call("Add", "b", "kEY", 1), 457);
  EXPECT_EQ(items(), "a");
  EXPECT_EQ(collection_.call("Item", "key"), Value("a"));
  EXPECT_EQ(Error(457).description(), "This key is already associated with an element of this collection");
  collection_.call("Remove", 1);
  collection_.call("Add", "b", "KEY");
  EXPECT_EQ(collection_.call("Item", "key"), Value("b")) << "free again";
}

TEST_F(ACollection, WhatIsNeitherNumberNorTextIsError13) {
  fill({"a"});
  const Value no_indexes[] = {Null{}, Missing{}, Object(), make_object<Stand>(Object()),
                              make_object<Stand>(Null{})};
  for (const auto& index : no_indexes) {
    EXPECT_EQ(error_of_call("Item", index), error_number::type_mismatch);
    EXPECT_EQ(error_of_call("Remove", index), error_number::type_mismatch);
  }
  const Value no_keys[] = {1, Value(), Null{}, true, Object(), make_object<Stand>(1)};
  for (const auto& key : no_keys) EXPECT_EQ(error_of_call("Add", "x", key), error_number::type_mismatch);
  EXPECT_EQ(error_of_call("Add", "x", missing_, Null{}), error_number::type_mismatch);
  EXPECT_EQ(items(), "a");
}

TEST_F(ACollection, PutsAnItemBeforeOrAfterAnotherByNumberOrKey) {
  add_keyed("m");
  collection_.call("Add", "a", missing_, 1);
  collection_.call("Add", "z", "z", missing_, 2);
  collection_.call("Add", "l", "l", "M");
  collection_.call("Add", "n", missing_, missing_, "m");
  EXPECT_EQ(items(), "almnz");
  for (const char* key : {"l", "m", "z"}) EXPECT_EQ(collection_.call("Item", key), Value(key));
  EXPECT_EQ(error_of_call("Add", "x", missing_, 1, 1), error_number::invalid_argument) << "both";
  EXPECT_EQ(items(), "almnz");
}

TEST_F(ACollection, RefusesTheFirstPlaceOfNone) {
  EXPECT_EQ(error_of_call("Add", "x", missing_, 1), error_number::bad_index);
  EXPECT_EQ(error_of_call("Add", "x", "x", missing_, 1), error_number::bad_index);
  EXPECT_EQ(error_of_call("Item", "x"), error_number::invalid_argument) << "the key of a refused item";
  EXPECT_EQ(collection_.get("Count"), Value(0));
}

TEST_F(ACollection, TakesOneToFourArgumentsOrOne) {
  EXPECT_EQ(error_of_call("Add"), error_number::wrong_argument_count);
  EXPECT_EQ(error_of_call("Add", 1, "k", missing_, missing_, 1), error_number::wrong_argument_count);
  EXPECT_EQ(error_of_call("Item"), error_number::wrong_argument_count);
  EXPECT_EQ(error_of_call("Remove", 1, 1), error_number::wrong_argument_count);
}

// Keys are found by where their item was last seen.
TEST_F(ACollection, KeysStayWithTheirItemsThroughThousandsOfChanges) {
  std::vector<std::string> expected;
  std::uint32_t random = 12345;
  const auto draw = [&random](std::size_t below) {
    random = random * 1664525U + 1013904223U;
    return static_cast<std::size_t>(random >> 8) % below;
  };
  for (int step = 0; step < 4000; ++step) {
    const std::size_t at = expected.empty() ? 0 : draw(expected.size());
    if (expected.size() > 20 && draw(2) == 0) {
      collection_.call("Remove",
                       draw(2) == 0 ? Value(expected[at]) : Value(static_cast<std::int32_t>(at + 1)));
      expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(at));
    } else {
      const std::string fresh = "Key" + std::to_string(step);
      collection_.call("Add", fresh, fresh, expected.empty() ? missing_ : Value(expected[at]));
      expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(at), fresh);
    }
    const std::string& asked = expected[draw(expected.size())];
    ASSERT_EQ(collection_.call("Item", asked), Value(asked)) << step;
  }
  for (std::size_t i = 0; i < expected.size(); ++i)
    ASSERT_EQ(collection_.call("Item", static_cast<std::int32_t>(i + 1)), Value(expected[i]));
}

// Puts something in its own place when it goes.
class LastWord : public Implements<LastWord> {
 public:
  static const MemberTable<LastWord>& members() {
    static const MemberTable<LastWord> none{};
    return none;
  }
  explicit LastWord(Collection& collection) : collection_(collection) {}
  ~LastWord() override { collection_.add(std::array{Argument(Value("last word")), Argument(key_)}); }

 private:
  Collection& collection_;
  const Value key_ = "Word";
};

TEST_F(ACollection, MayBeUsedByTheObjectThatIsRemoved) {
  collection_.call("Add", "first");
  collection_.call("Add", make_object<LastWord>(dynamic_cast<Collection&>(*collection_.dispatch())), "Word");
  for (int i = 0; i < 10; ++i)
    collection_.call("Add", "a text that is too long to lie within a value itself");
  collection_.call("Remove", "word");
  EXPECT_EQ(collection_.get("Count"), Value(12));
  EXPECT_EQ(collection_.call("Item", 12), Value("last word"));
  EXPECT_EQ(collection_.call("Item", "Word"), Value("last word")) << "its key was free already";
}

TEST_F(ACollection, MayBeChangedByTheObjectThatStandsForAnIndex) {
  const auto emptying = [this](Value value) {
    return Value(make_object<Stand>(std::move(value), [this] {
      while (to_int32(collection_.get("Count")) > 0) collection_.call("Remove", 1);
    }));
  };
  for (const Value& index : {Value(2), Value("b")}) {
    const std::int32_t error = index.is_text() ? error_number::invalid_argument : error_number::bad_index;
    for (const char* member : {"Item", "Remove"}) {
      add_keyed("a");
      add_keyed("b");
      EXPECT_EQ(error_of_call(member, emptying(index)), error) << member;
    }
    add_keyed("a");
    add_keyed("b");
    EXPECT_EQ(error_of_call("Add", "c", "c", missing_, emptying(index)), error);
  }
  add_keyed("a");
  collection_.call("Add", "c", emptying("a"));
  EXPECT_EQ(items(), "c");
}

TEST_F(ACollection, KeepsValuesAsTheyAre) {
  const Value values[] = {Value(),
                          Null{},
                          Missing{},
                          true,
                          std::int16_t{1},
                          1,
                          1.5F,
                          1.5,
                          Currency{1},
                          Decimal(int64_t{5}),
                          Date{45358.25},
                          "文",
                          Object(),
                          make_object<Stand>(1),
                          collection_};
  for (const auto& value : values) collection_.call("Add", value);
  for (std::int32_t i = 0; i < std::ssize(values); ++i)
    EXPECT_EQ(collection_.call("Item", i + 1), values[i]) << i;
  while (to_int32(collection_.get("Count")) > 0) collection_.call("Remove", 1);
}

// The next item of a walk as a text, "-" behind the last one.
std::string visit(Walk& walk) {
  const auto item = walk.item();
  if (!item) return "-";
  walk.move_to(walk.position() + 1);
  return to_text(*item);
}

TEST_F(ACollection, AWalkVisitsWhatStaysOnceAndWhatComesInBehindIt) {
  fill({"a", "b", "c", "d", "e"});
  Walk walk(collection_);
  EXPECT_EQ(visit(walk), "a");
  EXPECT_EQ(visit(walk), "b");
  collection_.call("Remove", 2);
  EXPECT_EQ(visit(walk), "c") << "the one just visited is gone";
  collection_.call("Remove", 1);
  EXPECT_EQ(visit(walk), "d") << "one visited long ago is gone";
  collection_.call("Add", "x", missing_, 1);
  collection_.call("Add", "y", missing_, missing_, 1);
  collection_.call("Add", "z", missing_, 5);
  EXPECT_EQ(items(), "xycdze");
  collection_.call("Remove", 6);
  EXPECT_EQ(visit(walk), "z") << "came in right behind the walk";
  EXPECT_EQ(visit(walk), "-") << "the last one is gone";
  collection_.call("Add", "late");
  EXPECT_EQ(visit(walk), "late");
  EXPECT_EQ(visit(walk), "-");
}

TEST_F(ACollection, EmptiesItselfWithinAWalk) {
  fill({"a", "b", "c", "d"});
  Walk walk(collection_);
  std::string visited;
  while (walk.left() > 0) {
    visited += visit(walk);
    collection_.call("Remove", 1);
  }
  EXPECT_EQ(visited, "abcd");
  EXPECT_EQ(collection_.get("Count"), Value(0));
}

TEST_F(ACollection, WalksDoNotDisturbEachOtherAndMayEndInAnyOrder) {
  fill({"a", "b", "c"});
  auto first = std::make_unique<Walk>(collection_);
  Walk second(collection_, 1);
  visit(*first);
  visit(*first);
  collection_.call("Remove", 1);
  EXPECT_EQ(visit(second), "b");
  EXPECT_EQ(visit(*first), "c");
  first.reset();
  collection_.call("Remove", 1);
  EXPECT_EQ(visit(second), "c");
  EXPECT_EQ(visit(second), "-");
}

TEST(AWalk, KeepsItsObject) {
  Object collection = make_object<Collection>();
  collection.call("Add", "a");
  Walk walk(collection);
  collection = {};
  EXPECT_EQ(visit(walk), "a");
}

}  // namespace
}  // namespace tallyra::automation
