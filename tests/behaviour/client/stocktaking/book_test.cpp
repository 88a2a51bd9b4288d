#include "client/stocktaking/book.h"

#include "client/report/number_text.h"
#include "tests/behaviour/client/stocktaking/counting_client.h"

namespace tallyra::client {
namespace {

// What came in by transfer counts, an issue below zero does not make the book smaller than nothing.
TEST_F(CountingClient, CountsInTheSheetAsAnApprovalDoes) {
  sql({"INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('P1',3,'螺丝',-9)"});
  ASSERT_EQ(run({"count", "sheet", "20", "2024/01/31", "--csv"}), exit_done);
  EXPECT_NE(client_.out().find("bolt-1,bolt-1,,7,"), std::string::npos) << client_.out();
  EXPECT_NE(client_.out().find("螺丝,螺丝,,2,"), std::string::npos) << client_.out();
}

TEST_F(CountingClient, BeginsTheBookAfterTheLastClose) {
  close_and_approve("2024/01/31");
  ASSERT_EQ(run({"count", "sheet", "10", "2024/02/15", "--csv"}), exit_done);
  EXPECT_NE(client_.out().find("bolt-1,bolt-1,,10,"), std::string::npos) << client_.out();
  ASSERT_EQ(run({"count", "sheet", "10", "2024/01/31", "--csv"}), exit_done);
  EXPECT_TRUE(says("2024/01/31 is closed: the sheet cannot be imported"));
  EXPECT_FALSE(says("Fill in 'counted'")) << client_.all();
}

TEST_F(CountingClient, HasAllPartsInTheBookAndKnowsWhichHaveMoved) {
  const Reader reader(company_.connection_string(), "MSACCESS");
  // By hand: the transfer T1 brings in 6, 1 and 2, the production P1 3 frames and a bolt.
  std::string book;
  for (const BookLine& line : book_of(reader, "20", *automation::parse_date("2024/01/31")))
    book += line.part + (line.moved ? " moved, " : " did not move, ") + plain_number(line.book) + "\n";
  EXPECT_EQ(book,
            "BOLT-1 did not move, 0\n"
            "Bolt1 moved, 1\n"
            "bolt-1 moved, 7\n"
            "frame moved, 3\n"
            "螺丝 moved, 2\n");
}

}  // namespace
}  // namespace tallyra::client
