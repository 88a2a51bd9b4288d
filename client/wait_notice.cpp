#include "client/wait_notice.h"

#include <ostream>

namespace tallyra::client {

WaitNotice::WaitNotice(const Console& console, std::chrono::milliseconds delay)
    : thread_([this, &error = console.error, delay](const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        stopped_.wait_for(lock, stop, delay, [] { return false; });
        if (stop.stop_requested()) return;
        error << "tallyra-client: the database does not answer yet; it may be waiting for a lock that "
                 "another one holds\n"
              << std::flush;
      }) {}

}  // namespace tallyra::client
