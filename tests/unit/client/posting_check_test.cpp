#include "client/posting_check.h"

#include "tests/unit/client/client_run.h"
#include "tests/unit/client/counting_database.h"

// After which approvals the client looks for postings without a number, and what it tells then.
namespace tallyra::client {
namespace {

using automation::Arguments;
using automation::Value;

class Approval : public Client {
 protected:
  // Approves with this end while so many headers of postings have no number.
  ExitStatus approve(int headers_without_number, ScriptedObject::Body end, float number = 0) {
    database_.set(headers_without_number, 0);
    script_class("Tallyra.CCheckHead", "Update", end, number, "told");
    error_.str("");
    return run({"--db", "DSN=x", "CCheckHead", "Update", "S1", "STATUSSN=i:1", "APPROVED"});
  }
  static Value succeed(Arguments) { return 100.0F; }
  static Value fail(Arguments) { return 0.0F; }

  const std::string complaint_ =
      "tallyra-client: a posting without a number stands in the database: 2 headers of type STKCHECKISS with "
      "an empty TRANNO. ";
  CountingDatabase database_;
};

TEST_F(Approval, IsFollowedByALookForPostingsWithoutANumber) {
  EXPECT_EQ(approve(0, succeed), exit_done);
  EXPECT_EQ(error_.str(), "");
  EXPECT_EQ(approve(2, succeed), exit_failed);
  EXPECT_TRUE(error_.str().starts_with(complaint_)) << error_.str();
}

TEST_F(Approval, ThatEndsInAnErrorMayHavePostedAllTheSame) {
  EXPECT_EQ(approve(2, fail, -2147168256), exit_failed);
  EXPECT_TRUE(error_.str().starts_with(complaint_)) << error_.str();
}

TEST_F(Approval, ThatIsRefusedOrNeverBeginsHasPostedNothing) {
  EXPECT_EQ(approve(2, fail, 10000002), exit_failed);
  EXPECT_EQ(error_.str(), "");
  EXPECT_EQ(approve(2, fail, 10000016), exit_failed);
  EXPECT_EQ(error_.str(), "tallyra-client: no user was named: name one with --user or TALLYRA_USER\n");
  EXPECT_EQ(approve(2, [](Arguments) -> Value { throw automation::Error(429, "no object"); }), exit_failed);
  EXPECT_EQ(error_.str(), "tallyra-client: the call failed with error 429: no object\n");
  EXPECT_EQ(database_.statements(), 0);
}

TEST_F(Approval, AfterWhichTheDatabaseCannotBeAskedTellsThatOfTheQuestion) {
  database_.refuse_connections();
  EXPECT_EQ(approve(0, succeed), exit_failed);
  EXPECT_EQ(error_.str(),
            "tallyra-client: whether a posting without a number stands in the database could not be asked: "
            "error -2147467259: cannot connect\n");
}

}  // namespace
}  // namespace tallyra::client
