#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <thread>

namespace tallyra::client {

// A thread that works beside a command. Its end comes with the destructor, on the thread that made it: that
// wakes the work where it sleeps, and waits until it returns. What the work throws ends the program.
class BackgroundThread {
 public:
  explicit BackgroundThread(std::function<void(BackgroundThread& itself)> work);
  ~BackgroundThread();
  BackgroundThread(const BackgroundThread&) = delete;
  BackgroundThread& operator=(const BackgroundThread&) = delete;

  // For the work alone: lets that time pass. False, and at once, when it is to end.
  bool sleep(std::chrono::milliseconds time);

 private:
  // The maker holds it until the end. A condition variable would say the same, but with the thread library of
  // the Windows compiler one that waits for a time is now and then never woken, neither by the time nor by a
  // notice.
  std::timed_mutex until_end_;
  std::unique_lock<std::timed_mutex> held_{until_end_};
  std::thread thread_;  // last: its work uses the others
};

}  // namespace tallyra::client
