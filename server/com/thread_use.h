#pragma once

namespace tallyra::server::com {

// Each business object holds one. When the last one of a thread goes, the collaborators of that thread go
// with it: a client lets its objects go before its apartment, so that is the last moment at which other
// modules can be called safely. An object that is destroyed on a foreign thread leaves its own thread's
// collaborators where they are.
class ThreadUse {
 public:
  ThreadUse();
  ~ThreadUse();
  ThreadUse(const ThreadUse&) = delete;
  ThreadUse& operator=(const ThreadUse&) = delete;

  bool on_own_thread() const;

 private:
  unsigned long thread_;
};

}  // namespace tallyra::server::com
