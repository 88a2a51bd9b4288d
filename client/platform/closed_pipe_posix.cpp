
#include <csignal>

#include "client/platform/closed_pipe.h"

namespace tallyra::client {
namespace {

// What the signal did before.
struct sigaction previous_pipe;

}  // namespace

ClosedPipeIgnored::ClosedPipeIgnored() {
  struct sigaction action {};
  action.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &action, &previous_pipe);
}

ClosedPipeIgnored::~ClosedPipeIgnored() {
  sigaction(SIGPIPE, &previous_pipe, nullptr);
}

}  // namespace tallyra::client
