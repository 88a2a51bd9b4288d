#pragma once

namespace tallyra::server::com {

// The thread that a business object belongs to, the one that makes it.
class ThreadUse {
 public:
  ThreadUse();

  bool on_own_thread() const;

 private:
  unsigned long thread_;
};

}  // namespace tallyra::server::com
