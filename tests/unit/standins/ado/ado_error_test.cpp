#include "standins/ado/ado_error.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace tallyra::standins::ado {
namespace {

automation::Error raised(std::int32_t number) {
  try {
    raise(number);
  } catch (const automation::Error& error) {
    return error;
  }
}

TEST(AdoError, HasTheTextThatClientsKnowItBy) {
  const struct {
    std::int32_t number;
    std::string_view text;
  } rows[] = {
      {3704, "Operation is not allowed when the object is closed."},
      {3705, "Operation is not allowed when the object is open."},
      {3265, "Item cannot be found in the collection corresponding to the requested name or ordinal."},
      {-2147168242, "No transaction is active."},
      {-2147217884, "Rowset does not support fetching backward."}};
  for (const auto& [number, text] : rows) {
    EXPECT_EQ(raised(number).number(), number);
    EXPECT_EQ(raised(number).description(), text);
  }
}

TEST(AdoError, OfAnotherNumberHasTheTextOfTheLanguageIfAny) {
  EXPECT_EQ(raised(13).description(), "Type mismatch");
  EXPECT_EQ(raised(-2147217900).number(), -2147217900);
  EXPECT_EQ(raised(-2147217900).description(), "");
}

}  // namespace
}  // namespace tallyra::standins::ado
