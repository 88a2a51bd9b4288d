#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/behaviour/client/month_end/closing_client.h"
#include "tests/support/test_folder.h"

// The report page of a company whose figures SQL of the test's own tells.
namespace tallyra::client {
namespace {

class Report : public ClosingClient {
 protected:
  Report() {
    sql({"UPDATE PARTS SET PARTNM='Bolt <long> & \"hard\"' WHERE PARTNO='bolt-1'",
         "INSERT INTO PARTS(PARTNO) VALUES('ghost')",
         "INSERT INTO PARTCOSTSET(MTYPESN,MTYPENM) VALUES(1,'Raw'),(2,'Made')",
         "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,REFERENCE,TRANDT,DEPTNOFR,STATUSSN) "
         "VALUES('CI1','STKCHECKISS','CK1','2024-02-15 00:00:00','10',1)",
         "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('CI1',0,'bolt-1',-2),('CI1',0,'ghost',1)"});
    close_and_approve("2024/01/31");
    EXPECT_EQ(run({"close", "2024/02/29"}), exit_done) << client_.all();
  }
  std::string page(const std::string& language = "EN") {
    EXPECT_EQ(run({"report", "2024/02/29", "--output", "-", "--language", language}), exit_done)
        << client_.all();
    return client_.out();
  }
  // What stands in data-value behind the place where `after` is first found.
  static double number_after(const std::string& page, const std::string& after) {
    const std::string mark = "data-value=\"";
    const auto at = page.find(mark, page.find(after));
    return at == std::string::npos ? -1 : std::stod(page.substr(at + mark.size()));
  }
  double sum(const std::string& expression, const std::string& condition) const {
    return std::stod(
        company_.rows("SELECT SUM(" + expression +
                      ") FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO LEFT JOIN (SELECT "
                      "X.PARTNO, X.UPRICE FROM STKTRANDT X JOIN STKTRANHD Y ON X.TRANNO=Y.TRANNO WHERE "
                      "Y.TRANTYPE='STKCLOSEALL' AND Y.TRANDT='2024-03-01 00:00:00') C ON C.PARTNO=L.PARTNO "
                      "WHERE " +
                      condition));
  }
  static constexpr const char* documents = "H.TRANTYPE='STK027CLOSE' AND H.TRANDT='2024-03-01 00:00:00'";
};

TEST_F(Report, HasTheTotalsThatSqlHas) {
  const std::string html = page();
  EXPECT_NEAR(number_after(html, "id=\"total-quantity\""), sum("L.QTY", documents), 1e-9);
  EXPECT_NEAR(number_after(html, "id=\"total-value\""), sum("L.QTY*C.UPRICE", documents), 1e-9);
  EXPECT_GT(sum("L.QTY*C.UPRICE", documents), 0) << "a total of nothing would show nothing";
}

TEST_F(Report, HasTheFiguresOfEachDepartmentAndMaterialType) {
  ASSERT_EQ(run({"report", "2024/02/29", "--csv"}), exit_done);
  // By hand: in the store 8 bolts at 3, 8 at 7, 2 at 9 and 7 screws at 0.5; in assembly four frames at the
  // average of 20, 20, 20 and 40. The ghost has neither type nor cost.
  EXPECT_TRUE(
      says("department,name,type,type name,quantity,value\n10,Store,,,1,0\n10,Store,1,Raw,25,101.5\n"))
      << client_.out();
  EXPECT_TRUE(says("\n20,Assembly,2,Made,4,100\n")) << client_.out();
  EXPECT_TRUE(says("\nframe,frame,1,60,100,40\n")) << client_.out();
}

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

TEST_F(Report, IsWrittenToAFileAndReplacesNoneUnasked) {
  const tests::TestFolder folder;
  const std::string file = folder.file("of february.html");
  ASSERT_EQ(client_.run({"report", "2024/02/29", "--output", file}), exit_done) << client_.all();
  std::ifstream in(file, std::ios::binary);
  const std::string written{std::istreambuf_iterator<char>(in), {}};
  EXPECT_EQ(written, page());
  EXPECT_EQ(client_.run({"report", "2024/02/29", "--output", file}), exit_failed);
  EXPECT_TRUE(says("is there already")) << client_.all();
  EXPECT_EQ(run({"report", "2024/02/29", "--output", file}), exit_done) << "--yes replaces it";
  EXPECT_EQ(run({"report", "2024/02/29", "--output", folder.path()}), exit_failed);
  EXPECT_EQ(run({"report", "2024/03/31"}), exit_failed);
  EXPECT_TRUE(says("there is no close of 2024/03/31")) << client_.all();
}

TEST_F(Report, PutsTablesWhereItIsTold) {
  const tests::TestFolder folder;
  ASSERT_EQ(run({"report", "2024/02/29", "--csv"}), exit_done) << client_.all();
  const std::string printed = client_.out();
  const std::string file = folder.file("february.csv");
  ASSERT_EQ(run({"report", "2024/02/29", "--csv", "--output", file}), exit_done) << client_.all();
  EXPECT_EQ(client_.out(), "");
  std::ifstream in(file, std::ios::binary);
  EXPECT_EQ((std::string{std::istreambuf_iterator<char>(in), {}}), printed);
}

// What sums leave in the last digits is neither a change nor a stock.
TEST_F(Report, TakesRoundingForNothing) {
  const std::string of_company =
      " AND TRANNO IN (SELECT TRANNO FROM STKTRANHD WHERE TRANTYPE='STKCLOSEALL' AND "
      "TRANDT='2024-03-01 00:00:00')";
  sql({"UPDATE STKTRANDT SET QTY=2.000000000000001 WHERE PARTNO='BOLT-1'" + of_company,
       "UPDATE STKTRANDT SET QTY=0.1+0.2-0.3 WHERE PARTNO='ghost'" + of_company,
       "UPDATE STKTRANDT SET QTY=0.1+0.2 WHERE PARTNO='frame' AND TRANNO IN (SELECT TRANNO FROM STKTRANHD "
       "WHERE TRANTYPE='STK027CLOSE' AND TRANDT='2024-03-01 00:00:00')"});
  ASSERT_EQ(run({"report", "2024/02/29", "--json"}), exit_done) << client_.all();
  EXPECT_FALSE(says("BOLT-1")) << client_.out();
  EXPECT_TRUE(says("\"without_cost\": []")) << client_.out();
  EXPECT_TRUE(says("\"quantity\": 0.3,")) << client_.out();
  EXPECT_TRUE(says("\"value\": 7.5\n")) << client_.out();
}

TEST_F(Report, OfTheFirstCloseSaysThatThereIsNoneBefore) {
  ASSERT_EQ(run({"report", "2024/01/31", "--output", "-"}), exit_done);
  EXPECT_TRUE(says("This is the first close.")) << client_.out();
  EXPECT_TRUE(says("No stocktaking was posted in this period."));
}

}  // namespace
}  // namespace tallyra::client
