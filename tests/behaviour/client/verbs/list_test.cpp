#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

class Listing : public ClosingClient {
 protected:
  // The first column of what was listed, a word per row.
  std::string listed(std::vector<std::string> words) {
    words.insert(words.begin(), "list");
    words.emplace_back("--csv");
    EXPECT_EQ(run(words), exit_done) << client_.all();
    std::istringstream lines(client_.out());
    std::string line;
    std::string result;
    std::getline(lines, line);
    while (std::getline(lines, line)) result += line.substr(0, line.find(',')) + " ";
    return result;
  }
};

TEST_F(Listing, ListsDocumentsTheLatestFirst) {
  EXPECT_EQ(listed({"CTranHead"}), "R4 P2 R3 I1 P1 T1 R2 R1 ");
  EXPECT_TRUE(says("\nI1,STK020MISS,2024/01/31,10,,,1,\n")) << client_.out();
}

TEST_F(Listing, ListsWhatTheOptionsLeave) {
  EXPECT_EQ(listed({"tallyra.ctranhead", "--from", "2024/01/20", "--to", "2024/01/28"}), "P1 T1 R2 ");
  EXPECT_EQ(listed({"CTranHead", "--type", "STK010POREV"}), "R4 R3 R2 R1 ");
  EXPECT_EQ(listed({"CTranHead", "--status", "unapproved"}), "R3 ");
  EXPECT_EQ(listed({"CTranHead", "--department", "20"}), "P2 P1 T1 ") << "a transfer into it belongs to it";
  EXPECT_EQ(listed({"CTranDetail", "--to", "2024/01/10"}), "R1 R1 R1 ");
  EXPECT_TRUE(says("\nR1,STK010POREV,2024/01/10,10,3,螺丝,7,0.5\n")) << client_.out();
}

TEST_F(Listing, SaysWhatIsNotShown) {
  EXPECT_EQ(listed({"CTranHead", "--limit", "2"}), "R4 P2 ");
  EXPECT_TRUE(says("2 of 8 are shown")) << client_.error();
  EXPECT_EQ(listed({"CTranHead", "--limit", "8"}), "R4 P2 R3 I1 P1 T1 R2 R1 ");
  EXPECT_EQ(client_.error(), "");
}

TEST_F(Listing, ListsEveryClassThatKeepsSomething) {
  company_.add_a_record_of_each_class();
  for (const char* name : {"CTranHead", "CTranDetail", "CCheckHead", "CCheckDetail", "CStockClose",
                           "CPartCostSet", "CRevAddr", "CSTKController", "CStkShipNote"})
    EXPECT_NE(listed({name, "--limit", "0"}), "") << name;
}

TEST_F(Listing, TakesWrongWordsForWrongUsage) {
  EXPECT_EQ(run({"list", "CStkrptFuns"}), exit_wrong_usage);
  EXPECT_TRUE(says("keeps no records"));
  EXPECT_EQ(run({"list", "CTranHaed"}), exit_wrong_usage);
  EXPECT_TRUE(says("did you mean 'CTranHead'?")) << client_.all();
  EXPECT_EQ(run({"list", "CRevAddr", "--from", "2024/01/01"}), exit_wrong_usage);
  EXPECT_TRUE(says("has nothing for --from"));
  EXPECT_EQ(run({"list", "CTranHead", "--status", "new"}), exit_wrong_usage);
  EXPECT_EQ(run({"list", "CPartCostSet", "--type", "1 Or 1=1"}), exit_wrong_usage);
  EXPECT_EQ(listed({"CTranHead", "--type", "x' Or 'a'='a"}), "") << "a quote stays within the text";
}

}  // namespace
}  // namespace tallyra::client
