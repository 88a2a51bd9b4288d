#pragma once

#include <windows.h>

#include <functional>
#include <utility>

namespace tallyra::tests::com {

// A window of the client's that does something again and again when the client's loop gets a turn.
class ClientWindow {
 public:
  explicit ClientWindow(std::function<void()> work) : work_(std::move(work)) {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"TallyraClientWindow";
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, description.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              description.hInstance, nullptr);
    SetWindowLongW(window_, GWL_USERDATA, reinterpret_cast<LONG>(this));
    SetTimer(window_, 1, USER_TIMER_MINIMUM, nullptr);
  }
  ~ClientWindow() { DestroyWindow(window_); }
  ClientWindow(const ClientWindow&) = delete;
  ClientWindow& operator=(const ClientWindow&) = delete;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
    if (message != WM_TIMER) return DefWindowProcW(window, message, wide, longer);
    reinterpret_cast<ClientWindow*>(GetWindowLongW(window, GWL_USERDATA))->work_();
    return 0;
  }

  std::function<void()> work_;
  HWND window_;
};

}  // namespace tallyra::tests::com
