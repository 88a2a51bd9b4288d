#include "frame/find_field.h"

#include <gtest/gtest.h>

#include "tests/support/fields.h"

namespace tallyra::frame {
namespace {

using automation::Null;
using automation::Object;
using automation::Value;

class FindField : public testing::Test {
 protected:
  std::optional<Value> find(std::string_view name, NameMatch match) {
    return find_field({*entries.names.get_if<Object>(), *entries.values.get_if<Object>()}, name, match);
  }

  stage::Fields entries{{"sn", 1}, {"SN", 2}, {"SN", 3}, {"NOTES", Null{}}};
};

TEST_F(FindField, TakesTheFirstEntryOfTheName) {
  EXPECT_EQ(find("SN", NameMatch::exact), Value(2));
  EXPECT_EQ(find("SN", NameMatch::any_case), Value(1));
  EXPECT_EQ(find("sN", NameMatch::any_case), Value(1));
}

TEST_F(FindField, FindsNothingWhereNoEntryHasTheName) {
  EXPECT_EQ(find("sN", NameMatch::exact), std::nullopt);
  EXPECT_EQ(find("SN ", NameMatch::any_case), std::nullopt);
  EXPECT_EQ(find("", NameMatch::any_case), std::nullopt);
}

TEST_F(FindField, TellsAnEntryWithoutAValueFromNone) {
  EXPECT_EQ(find("NOTES", NameMatch::exact), Value(Null{}));
}

TEST_F(FindField, TakesANameThatIsNoTextForItsText) {
  entries = stage::Fields();
  stage::Fields::add(entries.names, Null{});
  stage::Fields::add(entries.names, 7);
  stage::Fields::add(entries.values, "of Null");
  stage::Fields::add(entries.values, "of seven");
  EXPECT_EQ(find("7", NameMatch::exact), Value("of seven"));
  EXPECT_EQ(find("", NameMatch::exact), Value("of Null"));
}

}  // namespace
}  // namespace tallyra::frame
