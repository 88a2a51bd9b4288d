#include "server/com/thread_use.h"

#include <atomic>

namespace tallyra::server::com {
namespace {

// The system gives the id of a thread that has ended to another; these numbers are never given twice.
unsigned long current_thread() {
  static std::atomic<unsigned long> last{0};
  thread_local unsigned long number = 0;
  if (number == 0) number = ++last;
  return number;
}

}  // namespace

ThreadUse::ThreadUse() : thread_(current_thread()) {}

bool ThreadUse::on_own_thread() const {
  return thread_ == current_thread();
}

}  // namespace tallyra::server::com
