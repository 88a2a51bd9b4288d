#include "client/failure.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tallyra::client {
namespace {

TEST(CallFailure, IsALineWithNumberAndTextOnTheErrorOutput) {
  std::ostringstream out;
  std::ostringstream error;
  const Console console{.out = out, .error = error};
  tell_failure(automation::Error(-2147217900, "near \"x\": syntax error"), console);
  EXPECT_EQ(error.str(),
            "tallyra-client: the call failed with error -2147217900: near \"x\": syntax error\n");
  EXPECT_EQ(out.str(), "");
}

TEST(Failure, OfATableThatIsMissingNamesTheVerbsForIt) {
  std::ostringstream out;
  std::ostringstream error;
  tell_failure(automation::Error(-2147217865, "no such table: STKCLOSEHD"), Console{out, error});
  EXPECT_NE(error.str().find("'init' makes the tables of an empty one\n"), std::string::npos) << error.str();
}

}  // namespace
}  // namespace tallyra::client
