#include "automation/yield.h"

#include <windows.h>

#include <utility>

namespace tallyra::automation {
namespace {

thread_local std::function<void()> thread_handler;

// Everything that waits in the caller's queue now. A request to quit stays for the caller's own loop.
void pump_messages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

void yield() {
  if (thread_handler) return thread_handler();
  if (HIWORD(GetQueueStatus(QS_ALLINPUT)) != 0) pump_messages();
}

ScopedYield::ScopedYield(std::function<void()> handler)
    : previous_(std::exchange(thread_handler, std::move(handler))) {}

ScopedYield::~ScopedYield() {
  thread_handler = std::move(previous_);
}

}  // namespace tallyra::automation
