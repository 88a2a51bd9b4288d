#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace tallyra::behaviour {

// A process of its own that writes to the same database when it is told to, a row in the table OTHERS. Made
// by a fork: no connection may be open then.
class OtherWriter {
 public:
  explicit OtherWriter(const std::filesystem::path& database);
  ~OtherWriter();
  OtherWriter(const OtherWriter&) = delete;
  OtherWriter& operator=(const OtherWriter&) = delete;

  // Comes back as soon as the other process holds the write lock; half a second later it commits its change
  // and lets go. False when somebody else kept the lock.
  bool takes_the_lock();

 private:
  [[noreturn]] static void serve(const std::string& connection_string, int requests, int answers);

  int requests_ = -1;
  int answers_ = -1;
  pid_t process_ = -1;
};

}  // namespace tallyra::behaviour
