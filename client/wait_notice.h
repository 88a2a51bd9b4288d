#pragma once

#include <chrono>

#include "client/background_thread.h"
#include "client/console.h"

namespace tallyra::client {

// Around what is short unless another one holds a lock: when it lives longer than the delay, it says on the
// error output what may be the matter, once. A driver tells nothing while it waits.
class WaitNotice {
 public:
  explicit WaitNotice(const Console& console, std::chrono::milliseconds delay = std::chrono::seconds(1));
  WaitNotice(const WaitNotice&) = delete;
  WaitNotice& operator=(const WaitNotice&) = delete;

 private:
  BackgroundThread thread_;
};

}  // namespace tallyra::client
