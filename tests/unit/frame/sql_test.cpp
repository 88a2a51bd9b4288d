#include "frame/sql.h"

#include <gtest/gtest.h>

namespace tallyra::frame {
namespace {

TEST(StatementText, WithoutHolesIsTheTextItself) {
  EXPECT_EQ(sql("Order  by X "), "Order  by X ");
}

TEST(StatementText, FillsEveryHoleInOrder) {
  EXPECT_EQ(sql("Select '{}' , {}  And '{}'", "O'Neil", 1.0 / 30, automation::Value("x")),
            "Select 'O'Neil' , 3.33333333333333E-02  And 'x'");
  EXPECT_EQ(sql("{}{}", automation::Value(automation::Null{}), "{}"), "{}");
  EXPECT_EQ(sql("a{}", ""), "a");
}

TEST(StatementText, OfAValueIsWhatItIsInAHole) {
  EXPECT_EQ(text_of("O'Neil "), "O'Neil ");
  EXPECT_EQ(text_of(automation::Null{}), "");
  EXPECT_EQ(text_of(0.5), sql("{}", automation::Value(0.5)));
}

}  // namespace
}  // namespace tallyra::frame
