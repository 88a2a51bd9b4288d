#include "server/com/thread_use.h"

#include <atomic>

#include "frame/collaborators.h"

namespace tallyra::server::com {
namespace {

thread_local long objects_of_thread = 0;

// The system gives the id of a thread that has ended to another; these numbers are never given twice.
unsigned long current_thread() {
  static std::atomic<unsigned long> last{0};
  thread_local unsigned long number = 0;
  if (number == 0) number = ++last;
  return number;
}

}  // namespace

ThreadUse::ThreadUse() : thread_(current_thread()) {
  ++objects_of_thread;
}

bool ThreadUse::on_own_thread() const {
  return thread_ == current_thread();
}

ThreadUse::~ThreadUse() {
  if (on_own_thread() && --objects_of_thread == 0) frame::release_collaborators();
}

}  // namespace tallyra::server::com
