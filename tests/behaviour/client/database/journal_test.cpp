#include "client/database/journal.h"

#include <gtest/gtest.h>

#include "automation/apartment.h"
#include "client/database/own_tables.h"
#include "client/refusal.h"
#include "tests/support/client_program.h"
#include "tests/support/company_database.h"

namespace tallyra::client {
namespace {

class Journal : public testing::Test {
 protected:
  void write(const JournalEntry& entry, const std::vector<std::string>& flags = {"--yes"}) {
    Session session;
    session.connection_string = company_.connection_string();
    session.user = "AN'NA";
    VerbContext context(read_words(flags, common_options()), session, console_);
    require_own_tables(context);
    journal(context, entry);
  }

  behaviour::CompanyDatabase company_;
  ClientProgram client_{{"--db", company_.connection_string()}};
  std::ostringstream out_;
  std::ostringstream error_;
  Console console_{out_, error_};
};

TEST_F(Journal, IsNotThereBeforeAnythingWasDone) {
  EXPECT_EQ(client_.run({"log", "--csv"}), exit_done);
  EXPECT_EQ(client_.out(), "when,what,of,result,detail,user,login,host,process\n");
  EXPECT_NE(client_.error().find("no journal yet"), std::string::npos);
}

TEST_F(Journal, IsMadeOnlyWhenItMay) {
  EXPECT_THROW(write({"close", "2024/01/31", "done", ""}, {}), Refusal);
  const Reader reader(company_.connection_string(), "MSACCESS");
  EXPECT_FALSE(reader.has_table("TALLYRALOCK") || reader.has_table("TALLYRAJOURNAL"));
}

TEST_F(Journal, TellsLatestFirstWhoHasDoneWhat) {
  write({"close", "2024/01/31", "done", "it's done"});
  write({"approve", "2024/01/31", "failed", ""});
  EXPECT_EQ(client_.run({"log", "--csv"}), exit_done);
  const std::string log = client_.out();
  EXPECT_LT(log.find("approve,2024/01/31,failed,,AN'NA,"),
            log.find("close,2024/01/31,done,it's done,AN'NA,"));
  EXPECT_EQ(client_.run({"log", "--csv", "--action", "close"}), exit_done);
  EXPECT_EQ(client_.out().find("approve,"), std::string::npos);
  EXPECT_EQ(client_.run({"log", "--csv", "--limit", "1"}), exit_done);
  EXPECT_EQ(client_.out().find("close,"), std::string::npos);
  EXPECT_NE(client_.error().find("1 earlier entries are not shown"), std::string::npos) << client_.error();
  EXPECT_EQ(client_.run({"log", "--csv", "--to", "2000/01/01"}), exit_done);
  EXPECT_EQ(client_.out().find("close,"), std::string::npos);
}

TEST_F(Journal, CutsWhatIsLongWithoutBreakingACharacter) {
  std::string detail(254, 'x');
  write({"close", "2024/01/31", "done", detail + "é"});
  EXPECT_EQ(company_.rows("Select DETAIL From TALLYRAJOURNAL"), detail + "\n");
}

TEST_F(Journal, TakesWrongWordsForWrongUsage) {
  EXPECT_EQ(client_.run({"log", "--from", "yesterday"}), exit_wrong_usage);
  EXPECT_EQ(client_.run({"log", "--limit", "1,5"}), exit_wrong_usage);
}

}  // namespace
}  // namespace tallyra::client
