#include <algorithm>
#include <fstream>

#include "client/database/reader.h"
#include "tests/behaviour/client/month_end/closing_on_a_server.h"
#include "tests/support/test_folder.h"

// What is looked at and counted on a database server is what it is on SQLite.
namespace tallyra::client {
namespace {

class LookingOnAServer : public ClosingOnAServer {
 protected:
  void on_both(std::vector<std::string> words) {
    words.emplace_back("--yes");
    ASSERT_EQ(client_.run(words), exit_done) << client_.all();
    ASSERT_EQ(server_.run(words), exit_done) << server_.all();
  }
  // The same statement on both.
  void change(const std::string& statement) {
    company_.run({statement});
    Reader(connection_, "MSSQLSERVER").execute(statement);
  }
  std::string file(const std::string& text) const {
    const std::string path = folder_.file("sheet.csv");
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }

  tests::TestFolder folder_;
};

class ListingOnAServer : public LookingOnAServer {
 protected:
  void SetUp() override {
    company_.add_a_record_of_each_class();
    LookingOnAServer::SetUp();
  }
};

TEST_F(ListingOnAServer, HasTheRecordsOfEveryClass) {
  for (const char* name : {"CTranHead", "CTranDetail", "CCheckHead", "CCheckDetail", "CStockClose",
                           "CPartCostSet", "CRevAddr", "CSTKController", "CStkShipNote"}) {
    expect_the_same({"list", name, "--limit", "0"});
    EXPECT_GT(std::ranges::count(server_.out(), '\n'), 1) << name << " has no rows";
  }
  expect_the_same({"list", "CTranHead", "--from", "2024/01/20", "--to", "2024/01/31", "--department", "20"});
  expect_the_same({"list", "CTranHead", "--type", "STK010POREV", "--status", "unapproved"});
  expect_the_same({"list", "CTranHead", "--type", "x' Or 'a'='a"});
  expect_the_same({"list", "CTranDetail", "--department", "10", "--limit", "3"});
  EXPECT_NE(server_.error().find("3 of "), std::string::npos) << server_.error();
  expect_the_same({"list", "CPartCostSet", "--type", "99999999999999999999"});
  expect_the_same({"list", "CStkShipNote", "--from", "2024/01/01"});
}

TEST_F(LookingOnAServer, ShowsDocumentsStocktakingsAndCloses) {
  on_both({"close", "2024/01/31"});
  expect_the_same({"show", "R1"});
  EXPECT_NE(server_.error().find("3 lines, quantity 21, value 43.5."), std::string::npos) << server_.error();
  expect_the_same({"show", "it's"}, exit_failed);
  on_both({"count", "import", file("part,counted\nframe,1\n"), "--department", "20", "--date", "2024/02/15",
           "--number", "CK"});
  expect_the_same({"show", "CK"});
  expect_the_same({"show", "2024/01/31"});
}

TEST_F(LookingOnAServer, VerifiesAndReports) {
  on_both({"close", "2024/01/31"});
  expect_the_same({"verify", "2024/01/31"});
  expect_the_same({"report", "2024/01/31"});
  on_both({"approve", "2024/01/31"});
  on_both({"close", "2024/02/29"});
  expect_the_same({"report", "2024/02/29"});
  on_both({"report", "2024/02/29", "--output", "-"});
  EXPECT_NE(server_.out().find("<svg"), std::string::npos);
  change("UPDATE STKTRANDT SET QTY=QTY+0.25 WHERE PARTNO='frame' AND TRANNO='027CLOSE00000006'");
  expect_the_same({"verify", "2024/02/29"}, exit_failed);
  EXPECT_NE(server_.out().find("\ndiffers,"), std::string::npos) << server_.out();
  change(
      "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY,UPRICE,ADDDT) VALUES('R3',8,'bolt-1',2,1,'2099-03-06 "
      "10:00:00')");
  expect_the_same({"verify", "2024/02/29"}, exit_failed);
  EXPECT_NE(server_.out().find("\nentered after the close,"), std::string::npos) << server_.out();
  on_both({"log", "--from", "2024/03/01", "--action", "close", "--csv"});
  EXPECT_EQ(std::ranges::count(server_.out(), '\n'), 3) << server_.out();
}

// Part numbers in their order, which the server has by itself, and quantities that SQL sums up there.
TEST_F(LookingOnAServer, TakesStock) {
  expect_the_same({"count", "sheet", "10", "2024/01/31"});
  expect_the_same({"count", "sheet", "20", "2024/01/31", "--all"});
  EXPECT_EQ(server_.run({"count", "import", file("part,counted\nbolt-1,1,5\nnothing,1\n"), "--department",
                         "10", "--date", "2024/01/31", "--number", "CK"}),
            exit_failed);
  EXPECT_NE(server_.error().find("line 3: there is no part nothing"), std::string::npos) << server_.error();
  const std::string sheet = file("part,counted,price,notes\nbolt-1,10,2.5,Grün\nBolt1,3,,\nBOLT-1,2,,\n");
  on_both({"count", "import", sheet, "--department", "10", "--date", "2024/01/31", "--number", "CK"});
  expect_the_same({"list", "CCheckDetail"});
  expect_the_same({"count", "approve", "CK"});
  EXPECT_EQ(server_.out(), "part,book,counted,posted\nBOLT-1,2,2,\nBolt1,8,3,-5\nbolt-1,9,10,1\n");
  EXPECT_NE(server_.error().find("read back, it is stored, with 2 parts posted"), std::string::npos);
  expect_the_same({"count", "approve", "CK"}, exit_failed);
  expect_the_same({"count", "approve", "CK", "--force", "again"});
  on_both({"count", "undo", "CK"});
  expect_the_same({"list", "CTranHead", "--type", "STKCHECKISS"});
  on_both({"log", "--csv"});
  EXPECT_NE(server_.out().find(",count undo,CK,done,"), std::string::npos) << server_.out();
}

TEST_F(LookingOnAServer, AnswersCallsAndRefusesDoubtfulNumbers) {
  for (ClientProgram* client : {&client_, &server_}) {
    client->feed(R"({"class":"CRevAddr","member":"Update","arguments":["A9",{"ADDRNM":"x"}]})"
                 "\n"
                 R"({"class":"CCheckDetail","member":"Update","arguments":["CK","frame",{"QTY":"1,5"}]})"
                 "\nno JSON\n");
    EXPECT_EQ(client->run({"batch"}), exit_failed) << client->all();
    for (const char* told : {"no such row", "QTY holds numbers: '1,5' is no number", "no JSON"})
      EXPECT_NE(client->out().find(told), std::string::npos) << told << "\n" << client->out();
  }
  EXPECT_EQ(client_.out(), server_.out());
}

}  // namespace
}  // namespace tallyra::client
