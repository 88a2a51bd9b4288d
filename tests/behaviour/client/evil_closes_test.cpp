#include <cstdio>
#include <filesystem>
#include <functional>

#include "client/database/own_tables.h"
#include "client/month_end/guard.h"
#include "client/platform/process.h"
#include "client/refusal.h"
#include "tests/behaviour/client/month_end/closing_client.h"

// What does harm when a client calls the classes without looking, played with the verbs: each row is
// prevented, or told before anything is written, and changes nothing. The test prints the table.
namespace tallyra::client {
namespace {

class Evil : public ClosingClient {
 protected:
  struct Row {
    const char* evil;
    std::vector<std::string> words;
    ExitStatus status;
    const char* told;
  };

  // Plays a row and sees that the company is as it was before.
  void play(const Row& row) {
    SCOPED_TRACE(row.evil);
    const std::string before = company_.everything();
    EXPECT_EQ(run(row.words), row.status) << client_.all();
    EXPECT_TRUE(says(row.told)) << client_.all();
    EXPECT_EQ(company_.everything(), before);
    std::printf("| %s | %s |\n", row.evil, row.told);
  }
};

TEST_F(Evil, OfDatesIsRefusedBeforeAnythingIsWritten) {
  std::printf("| evil | what happens |\n|---|---|\n");
  play({"close of the middle of a month", {"close", "2024/01/15"}, exit_failed, "because of: not-month-end"});
  play(
      {"close of 2030/12/31", {"close", "2030/12/31"}, exit_failed, "because of: in-future, month-left-out"});
  play({"close of February without January",
        {"close", "2024/02/29"},
        exit_failed,
        "because of: month-left-out"});
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  play(
      {"close before an existing close", {"close", "2023/12/31"}, exit_failed, "because of: before-a-close"});
  play({"closing a month twice", {"close", "2024/01/31"}, exit_failed, "because of: before-a-close"});
  play({"February closed while January is unapproved",
        {"close", "2024/02/29"},
        exit_failed,
        "because of: previous-unapproved"});
}

TEST_F(Evil, OfApprovingAndDeletingIsRefused) {
  close_and_approve("2024/01/31");
  play({"approving a close date that does not exist",
        {"approve", "2024/03/31"},
        exit_failed,
        "there is no close of 2024/03/31"});
  close_and_approve("2024/02/29");
  play({"deleting January under an approved February",
        {"reopen", "2024/01/31"},
        exit_failed,
        "there are later closes, up to that of 2024/02/29"});
  play(
      {"deleting a close that does not exist", {"reopen", "2024/03/31"}, exit_failed, "Nothing was deleted"});
}

TEST_F(Evil, OfASecondCloserIsToldWhoRuns) {
  const Reader reader(company_.connection_string(), "MSACCESS");
  make_own_tables(reader);
  sql(
      {"INSERT INTO TALLYRALOCK(LOCKKEY,WORKTEXT,OWNERID,OSUSER,HOSTNAME,PROCESSID,PROCESSSTART,SINCE) "
       "VALUES('CLOSE','close 2024/01/31','ANNA','anna','" +
       host_name() + "'," + std::to_string(this_process().id) + ",'','2024/03/05 09:00:00')"});
  play({"two closers of one month",
        {"close", "2024/01/31"},
        exit_locked,
        "is at work on close 2024/01/31 since"});
  play({"two closers of two months",
        {"close", "2024/02/29"},
        exit_locked,
        "is at work on close 2024/01/31 since"});
  EXPECT_THROW(require_no_unfinished_close(reader), Refusal) << "nor is a stocktaking approved meanwhile";
}

TEST_F(Evil, OfACloseThatWasEndedHoldsUpStocktakings) {
  sql(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
       "VALUES('027CLOSE00000009','STK027CLOSE','2024-02-01 00:00:00','10 ',0)"});
  const Reader reader(company_.connection_string(), "MSACCESS");
  EXPECT_THROW(require_no_unfinished_close(reader), Refusal);
  play({"a close ended by Ctrl-C, then anything else",
        {"status"},
        exit_done,
        "approve no stocktaking before"});
}

TEST_F(Evil, OfAMisspeltDatabaseMakesNoFile) {
  if (!company_.is_sqlite()) GTEST_SKIP() << "no file";
  const std::string path = company_.file().string() + ".misspelt";
  for (const std::string& db : {path, "DRIVER={SQLite3};Database=" + path}) {
    ClientProgram misspelt({"--db", db});
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"status"}, {"CStockClose", "Delete", "2024/01/31"}}) {
      EXPECT_EQ(misspelt.run(words), exit_wrong_usage);
      EXPECT_NE(misspelt.error().find("no such file"), std::string::npos) << misspelt.error();
      EXPECT_FALSE(std::filesystem::exists(path));
    }
  }
  std::printf("| a misspelt database | no such file |\n");
  ClientProgram nowhere;
  EXPECT_EQ(nowhere.run({"status"}), exit_wrong_usage);
  EXPECT_NE(nowhere.error().find("no database was given"), std::string::npos);
  std::printf("| no --db | no database was given |\n");
}

}  // namespace
}  // namespace tallyra::client
