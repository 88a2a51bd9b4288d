
#include <atomic>
#include <csignal>

#include "client/month_end/interruption.h"

namespace tallyra::client {
namespace {

std::atomic<int> interruptions{0};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may use no other");

constexpr int last_counted = 2;

// What the signals did before.
struct sigaction previous_int;
struct sigaction previous_term;
struct sigaction previous_hup;

extern "C" void count_interruption(int signal_number) {
  if (++interruptions <= last_counted) return;
  signal(signal_number, SIG_DFL);
  raise(signal_number);
}

}  // namespace

Interruptions::Interruptions() {
  interruptions = 0;
  struct sigaction action {};
  action.sa_handler = count_interruption;
  // The database's own waiting goes on.
  action.sa_flags = SA_RESTART;
  sigaction(SIGINT, &action, &previous_int);
  sigaction(SIGTERM, &action, &previous_term);
  // A terminal that is closed, or a line that is lost.
  sigaction(SIGHUP, &action, &previous_hup);
}

Interruptions::~Interruptions() {
  sigaction(SIGINT, &previous_int, nullptr);
  sigaction(SIGTERM, &previous_term, nullptr);
  sigaction(SIGHUP, &previous_hup, nullptr);
}

int Interruptions::count() {
  return interruptions;
}

}  // namespace tallyra::client
