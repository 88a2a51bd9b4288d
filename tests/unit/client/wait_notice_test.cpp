#include "client/wait_notice.h"

#include <gtest/gtest.h>

#include <future>
#include <optional>
#include <sstream>

namespace tallyra::client {
namespace {

using namespace std::chrono_literals;

// Tells when something was written and flushed.
class Told : public std::stringbuf {
 public:
  std::future<void> future() { return told_.get_future(); }

 protected:
  int sync() override {
    told_.set_value();
    return 0;
  }

 private:
  std::promise<void> told_;
};

TEST(WaitNotice, TellsOnceThatALockMayBeWaitedFor) {
  Told text;
  std::ostream error(&text);
  const Console console{error, error};
  std::optional<WaitNotice> notice(std::in_place, console, 1ms);
  text.future().wait();
  notice.reset();
  EXPECT_EQ(text.str(),
            "tallyra-client: the database does not answer yet; it may be waiting for a lock that another one "
            "holds\n");
}

TEST(WaitNotice, IsSilentAboutWhatIsShort) {
  std::ostringstream error;
  const Console console{error, error};
  { const WaitNotice notice(console, 24h); }
  EXPECT_EQ(error.str(), "");
}

}  // namespace
}  // namespace tallyra::client
