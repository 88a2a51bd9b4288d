#include "client/setup/functions.h"

#include <gtest/gtest.h>

#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

using Places = std::vector<std::size_t>;

Places places_of(std::vector<std::string> words) {
  return right_places(words);
}

TEST(FunctionCodes, AreFoundByCodeAndByClass) {
  EXPECT_EQ(function_code("stk027close"), "STK027CLOSE");
  EXPECT_EQ(function_code("cstockclose"), "STK027CLOSE");
  EXPECT_EQ(function_code("CCheckDetail"), "STK026CHECK");
  EXPECT_EQ(function_code("*"), "*");
  for (const FunctionCode& function : function_codes())
    EXPECT_EQ(function_code(function.code), function.code);
}

TEST(FunctionCodes, BeginWithThatOfAnyFunction) {
  EXPECT_EQ(function_codes().front().code, "*");
}

TEST(FunctionCodes, OfClassesWithSeveralAreNotGuessed) {
  EXPECT_EQ(usage_error_text([] { function_code("CTranHead"); }).find("there is no function 'CTranHead'"),
            0U);
  EXPECT_EQ(usage_error_text([] { function_code("STK027CLOS"); }),
            "there is no function 'STK027CLOS'; did you mean 'STK027CLOSE'?; 'help grant' names them, '*' is "
            "for all");
}

TEST(RightNames, LeadToTheirPlacesEachOnceAndInOrder) {
  EXPECT_EQ(places_of({}), Places{});
  EXPECT_EQ(places_of({"Owner", "insert", "INSERT"}), (Places{0, 7}));
  EXPECT_EQ(places_of({"delete", "all"}), (Places{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(RightNames, ThatAreNoneAreRefused) {
  EXPECT_EQ(usage_error_text([] {
              places_of({"insert", "deleet"});
            }),
            "there is no right 'deleet'; did you mean 'delete'?; there are insert, update, delete, approve, "
            "unapprove, cancel, finish, owner and all");
}

}  // namespace
}  // namespace tallyra::client
