#include "standins/ado/postgresql/wire.h"

#include "automation/error.h"
#include "tests/unit/standins/ado/postgresql/scratch_server.h"

namespace tallyra::standins::ado::test {
namespace {

class WireTest : public ScratchServer {
 protected:
  static PostgresqlOptions options_for(const std::string& host, int port, const std::string& database) {
    return {{{"host", host}, {"port", std::to_string(port)}, {"dbname", database}, {"user", "tallyra"}}, {}};
  }
  // What an exchange has brought, a word for each command: its first field, "done", or "failed" or "left
  // out".
  std::string exchanged() {
    std::string told;
    for (const Result& result : wire_.exchange()) {
      if (!told.empty()) told += ' ';
      const ExecStatusType status = PQresultStatus(result.get());
      if (status == PGRES_PIPELINE_ABORTED)
        told += "left-out";
      else if (!succeeded(result))
        told += "failed";
      else
        told += PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "done";
    }
    return told;
  }

  Wire wire_{options_for("127.0.0.1", server().port(), database())};
};

TEST_F(WireTest, BringsTheResultsOfAllCommandsInTheirOrder) {
  wire_.add("Create Table T(A integer)");
  wire_.add("Insert Into T Values(7)");
  wire_.add("Select A From T");
  EXPECT_EQ(exchanged(), "done done 7");
  EXPECT_EQ(exchanged(), "") << "each command goes out once";
}

TEST_F(WireTest, CommandsBehindAFailedOneAreLeftOut) {
  wire_.add("Select 1");
  wire_.add("Select 1/0");
  wire_.add("Select 2");
  EXPECT_EQ(exchanged(), "1 failed left-out");
  wire_.add("Select 3");
  EXPECT_EQ(exchanged(), "3");
}

TEST_F(WireTest, ExecutesWhatItHasPreparedWithOtherValues) {
  wire_.add_preparation("sum", "Select $1+$2", {23, 23});
  wire_.add_execution("sum", {"1", "2"});
  wire_.add_execution("sum", {"-1", "2"});
  wire_.add_execution("sum", {nullptr, "2"});
  EXPECT_EQ(exchanged(), "done 3 1 ");
}

TEST_F(WireTest, KnowsWhetherTheServerIsInATransaction) {
  EXPECT_EQ(wire_.transaction(), PQTRANS_IDLE);
  wire_.add("Begin");
  exchanged();
  EXPECT_EQ(wire_.transaction(), PQTRANS_INTRANS);
  wire_.add("Select 1/0");
  exchanged();
  EXPECT_EQ(wire_.transaction(), PQTRANS_INERROR);
}

TEST_F(WireTest, ThatIsCutIsLostForGood) {
  wire_.add("Select pg_terminate_backend(pg_backend_pid())");
  EXPECT_THROW(wire_.exchange(), automation::Error);
  EXPECT_TRUE(wire_.is_lost());
  EXPECT_THROW(
      {
        wire_.add("Select 1");
        wire_.exchange();
      },
      automation::Error);
}

TEST_F(WireTest, IsNoneWithoutTheDatabase) {
  EXPECT_THROW(Wire(options_for("127.0.0.1", server().port(), "nosuch")), automation::Error);
  EXPECT_THROW(Wire(options_for("/nowhere/at/all", 1, "nosuch")), automation::Error);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
