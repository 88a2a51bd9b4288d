#include "client/month_end/findings/all_findings.h"

#include <gtest/gtest.h>

#include <map>

namespace tallyra::client {
namespace {

TEST(Findings, AreErrorsFirstAndHaveNamesOfTheirOwn) {
  std::map<std::string_view, int> names;
  bool warnings = false;
  for (const Finding* finding : findings()) {
    EXPECT_EQ(++names[finding->name], 1) << finding->name;
    EXPECT_FALSE(finding->advice.empty()) << finding->name;
    if (finding == &refused_query) continue;
    warnings = warnings || finding->severity == Severity::warning;
    EXPECT_EQ(warnings, finding->severity == Severity::warning) << finding->name;
  }
  EXPECT_EQ(findings().back(), &refused_query);
}

}  // namespace
}  // namespace tallyra::client
