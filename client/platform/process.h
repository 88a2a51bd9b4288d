#pragma once

#include <cstdint>
#include <string>

namespace tallyra::client {

// A process of this machine, so that it is told from a later one that has got the same number.
struct ProcessIdentity {
  std::int64_t id = 0;
  std::string started;  // when, in the system's own form; empty when it does not tell

  friend bool operator==(const ProcessIdentity&, const ProcessIdentity&) = default;
};

ProcessIdentity this_process();
// Whether that very process is still there. Without a start any process of the number is taken for it.
bool is_alive(const ProcessIdentity& process);

std::string host_name();
// The user who is logged in to the system, "" when it does not tell.
std::string system_user();

}  // namespace tallyra::client
