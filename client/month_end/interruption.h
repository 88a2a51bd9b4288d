#pragma once

namespace tallyra::client {

// While one lives, Ctrl-C and TERM do not end the process but are counted; the third ends it at once after
// all, for when it hangs. There is one at a time.
class Interruptions {
 public:
  Interruptions();
  ~Interruptions();
  Interruptions(const Interruptions&) = delete;
  Interruptions& operator=(const Interruptions&) = delete;

  // From any thread.
  static int count();
};

}  // namespace tallyra::client
