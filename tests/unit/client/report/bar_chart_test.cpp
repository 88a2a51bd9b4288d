#include "client/report/bar_chart.h"

#include <gtest/gtest.h>

#include "client/report/html.h"

namespace tallyra::client {
namespace {

std::size_t count(const std::string& text, const std::string& word) {
  std::size_t found = 0;
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) ++found;
  return found;
}

TEST(BarChart, StacksPiecesOnOneScale) {
  const std::string chart = bar_chart(
      "c", "Value",
      {{"10", {{"s0", 100, "raw"}, {"s1", 100, "made"}}, "200"}, {"20", {{"s0", 50, "raw"}}, "50"}});
  EXPECT_EQ(count(chart, "<rect"), 3U);
  EXPECT_NE(chart.find("x=\"210.0\" y=\"6.0\" width=\"210.0\""), std::string::npos) << chart;
  EXPECT_NE(chart.find("x=\"420.0\" y=\"6.0\" width=\"210.0\""), std::string::npos) << chart;
  EXPECT_NE(chart.find("x=\"210.0\" y=\"34.0\" width=\"105.0\""), std::string::npos) << chart;
}

TEST(BarChart, DrawsWhatIsLessThanNothingToTheLeft) {
  const std::string chart = bar_chart("c", "", {{"a", {{"up", 30, ""}}, ""}, {"b", {{"down", -10, ""}}, ""}});
  EXPECT_NE(chart.find("class=\"down\" x=\"210.0\" y=\"34.0\" width=\"105.0\""), std::string::npos) << chart;
  EXPECT_NE(chart.find("class=\"up\" x=\"315.0\" y=\"6.0\" width=\"315.0\""), std::string::npos) << chart;
}

TEST(BarChart, StandsWithoutAnythingToShow) {
  EXPECT_EQ(bar_chart("c", "", {{"a", {{"s0", 0, ""}}, "0"}}).find("nan"), std::string::npos);
  EXPECT_NE(bar_chart("c", "", {}).find("<svg"), std::string::npos);
}

TEST(BarChart, ShortensLongLabelsAndKeepsThemInTheHint) {
  const std::string label = "A department whose name is longer than a label";
  const std::string chart = bar_chart("c", "", {{label, {}, ""}});
  EXPECT_NE(chart.find("…"), std::string::npos);
  EXPECT_EQ(count(chart, label), 1U);
}

TEST(Html, LetsNoTextBecomeATag) {
  EXPECT_EQ(escaped("<b a='1' c=\"2\">&\n"), "&lt;b a=&#39;1&#39; c=&quot;2&quot;&gt;&amp; ");
  HtmlTable table("t", {{"A&B"}, {"N", true}});
  table.add_row({{"<i>", {}}, {"1,5", "1.5"}});
  EXPECT_NE(table.text().find("<td>&lt;i&gt;</td><td class=\"number\" data-value=\"1.5\">1,5</td>"),
            std::string::npos)
      << table.text();
  EXPECT_NE(table.text().find(">A&amp;B<"), std::string::npos);
}

}  // namespace
}  // namespace tallyra::client
