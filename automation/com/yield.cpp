#include "automation/yield.h"

#include <windows.h>

#include <utility>

namespace tallyra::automation {
namespace {

// The handler itself lies in the ScopedYield: a thread-local with a destructor would keep the DLL loaded for
// as long as the thread lives.
thread_local const std::function<void()>* thread_handler = nullptr;

// More than ever wait at once for a client that answers its messages. A window that posts to itself whenever
// it is called would hold a turn for ever; the rest waits for the next turn.
constexpr int most_messages_of_a_turn = 100;

// What waits in the caller's queue now. A request to quit stays for the caller's own loop.
void pump_messages() {
  MSG message;
  for (int i = 0; i < most_messages_of_a_turn && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
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
  if (thread_handler) return (*thread_handler)();
  if (HIWORD(GetQueueStatus(QS_ALLINPUT)) != 0) pump_messages();
}

ScopedYield::ScopedYield(std::function<void()> handler)
    : handler_(std::move(handler)), previous_(std::exchange(thread_handler, &handler_)) {}

ScopedYield::~ScopedYield() {
  thread_handler = previous_;
}

}  // namespace tallyra::automation
