#pragma once

#include <functional>

namespace tallyra::automation {

// Gives the caller's message loop a turn during long work, a bounded one: a client that posts messages as
// fast as it handles them does not stop the work. Where there is no message loop it does nothing, unless a
// handler has been set. An Error that a handler throws ends the work as one of its own would.
void yield();

// Replaces what yield does on this thread for as long as it lives; ends in the reverse order of others of its
// kind.
class ScopedYield {
 public:
  explicit ScopedYield(std::function<void()> handler);
  ~ScopedYield();
  ScopedYield(const ScopedYield&) = delete;
  ScopedYield& operator=(const ScopedYield&) = delete;

 private:
  std::function<void()> handler_;
  const std::function<void()>* previous_;
};

}  // namespace tallyra::automation
