#include "tests/behaviour/client/report/reported_company.h"

namespace tallyra::client {
namespace {

TEST_F(Report, ShowsWhatHasChangedWasCountedAndHasNoCost) {
  const std::string html = page();
  EXPECT_NE(html.find("<td>2024/02/15</td><td>CK1</td><td>CI1</td><td>10</td>"), std::string::npos) << html;
  const std::string posted = html.substr(html.find("id=\"stocktakings\""));
  EXPECT_NE(posted.find("data-value=\"-1\">−1<"), std::string::npos) << "two bolts less, one ghost more";
  const std::string without = html.substr(html.find("id=\"without-cost\""));
  EXPECT_NE(without.find("<td>ghost</td><td></td>"), std::string::npos) << without;
  EXPECT_NE(html.find("without a material type"), std::string::npos) << "the ghost has none";
  const std::string changes = html.substr(html.find("id=\"changes\""));
  EXPECT_LT(changes.find("<td>frame</td>"), changes.find("<td>bolt-1</td>")) << "the largest comes first";
}

}  // namespace
}  // namespace tallyra::client
