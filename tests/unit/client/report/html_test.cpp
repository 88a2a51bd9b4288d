#include "client/report/html.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

TEST(ReportHtml, NoTextIsTakenForMarkup) {
  EXPECT_EQ(escaped("<b a='1'>\"R&D\"</b>"), "&lt;b a=&#39;1&#39;&gt;&quot;R&amp;D&quot;&lt;/b&gt;");
  EXPECT_EQ(escaped("收货 ä"), "收货 ä");
  EXPECT_EQ(escaped(std::string_view("a\0b\nc", 5)), "a b c");
}

TEST(ReportHtml, ATableHasItsHeadingsRowsAndSum) {
  HtmlTable table("costs", {{"Part <1>"}, {"Cost", true}});
  table.add_row({{"A&B"}, {"1,50", "1.5"}});
  table.add_sum({{"Sum"}, {"1,50"}});
  EXPECT_EQ(table.text(),
            "<div class=\"scroll\"><table id=\"costs\"><thead><tr><th scope=\"col\">Part &lt;1&gt;</th>"
            "<th class=\"number\" scope=\"col\">Cost</th></tr></thead>\n<tbody>\n"
            "<tr><td>A&amp;B</td><td class=\"number\" data-value=\"1.5\">1,50</td></tr>\n"
            "<tr class=\"sum\"><td>Sum</td><td class=\"number\">1,50</td></tr>\n"
            "</tbody></table></div>\n");
}

}  // namespace
}  // namespace tallyra::client
