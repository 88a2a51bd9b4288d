#include <gtest/gtest.h>

#include <optional>

#include "tests/behaviour/stockcheck/counting_company.h"
#include "tests/support/watched_calls.h"

// An approval while no document number can be issued stores its posting without one. How a client finds that
// out, and how it is mended.
namespace tallyra::behaviour {
namespace {

using automation::Object;
using automation::ref;
using stage::done;
using stage::Fields;

class PostingWithoutNumber : public testing::TestWithParam<const char*> {
 protected:
  PostingWithoutNumber() {
    company.check("S1", "2024-03-31", "10");
    company.counted("S1", "P1", "5");
    company.counted("S1", "P2", "6");
    company.counted("S1", "P3", "7");
    company.check("S2", "2024-03-31", "20");
    company.counted("S2", "P4", "1");
    company.counted("S2", "P5", "2");
  }

  // Approves while so many requests for a number come back empty.
  void approve_without_numbers(const char* check, int empty_requests) {
    const WatchedCalls watched([&](const std::string& call, const std::function<void()>& run) {
      if (call == "System.GetTableKeyID" && empty_requests-- > 0) return;
      run();
    });
    expect_posted(company.approve(check));
  }

  // The step of a client after each approval: whether a posting stands without a number.
  bool finds_one_without_number() const {
    const Object head = company.client("CTranHead");
    Fields read;
    automation::Value number = "";
    automation::Value type = "STKCHECKISS";
    const stage::Outcome outcome =
        stage::outcome_of(head, head.call("Read", ref(number), ref(type), ref(read.names), ref(read.values)));
    EXPECT_EQ(outcome.result, 100) << outcome;
    if (outcome.number == 0) {
      EXPECT_NE(read.text().find("TRANNO='' TRANTYPE='STKCHECKISS' REFERENCE='S"), std::string::npos)
          << read.text();
    }
    return outcome.number != 10000003;
  }
  std::string posted_pieces() const {
    return company.rows(
        "SELECT H.REFERENCE, Sum(L.QTY) FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO "
        "WHERE H.TRANTYPE='STKCHECKISS' GROUP BY 1 ORDER BY 1");
  }

  CountingCompany company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, PostingWithoutNumber, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(PostingWithoutNumber, EveryLineAsksThreeTimesUntilANumberComes) {
  approve_without_numbers("S1", 3);
  EXPECT_EQ(
      company.rows(
          "SELECT CASE WHEN L.TRANNO='' THEN 1 ELSE 0 END,L.PARTNO,L.QTY FROM STKTRANDT L ORDER BY L.PARTNO"),
      "1|P1|5\n0|P2|6\n0|P3|7\n");
  EXPECT_EQ(
      company.rows("SELECT CASE WHEN TRANNO='' THEN 1 ELSE 0 END,REFERENCE FROM STKTRANHD ORDER BY TRANNO"),
      "1|S1\n0|S1\n");
  EXPECT_TRUE(finds_one_without_number());
  EXPECT_EQ(company.update("S1", "UNAPPROVED"), done);
  EXPECT_EQ(company.postings(), "0|0");
}

TEST_P(PostingWithoutNumber, HasAHeaderForEveryLineAndEachJoinsWithAllLines) {
  approve_without_numbers("S1", 9);
  EXPECT_EQ(company.postings(), "3|3");
  EXPECT_EQ(company.rows("SELECT Count(DISTINCT TRANNO), Max(TRANNO) FROM STKTRANHD"), "1|\n");
  EXPECT_EQ(posted_pieces(), "S1|54\n") << "18 pieces, three times";
  EXPECT_TRUE(finds_one_without_number());
}

TEST_P(PostingWithoutNumber, IsNotFoundAfterAnOrdinaryApproval) {
  approve_without_numbers("S1", 2);
  EXPECT_EQ(company.postings(), "1|3") << "the third request gave the number";
  EXPECT_FALSE(finds_one_without_number());
}

TEST_P(PostingWithoutNumber, IsMendedByUnapprovingAndApprovingAgain) {
  approve_without_numbers("S1", 9);
  EXPECT_EQ(company.update("S1", "UNAPPROVED"), done);
  EXPECT_FALSE(finds_one_without_number());
  expect_posted(company.approve("S1"));
  EXPECT_FALSE(finds_one_without_number());
  EXPECT_EQ(company.postings(), "1|3");
  EXPECT_EQ(company.posted_lines(), "P1|5|1.5\nP2|6|1.5\nP3|7|1.5\n");
}

// The lines of all of them have the same empty number, so un-approving one takes the lines of the others too.
TEST_P(PostingWithoutNumber, OfSeveralStocktakingsAreMendedOnlyTogether) {
  approve_without_numbers("S1", 9);
  approve_without_numbers("S2", 9);
  EXPECT_EQ(posted_pieces(), "S1|63\nS2|42\n") << "21 pieces, three times and twice";
  EXPECT_EQ(company.update("S1", "UNAPPROVED"), done);
  EXPECT_EQ(company.postings(), "2|0") << "the headers of S2 are without lines";
  EXPECT_TRUE(finds_one_without_number());
  EXPECT_EQ(company.update("S2", "UNAPPROVED"), done);
  EXPECT_EQ(company.postings(), "0|0");
  expect_posted(company.approve("S1"));
  expect_posted(company.approve("S2"));
  EXPECT_FALSE(finds_one_without_number());
  EXPECT_EQ(posted_pieces(), "S1|18\nS2|3\n");
}

}  // namespace
}  // namespace tallyra::behaviour
