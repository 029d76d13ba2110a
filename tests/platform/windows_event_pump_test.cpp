#include "platform/windows/windows_event_pump.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <stdexcept>
#include <string>

#include "platform/windows/steady_time.h"
#include "platform/windows/unique_handle.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

constexpr UINT kNote = WM_APP;
constexpr int kButton = 7;

/// A window that passes its messages to a handler.
class TestWindow {
 public:
  explicit TestWindow(std::function<void(UINT, WPARAM)> handler) : handler_(std::move(handler)) {
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = ::GetModuleHandleW(nullptr);
    type.lpszClassName = L"OrvenzaPumpTest";
    ::RegisterClassW(&type);
    window_ = ::CreateWindowW(type.lpszClassName, L"", WS_OVERLAPPEDWINDOW, 0, 0, 200, 200, nullptr, nullptr,
                              type.hInstance, nullptr);
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~TestWindow() { ::DestroyWindow(window_); }
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;

  HWND Handle() const { return window_; }

  HWND AddButton() {
    return ::CreateWindowW(L"BUTTON", L"&Ok", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 50, 20, window_,
                           reinterpret_cast<HMENU>(INT_PTR{kButton}), ::GetModuleHandleW(nullptr), nullptr);
  }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) {
    auto* self = reinterpret_cast<TestWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr) self->handler_(message, wide);
    return ::DefWindowProcW(window, message, wide, parameter);
  }

  std::function<void(UINT, WPARAM)> handler_;
  HWND window_ = nullptr;
};

/// A pump that records its events.
class WindowsEventPumpTest : public testing::Test {
 protected:
  void Note(const std::string& event) { events += (events.empty() ? "" : " ") + event; }
  std::function<void()> Noting(const std::string& event) {
    return [this, event] { Note(event); };
  }
  /// Runs `action` when the message kNote arrives.
  std::function<void(UINT, WPARAM)> OnNote(std::function<void()> action) {
    return [action](UINT message, WPARAM) {
      if (message == kNote) action();
    };
  }
  /// Waits until an event is recorded, which must end the wait long before its limit.
  void AwaitEvent() {
    constexpr auto kPatience = 10s;
    const auto limit = SteadyTime() + kPatience;
    while (events.empty() && SteadyTime() < limit) pump.WaitForEvent(kPatience);
    EXPECT_LT(SteadyTime(), limit) << "no event has ended the wait";
  }
  void PostNote(const TestWindow& window) { ::PostMessageW(window.Handle(), kNote, 0, 0); }

  WindowsEventPump pump;
  std::string events;
};

TEST_F(WindowsEventPumpTest, RunsTimersByMomentAndThenByOrder) {
  pump.After(1h, Noting("late"));
  pump.After(0ns, Noting("a"));
  pump.Post(Noting("b"));
  pump.Dispatch();
  EXPECT_EQ(events, "a b");
}

TEST_F(WindowsEventPumpTest, ATimerEndsTheWait) {
  pump.After(1us, Noting("timer"));
  while (events.empty()) pump.WaitForEvent(std::chrono::nanoseconds::max());
  EXPECT_EQ(events, "timer");
}

TEST_F(WindowsEventPumpTest, DispatchDoesNotWait) {
  pump.After(1h, Noting("timer"));
  pump.Dispatch();
  EXPECT_EQ(events, "");
}

TEST_F(WindowsEventPumpTest, ADelayBelowZeroIsNone) {
  pump.After(-5s, Noting("a"));
  pump.Dispatch();
  EXPECT_EQ(events, "a");
}

TEST_F(WindowsEventPumpTest, AnActionGivenByAnActionWaitsForTheNextDelivery) {
  std::function<void()> again = [&] {
    Note("again");
    pump.Post(again);
  };
  pump.Post(again);
  pump.Dispatch();
  EXPECT_EQ(events, "again");
  pump.Dispatch();
  EXPECT_EQ(events, "again again");
}

TEST_F(WindowsEventPumpTest, AnActionMayPumpTheOthers) {
  pump.Post([&] {
    Note("outer");
    pump.Post(Noting("inner"));
    pump.Dispatch();
    Note("outer-end");
  });
  pump.Post(Noting("second"));
  pump.Dispatch();
  EXPECT_EQ(events, "outer second inner outer-end");
}

TEST_F(WindowsEventPumpTest, AnActionThatThrowsIsGone) {
  pump.Post([] { throw std::runtime_error("broken"); });
  pump.Post(Noting("next"));
  EXPECT_THROW(pump.Dispatch(), std::runtime_error);
  pump.Dispatch();
  EXPECT_EQ(events, "next");
}

TEST_F(WindowsEventPumpTest, AMessageEndsTheWait) {
  const TestWindow window(OnNote(Noting("message")));
  PostNote(window);
  AwaitEvent();
  EXPECT_EQ(events, "message");
}

TEST_F(WindowsEventPumpTest, WhatAWindowPostsRunsInTheSameDeliveryOutsideOfIt) {
  const TestWindow window(OnNote([&] {
    pump.Post([] { throw std::runtime_error("from the pump's own frame"); });
    Note("message");
  }));
  PostNote(window);
  EXPECT_THROW(pump.Dispatch(), std::runtime_error);
  EXPECT_EQ(events, "message");
}

TEST_F(WindowsEventPumpTest, TimersWaitWhileTheSystemRunsALoopOfItsOwn) {
  const TestWindow window(OnNote([&] {
    Note("menu");
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
    Note("menu-end");
  }));
  pump.Post(Noting("timer"));
  PostNote(window);
  pump.Dispatch();
  EXPECT_EQ(events, "menu menu-end timer");
}

TEST_F(WindowsEventPumpTest, AWindowThatIsNeverDoneDoesNotHoldUpTheTimers) {
  HWND handle = nullptr;
  const TestWindow window(OnNote([&] { ::PostMessageW(handle, kNote, 0, 0); }));
  handle = window.Handle();
  PostNote(window);
  pump.Post(Noting("timer"));
  pump.Dispatch();
  EXPECT_EQ(events, "timer");
}

DWORD WINAPI SendNote(void* window) {
  ::SendMessageW(static_cast<HWND>(window), kNote, 0, 0);
  return 0;
}

TEST_F(WindowsEventPumpTest, AMessageSentFromOutsideEndsTheWait) {
  const TestWindow window(OnNote(Noting("sent")));
  const ObjectHandle thread(::CreateThread(nullptr, 0, SendNote, window.Handle(), 0, nullptr));
  AwaitEvent();
  EXPECT_EQ(events, "sent");
  ::WaitForSingleObject(thread.Get(), INFINITE);
}

TEST_F(WindowsEventPumpTest, TheRequestToEndIsAnEvent) {
  pump.OnTerminate(Noting("terminate"));
  ::PostQuitMessage(0);
  AwaitEvent();
  pump.Dispatch();
  EXPECT_EQ(events, "terminate");
}

TEST_F(WindowsEventPumpTest, TheRequestToEndIsIgnoredWithoutAHandler) {
  ::PostQuitMessage(0);
  pump.Post(Noting("timer"));
  pump.Dispatch();
  EXPECT_EQ(events, "timer");
}

TEST_F(WindowsEventPumpTest, ADialogHasItsKeyboard) {
  TestWindow window([&](UINT message, WPARAM wide) {
    if (message == WM_COMMAND) Note("command " + std::to_string(LOWORD(wide)));
  });
  const HWND button = window.AddButton();
  const auto pressEscape = [&] {
    ::PostMessageW(button, WM_KEYDOWN, VK_ESCAPE, 0);
    pump.Dispatch();
  };
  pressEscape();
  EXPECT_EQ(events, "");
  pump.AddDialog(window.Handle());
  pressEscape();
  EXPECT_EQ(events, "command 2");
  pump.RemoveDialog(window.Handle());
  pressEscape();
  EXPECT_EQ(events, "command 2");
}

TEST_F(WindowsEventPumpTest, AMnemonicPressesItsButton) {
  TestWindow window([&](UINT message, WPARAM wide) {
    if (message == WM_COMMAND) Note("command " + std::to_string(LOWORD(wide)));
  });
  const HWND button = window.AddButton();
  ::ShowWindow(window.Handle(), SW_SHOW);
  pump.Dispatch();
  pump.AddDialog(window.Handle());
  ::PostMessageW(button, WM_SYSCHAR, 'o', 1 << 29);
  pump.Dispatch();
  pump.Dispatch();
  EXPECT_EQ(events, "command " + std::to_string(kButton));
  pump.RemoveDialog(window.Handle());
}

}  // namespace
}  // namespace orvenza::test
