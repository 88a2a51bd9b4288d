#include "automation/yield.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tallyra::automation {
namespace {

constexpr UINT self_posting = WM_APP + 1;

int handled = 0;

LRESULT CALLBACK count_messages(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_APP || message == self_posting) ++handled;
  // Not for ever, so that a turn without an end fails rather than hangs.
  if (message == self_posting && handled < 100'000) PostMessageW(window, self_posting, 0, 0);
  return DefWindowProcW(window, message, wide, longer);
}

class MessageLoopTurn : public testing::Test {
 protected:
  MessageLoopTurn() {
    handled = 0;
    WNDCLASSW description{};
    description.lpfnWndProc = count_messages;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"TallyraYieldTest";
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, description.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              description.hInstance, nullptr);
  }
  ~MessageLoopTurn() override { DestroyWindow(window_); }

  HWND window_;
};

TEST_F(MessageLoopTurn, GivesEveryWaitingMessageToItsWindow) {
  ASSERT_NE(window_, nullptr);
  for (int i = 0; i < 3; ++i) PostMessageW(window_, WM_APP, 0, 0);
  yield();
  EXPECT_EQ(handled, 3);
  yield();
  EXPECT_EQ(handled, 3);
}

TEST_F(MessageLoopTurn, EndsThoughAWindowPostsToItselfWithoutEnd) {
  PostMessageW(window_, self_posting, 0, 0);
  yield();
  const int first_turn = handled;
  EXPECT_GT(first_turn, 0);
  EXPECT_LT(first_turn, 1000);
  yield();
  EXPECT_GT(handled, first_turn) << "the next turn goes on";
  handled = 100'000;
  yield();
}

TEST_F(MessageLoopTurn, LeavesARequestToQuitToTheCallersOwnLoop) {
  PostMessageW(window_, WM_APP, 0, 0);
  PostQuitMessage(7);
  yield();
  EXPECT_EQ(handled, 1);
  MSG message;
  ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, WPARAM{7});
}

TEST_F(MessageLoopTurn, AHandlerTakesThePlaceOfTheMessageLoop) {
  PostMessageW(window_, WM_APP, 0, 0);
  int turns = 0;
  {
    const ScopedYield handler([&turns] { ++turns; });
    yield();
  }
  EXPECT_EQ(turns, 1);
  EXPECT_EQ(handled, 0);
  yield();
  EXPECT_EQ(handled, 1);
}

}  // namespace
}  // namespace tallyra::automation
