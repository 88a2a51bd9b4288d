#pragma once

namespace tallyra::client {

// While one lives, writing to a reader who has gone away fails but does not end the process: what is under
// way in the database, and the lock on it, come to their end. There is one at a time.
class ClosedPipeIgnored {
 public:
  ClosedPipeIgnored();
  ~ClosedPipeIgnored();
  ClosedPipeIgnored(const ClosedPipeIgnored&) = delete;
  ClosedPipeIgnored& operator=(const ClosedPipeIgnored&) = delete;
};

}  // namespace tallyra::client
