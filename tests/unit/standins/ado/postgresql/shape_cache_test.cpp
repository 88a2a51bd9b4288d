#include "standins/ado/postgresql/shape_cache.h"

#include <gtest/gtest.h>

#include <set>

#include "standins/ado/postgresql/type_oids.h"

namespace tallyra::standins::ado {
namespace {

Shape shape_of_table(int number) {
  Shape shape;
  EXPECT_TRUE(shape.read("Insert Into T" + std::to_string(number) + "(A) Values(1)"));
  return shape;
}

TEST(ShapeCache, FindsAShapeUnderTheNameThatTheServerKnows) {
  ShapeCache cache;
  std::string discarded = "of before";
  EXPECT_EQ(cache.find(shape_of_table(1)), nullptr);
  const std::string name = cache.add(shape_of_table(1), discarded).name;
  EXPECT_EQ(discarded, "");
  cache.add(shape_of_table(2), discarded);
  ASSERT_NE(cache.find(shape_of_table(1)), nullptr);
  EXPECT_EQ(cache.find(shape_of_table(1))->name, name);
  EXPECT_FALSE(cache.find(shape_of_table(1))->usable);
  EXPECT_NE(cache.find(shape_of_table(2))->name, name);
}

TEST(ShapeCache, TellsWhatIsMetTheSecondTime) {
  ShapeCache cache;
  EXPECT_FALSE(cache.comes_again(shape_of_table(1)));
  EXPECT_FALSE(cache.comes_again(shape_of_table(2)));
  EXPECT_TRUE(cache.comes_again(shape_of_table(1)));
}

TEST(ShapeCache, TheOneUsedLeastMakesRoomAndTheServerForgetsIt) {
  ShapeCache cache;
  std::string discarded;
  std::string first;
  std::string second;
  for (int i = 0; i < 64; ++i) {
    ShapeCache::Entry& entry = cache.add(shape_of_table(i), discarded);
    entry.usable = true;
    if (i == 0) first = entry.name;
    if (i == 1) second = entry.name;
    EXPECT_EQ(discarded, "");
  }
  cache.find(shape_of_table(0));
  cache.add(shape_of_table(64), discarded);
  EXPECT_EQ(discarded, second);
  EXPECT_EQ(cache.find(shape_of_table(1)), nullptr);
  ASSERT_NE(cache.find(shape_of_table(0)), nullptr);
  EXPECT_EQ(cache.find(shape_of_table(0))->name, first);
}

TEST(ShapeCache, NoNameComesTwice) {
  ShapeCache cache;
  std::string discarded;
  std::set<std::string> names;
  for (int i = 0; i < 200; ++i)
    EXPECT_TRUE(names.insert(cache.add(shape_of_table(i), discarded).name).second);
  EXPECT_TRUE(cache.clear());
  EXPECT_FALSE(cache.clear());
  EXPECT_TRUE(names.insert(cache.add(shape_of_table(0), discarded).name).second);
}

TEST(ShapeCache, AValueIsGivenOnlyWhereItMeansWhatTheLiteralDid) {
  EXPECT_TRUE(means_the_same(LiteralKind::text, oid::time_stamp));
  EXPECT_TRUE(means_the_same(LiteralKind::integer, oid::double_precision));
  EXPECT_FALSE(means_the_same(LiteralKind::integer, oid::varying)) << "a number would become a text";
  EXPECT_FALSE(means_the_same(LiteralKind::integer, oid::small_int)) << "it may not fit";
  EXPECT_FALSE(means_the_same(LiteralKind::decimal, oid::integer)) << "it would be rounded";
  EXPECT_EQ(own_type(LiteralKind::integer), oid::integer);
  EXPECT_EQ(own_type(LiteralKind::decimal), oid::numeric);
  EXPECT_EQ(own_type(LiteralKind::text), 0U);
}

}  // namespace
}  // namespace tallyra::standins::ado
