#pragma once

#include <sys/types.h>

#include "tests/behaviour/contention/holds.h"

namespace tallyra::behaviour {

// A process of its own that holds a company's database when it is told to and writes to it. Made by a fork:
// no connection may be open then.
class OtherWriter {
 public:
  explicit OtherWriter(const CompanyDatabase& company, const Hold& hold);
  ~OtherWriter();
  OtherWriter(const OtherWriter&) = delete;
  OtherWriter& operator=(const OtherWriter&) = delete;

  // Comes back as soon as the other process holds what it is to hold; half a second later it commits its
  // change and lets go. False when somebody else kept it.
  bool takes_the_lock();
  // Waits for the last change to be committed and ends the process.
  void finish();

 private:
  [[noreturn]] static void serve(const std::string& connection_string, const Hold& hold, int requests,
                                 int answers);

  int requests_ = -1;
  int answers_ = -1;
  pid_t process_ = -1;
};

}  // namespace tallyra::behaviour
