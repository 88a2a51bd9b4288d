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

// Keeps everybody from reading until the flag is set.
void hold_database(const std::string& connection_string, std::atomic_flag& held, std::atomic_flag& told) {
  const automation::Apartment apartment;
  const Reader holder(connection_string, "MSACCESS");
  holder.execute("PRAGMA journal_mode=DELETE");
  holder.execute("BEGIN EXCLUSIVE");
  held.test_and_set();
  held.notify_all();
  told.wait(false);
  holder.execute("ROLLBACK");
}

TEST(VerbOnALockedDatabase, SaysThatItMayBeWaiting) {
  constexpr int patience = 30000;
  const behaviour::ClosingCompany company("MSACCESS", patience);
  if (!company.is_sqlite()) GTEST_SKIP() << "there who reads waits for nobody who writes";
  std::atomic_flag held;
  std::atomic_flag told;
  const std::jthread holder([&] { hold_database(company.connection_string(), held, told); });
  held.wait(false);
  Told text(told);
  std::ostream error(&text);
  std::ostringstream out;
  const Console console{out, error};
  const auto no_environment = [](const std::string&) { return std::optional<std::string>(); };
  EXPECT_EQ(run_client({"list", "CTranHead", "--csv", "--db", company.connection_string()}, console,
                       no_environment),
            exit_done)
      << text.str();
  EXPECT_NE(text.str().find("it may be waiting for a lock"), std::string::npos) << text.str();
  EXPECT_NE(out.str().find("\nR1,STK010POREV,"), std::string::npos) << out.str();
  told.test_and_set();
  told.notify_all();
}

}  // namespace
}  // namespace tallyra::client
