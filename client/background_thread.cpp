#include "client/background_thread.h"

#include <utility>

namespace tallyra::client {

BackgroundThread::BackgroundThread(std::function<void(BackgroundThread& itself)> work)
    : thread_([this, work = std::move(work)] { work(*this); }) {}

BackgroundThread::~BackgroundThread() {
  held_.unlock();
  thread_.join();
}

bool BackgroundThread::sleep(std::chrono::milliseconds time) {
  if (!until_end_.try_lock_for(time)) return true;
  until_end_.unlock();
  return false;
}

}  // namespace tallyra::client
