#include <iostream>

#include "client/output/text_table.h"
#include "tests/behaviour/client/stocktaking/counting_client.h"

// What the classes take in silence, and what the console client makes of it. Each row is played; what is told
// is told before anything is written. The table is printed.
namespace tallyra::client {
namespace {

using Words = std::vector<std::string>;

class EvilTable : public CountingClient {
 protected:
  ~EvilTable() override {
    std::string text;
    table_.append_with_heading(text);
    std::cout << text;
  }

  // Refused, with these words, and every document and record is as it was.
  void refused(const char* evil, const Words& words, const char* told) {
    const std::string before = state();
    const ExitStatus status = run(words);
    EXPECT_NE(status, exit_done) << evil << "\n" << client_.all();
    EXPECT_TRUE(says(told)) << evil << "\n" << client_.all();
    EXPECT_EQ(state(), before) << evil;
    table_.add_row({evil, "ends with " + std::to_string(status), told});
  }
  std::string state() const { return company_.everything() + stored(); }

  TextTable table_ = [] {
    TextTable table;
    table.add_row({"evil", "what happens", "what is told"});
    return table;
  }();
};

TEST_F(EvilTable, OfStocktakingsIsRefused) {
  if (!company_.is_sqlite()) GTEST_SKIP() << "the counters are no file";
  enter();
  const std::string keys = company_.file().string() + ".keys";
  std::filesystem::remove(keys);
  std::filesystem::create_directory(keys);
  refused("a stocktaking approved while no number can be issued", {"count", "approve", "C1"},
          "no number is issued");
  std::filesystem::remove(keys);
  sql(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
       "VALUES('X1','STK027CLOSE','2024-02-01 00:00:00','10',0)"});
  refused("a stocktaking approved beside what a close has left", {"count", "approve", "C1"},
          "an unfinished close has left");
  sql({"DELETE FROM STKTRANHD WHERE TRANNO='X1'"});
  ASSERT_EQ(run({"count", "approve", "C1"}), exit_done) << "stored, and said so";
  EXPECT_TRUE(says("it is stored"));
  table_.add_row({"a stocktaking approved", "ends with 0", "read back, it is stored"});
  refused("the same approved again", {"count", "approve", "C1"}, "is approved already");
}

// Raw calls, which take no options of verbs.
class EvilCalls : public EvilTable {
 protected:
  void refused_call(const char* evil, const Words& words, const char* told) {
    const std::string before = state();
    const ExitStatus status = client_.run(words);
    EXPECT_NE(status, exit_done) << evil << "\n" << client_.all();
    EXPECT_TRUE(says(told)) << evil << "\n" << client_.all();
    EXPECT_EQ(state(), before) << evil;
    table_.add_row({evil, "ends with " + std::to_string(status), told});
  }
};

TEST_F(EvilCalls, AreToldOf) {
  enter();
  refused_call("updating what does not exist", {"CRevAddr", "Update", "A9", "ADDRNM=x"}, "no such row");
  refused_call("deleting what does not exist", {"CRevAddr", "Delete", "A9"}, "no such row");
  for (const char* number : {"QTY=1,5", "QTY=$5", "QTY=(5)"})
    refused_call(number, {"CCheckDetail", "Update", "C1", "bolt-1", number}, "is no number");
  if (!company_.is_sqlite()) return;
  client_ = ClientProgram();
  refused_call("a misspelt database", {"status", "--db", company_.file().string() + "x"}, "no such file");
  EXPECT_FALSE(std::filesystem::exists(company_.file().string() + "x"));
#ifndef _WIN32
  refused_call("a Windows path where there are none", {"status", "--db", "C:\\stock\\company.db"},
               "is a Windows path");
#endif
  refused_call("no database", {"status"}, "no database was given");
}

}  // namespace
}  // namespace tallyra::client
