#include "client/report/page.h"

#include "tests/behaviour/client/report/reported_company.h"

namespace tallyra::client {
namespace {

TEST_F(Report, LetsNoNameBecomeATagAndAsksForNothing) {
  const std::string html = page();
  EXPECT_NE(html.find("Bolt &lt;long&gt; &amp; &quot;hard&quot;"), std::string::npos);
  EXPECT_EQ(html.find("<long>"), std::string::npos);
  for (const char* word : {"http:", "https:", "<script", "src=", "<link", "url(", "@import"})
    EXPECT_EQ(html.find(word), std::string::npos) << word;
  EXPECT_NE(html.find("default-src 'none'"), std::string::npos);
}

TEST_F(Report, SpeaksTheLanguageOfTheSession) {
  EXPECT_NE(page("EN").find("Stock at the close of 2024/02/29<span class=\"state open\">not approved"),
            std::string::npos);
  const std::string german = page("DE");
  EXPECT_NE(german.find("<html lang=\"de\">"), std::string::npos);
  EXPECT_NE(german.find("Bestand zum Abschluss vom 2024/02/29"), std::string::npos);
  EXPECT_NE(page("ZH").find("月结库存报告"), std::string::npos);
}

TEST_F(Report, OfTheFirstCloseSaysThatThereIsNoneBefore) {
  ASSERT_EQ(run({"report", "2024/01/31", "--output", "-"}), exit_done);
  EXPECT_TRUE(says("This is the first close.")) << client_.out();
  EXPECT_TRUE(says("No stocktaking was posted in this period."));
}

}  // namespace
}  // namespace tallyra::client
