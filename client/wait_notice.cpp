#include "client/wait_notice.h"

#include <ostream>

namespace tallyra::client {

WaitNotice::WaitNotice(const Console& console, std::chrono::milliseconds delay)
    : thread_([&error = console.error, delay](BackgroundThread& itself) {
        if (!itself.sleep(delay)) return;
        error << "tallyra-client: the database does not answer yet; it may be waiting for a lock that "
                 "another one holds\n"
              << std::flush;
      }) {}

}  // namespace tallyra::client
