#include "server/com/thread_use.h"

#include "frame/collaborators.h"

namespace tallyra::server::com {
namespace {

thread_local long objects_of_thread = 0;

}  // namespace

ThreadUse::ThreadUse() : thread_(GetCurrentThreadId()) {
  ++objects_of_thread;
}

ThreadUse::~ThreadUse() {
  if (on_own_thread() && --objects_of_thread == 0) frame::release_collaborators();
}

}  // namespace tallyra::server::com
