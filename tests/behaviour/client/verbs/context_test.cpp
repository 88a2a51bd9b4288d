#include <atomic>
#include <thread>

#include "automation/apartment.h"
#include "client/database/reader.h"
#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

// Sets the flag at the first that is written.
class Told : public std::stringbuf {
 public:
  explicit Told(std::atomic_flag& flag) : flag_(flag) {}

 protected:
  int sync() override {
    flag_.test_and_set();
    flag_.notify_all();
    return 0;
  }

 private:
  std::atomic_flag& flag_;
};

// Keeps everybody from reading, or from writing alone, until the flag is set.
void hold_database(const std::string& connection_string, const char* lock, std::atomic_flag& held,
                   std::atomic_flag& told) {
  const automation::Apartment apartment;
  const Reader holder(connection_string, "MSACCESS");
  holder.execute("PRAGMA journal_mode=DELETE");
  holder.execute(lock);
  held.test_and_set();
  held.notify_all();
  told.wait(false);
  holder.execute("ROLLBACK");
}

class VerbOnALockedDatabase : public testing::Test {
 protected:
  static constexpr int patience = 30000;

  // Runs the words while another one holds the lock, which it gives back once something was told.
  ExitStatus run(std::vector<std::string> words, const char* lock) {
    std::atomic_flag held;
    std::atomic_flag told;
    const std::jthread holder([&] { hold_database(company_.connection_string(), lock, held, told); });
    held.wait(false);
    Told text(told);
    std::ostream error(&text);
    std::istringstream input(input_);
    Console console{out_, error};
    console.input = &input;
    words.insert(words.end(), {"--user", "ADMIN", "--db", company_.connection_string()});
    const ExitStatus status =
        run_client(words, console, [](const std::string&) { return std::optional<std::string>(); });
    error_ = text.str();
    told.test_and_set();
    told.notify_all();
    return status;
  }
  bool told_to_wait() const { return error_.find("it may be waiting for a lock") != std::string::npos; }

  behaviour::ClosingCompany company_{"MSACCESS", patience};
  std::ostringstream out_;
  std::string error_;
  std::string input_;
};

TEST_F(VerbOnALockedDatabase, SaysThatItMayBeWaiting) {
  if (!company_.is_sqlite()) GTEST_SKIP() << "there who reads waits for nobody who writes";
  EXPECT_EQ(run({"list", "CTranHead", "--csv"}, "BEGIN EXCLUSIVE"), exit_done) << error_;
  EXPECT_TRUE(told_to_wait()) << error_;
  EXPECT_NE(out_.str().find("\nR1,STK010POREV,"), std::string::npos) << out_.str();
}

TEST_F(VerbOnALockedDatabase, SaysThatItMayBeWaitingToWrite) {
  if (!company_.is_sqlite()) GTEST_SKIP() << "there others write beside each other";
  input_ = R"({"class":"CRevAddr","member":"Insert","arguments":["A1",{"ADDRNO":"A1"}]})";
  const std::vector<std::string> verbs[] = {{"grant", "ANNA", "CRevAddr", "insert"},
                                            {"revoke", "ANNA", "CRevAddr", "insert"},
                                            {"doctor"},
                                            {"batch"}};
  for (const auto& words : verbs) {
    EXPECT_EQ(run(words, "BEGIN IMMEDIATE"), exit_done) << words[0] << error_ << out_.str();
    EXPECT_TRUE(told_to_wait()) << words[0] << error_;
  }
}

}  // namespace
}  // namespace tallyra::client
