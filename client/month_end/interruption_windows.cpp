#include <windows.h>

#include <atomic>

#include "client/month_end/interruption.h"

namespace tallyra::client {
namespace {

std::atomic<int> interruptions{0};
constexpr int last_counted = 2;

// Runs on a thread of the system's. What it does not handle ends the process.
BOOL WINAPI count_interruption(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  return ++interruptions <= last_counted ? TRUE : FALSE;
}

}  // namespace

Interruptions::Interruptions() {
  interruptions = 0;
  SetConsoleCtrlHandler(count_interruption, TRUE);
}

Interruptions::~Interruptions() {
  SetConsoleCtrlHandler(count_interruption, FALSE);
}

int Interruptions::count() {
  return interruptions;
}

}  // namespace tallyra::client
