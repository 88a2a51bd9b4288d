#include "standins/ado/trace.h"

#include <map>

#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class Journal : public TraceSink {
 public:
  Journal() { set_trace_sink(this); }
  ~Journal() override { set_trace_sink(nullptr); }

  void operation(const TraceEvent& event) noexcept override {
    static constexpr const char* names[] = {"connect", "execute",  "query",     "begin",
                                            "commit",  "rollback", "disconnect"};
    const auto ordinal = ordinals_.emplace(event.connection, ordinals_.size() + 1).first->second;
    text += std::to_string(ordinal) + ' ' + names[static_cast<int>(event.operation)];
    if (!event.text.empty()) text.append(1, ' ').append(event.text);
    if (event.operation == Operation::query) text += " -> " + std::to_string(event.rows);
    if (!event.succeeded) text += " failed";
    text += '\n';
  }

  std::string text;

 private:
  std::map<std::uint64_t, std::size_t> ordinals_;
};

class TraceTest : public ScratchDatabase {};

TEST_F(TraceTest, TellsWhatWentToTheEngineInOrder) {
  Journal journal;
  {
    const Object connection = automation::create("ADODB.Connection");
    connection.call("Open", connection_string());
    execute(connection, "create table T(A integer, DT timestamp)");
    connection.call("BeginTrans");
    execute(connection, "insert into T(A,DT) values(1,'2024/03/31')");
    connection.call("CommitTrans");
    open_recordset(connection, "Select top 5 A From T Where DT=#2024/03/31#");
    error_of([&] { execute(connection, "insert into NOSUCH values(1)"); });
    connection.call("BeginTrans");
    connection.call("RollbackTrans");
    connection.call("Close");
  }
  EXPECT_EQ(journal.text, "1 connect " + odbc_string() +
                              "\n"
                              "1 execute create table T(A integer, DT timestamp)\n"
                              "1 begin\n"
                              "1 execute insert into T(A,DT) values(1,'2024-03-31 00:00:00')\n"
                              "1 commit\n"
                              "1 query Select A From T Where DT='2024-03-31 00:00:00' LIMIT 5 -> 1\n"
                              "1 execute insert into NOSUCH values(1) failed\n"
                              "1 begin\n"
                              "1 rollback\n"
                              "1 disconnect\n");
}

TEST_F(TraceTest, TellsConnectionsApartAndWhatReleaseDoes) {
  Journal journal;
  {
    const Object first = open_connection();
    const Object second = open_connection("other.db");
    first.call("BeginTrans");
  }
  EXPECT_EQ(journal.text, "1 connect " + odbc_string() + "\n2 connect " + odbc_string("other.db") +
                              "\n1 begin\n2 disconnect\n1 rollback\n1 disconnect\n");
}

}  // namespace
}  // namespace tallyra::standins::ado::test
