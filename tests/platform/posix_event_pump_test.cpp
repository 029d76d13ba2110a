#include "platform/posix/posix_event_pump.h"

#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <stdexcept>

#include "platform/posix/descriptor.h"
#include "platform/posix/posix_clock.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

/// A pump that records its events, and a pipe for its input.
class PosixEventPumpTest : public testing::Test {
 protected:
  PosixEventPumpTest() {
    int ends[2] = {-1, -1};
    EXPECT_EQ(::pipe(ends), 0);
    readEnd = Descriptor(ends[0]);
    writeEnd = Descriptor(ends[1]);
  }

  void Watch() {
    pump.WatchInput(
        readEnd.Get(), [this](const std::string& line) { Note("[" + line + "]"); }, [this] { Note("end"); });
  }
  void Type(const std::string& text) {
    EXPECT_EQ(::write(writeEnd.Get(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  void Note(const std::string& event) { events += (events.empty() ? "" : " ") + event; }
  std::function<void()> Noting(const std::string& event) {
    return [this, event] { Note(event); };
  }

  /// Waits for an event, which must end the wait long before its limit.
  void AwaitEvent() {
    const PosixClock clock;
    const auto limit = clock.Uptime() + kPatience;
    pump.WaitForEvent(kPatience);
    EXPECT_LT(clock.Uptime(), limit) << "no event has ended the wait; events so far: " << events;
  }

  static constexpr auto kPatience = 10s;

  Descriptor readEnd;
  Descriptor writeEnd;
  PosixEventPump pump;
  std::string events;
};

TEST_F(PosixEventPumpTest, RunsTimersByMomentAndThenByOrder) {
  pump.After(1h, Noting("late"));
  pump.After(0ns, Noting("a"));
  pump.After(0ns, Noting("b"));
  pump.Dispatch();
  EXPECT_EQ(events, "a b");
}

TEST_F(PosixEventPumpTest, ATimerEndsTheWait) {
  pump.After(1us, Noting("timer"));
  pump.WaitForEvent(std::chrono::nanoseconds::max());
  EXPECT_EQ(events, "timer");
}

TEST_F(PosixEventPumpTest, AWaitLastsToItsLimit) {
  const PosixClock clock;
  const auto end = clock.Uptime() + 1us;
  pump.After(1h, Noting("timer"));
  pump.WaitForEvent(1us);
  EXPECT_GE(clock.Uptime(), end);
  EXPECT_EQ(events, "");
}

TEST_F(PosixEventPumpTest, DispatchDoesNotWait) {
  pump.After(1h, Noting("timer"));
  Watch();
  pump.Dispatch();
  EXPECT_EQ(events, "");
}

TEST_F(PosixEventPumpTest, ADelayBelowZeroIsNone) {
  pump.After(-5s, Noting("a"));
  pump.Dispatch();
  EXPECT_EQ(events, "a");
}

TEST_F(PosixEventPumpTest, AnActionGivenByAnActionWaitsForTheNextDelivery) {
  std::function<void()> again = [&] {
    Note("again");
    pump.After(0ns, again);
  };
  pump.After(0ns, again);
  pump.Dispatch();
  EXPECT_EQ(events, "again");
  pump.Dispatch();
  EXPECT_EQ(events, "again again");
}

TEST_F(PosixEventPumpTest, AnActionMayPumpTheOthers) {
  pump.After(0ns, [&] {
    Note("outer");
    pump.After(0ns, Noting("inner"));
    pump.Dispatch();
    Note("outer-end");
  });
  pump.After(0ns, Noting("second"));
  pump.Dispatch();
  EXPECT_EQ(events, "outer second inner outer-end");
}

TEST_F(PosixEventPumpTest, AnActionThatThrowsIsGone) {
  pump.After(0ns, [] { throw std::runtime_error("broken"); });
  pump.After(0ns, Noting("next"));
  EXPECT_THROW(pump.Dispatch(), std::runtime_error);
  pump.Dispatch();
  EXPECT_EQ(events, "next");
}

TEST_F(PosixEventPumpTest, CutsInputIntoLinesOneADelivery) {
  Watch();
  Type("one\ntwo\r\n\nfour\n");
  const char* const expected[] = {"[one]", "[one] [two]", "[one] [two] []", "[one] [two] [] [four]"};
  for (const char* text : expected) {
    AwaitEvent();
    EXPECT_EQ(events, text);
  }
}

TEST_F(PosixEventPumpTest, JoinsTheHalvesOfALine) {
  Watch();
  Type("1\nha");
  pump.Dispatch();
  pump.Dispatch();
  EXPECT_EQ(events, "[1]");
  Type("lf\n");
  pump.Dispatch();
  EXPECT_EQ(events, "[1] [half]");
}

TEST_F(PosixEventPumpTest, HalfALineDoesNotEndTheWait) {
  Watch();
  Type("ha");
  pump.After(1us, [&] { Type("lf\n"); });
  AwaitEvent();
  AwaitEvent();
  EXPECT_EQ(events, "[half]");
}

TEST_F(PosixEventPumpTest, DeliversTheLastLineAndThenTheEndOnce) {
  Watch();
  Type("one\nlast");
  writeEnd = Descriptor();
  for (int i = 0; i < 4; ++i) pump.Dispatch();
  EXPECT_EQ(events, "[one] [last] end");
}

TEST_F(PosixEventPumpTest, TheEndOfInputEndsTheWait) {
  Watch();
  writeEnd = Descriptor();
  AwaitEvent();
  EXPECT_EQ(events, "end");
}

TEST_F(PosixEventPumpTest, ADescriptorThatCannotBeReadIsAtItsEnd) {
  pump.WatchInput(-7, nullptr, Noting("negative"));
  AwaitEvent();
  pump.WatchInput(writeEnd.Get(), nullptr, Noting("unreadable"));
  readEnd = Descriptor();
  AwaitEvent();
  EXPECT_EQ(events, "negative unreadable");
}

TEST_F(PosixEventPumpTest, AVeryLongLineComesInPieces) {
  LineInput input(readEnd.Get());
  for (std::size_t written = 0; written < LineInput::kLongestLine; written += 4096) {
    EXPECT_FALSE(input.HasLine());
    Type(std::string(4096, 'x'));
    input.Collect();
  }
  EXPECT_TRUE(input.HasLine());
  Type("rest\n");
  input.Collect();
  EXPECT_EQ(input.TakeLine().size(), LineInput::kLongestLine);
  EXPECT_EQ(input.TakeLine(), "rest");
  EXPECT_FALSE(input.HasLine());
}

TEST_F(PosixEventPumpTest, ADialogInsideAHandlerGetsTheNextLine) {
  pump.WatchInput(
      readEnd.Get(),
      [&](const std::string& line) {
        Note("<" + line);
        if (line == "open") AwaitEvent();
        Note(line + ">");
      },
      Noting("end"));
  Type("open\nanswer\nrest\n");
  AwaitEvent();
  EXPECT_EQ(events, "<open <answer answer> open>");
  AwaitEvent();
  EXPECT_EQ(events, "<open <answer answer> open> <rest rest>");
}

TEST_F(PosixEventPumpTest, ALineHandlerThatThrowsLosesOnlyItsLine) {
  pump.WatchInput(
      readEnd.Get(),
      [&](const std::string& line) {
        if (line == "bad") throw std::runtime_error(line);
        Note(line);
      },
      Noting("end"));
  Type("bad\ngood\n");
  EXPECT_THROW(AwaitEvent(), std::runtime_error);
  AwaitEvent();
  EXPECT_EQ(events, "good");
}

TEST_F(PosixEventPumpTest, AHandlerMayWatchAnotherInput) {
  const std::string own(100, 'x');  // The handler's captures must outlive its replacement.
  const auto replace = [this, own](const std::string&) {
    Watch();
    Note(own);
  };
  pump.WatchInput(readEnd.Get(), replace, nullptr);
  Type("one\n");
  AwaitEvent();
  Type("two\n");
  AwaitEvent();
  EXPECT_EQ(events, own + " [two]");
}

TEST_F(PosixEventPumpTest, ReadsNoFurtherWhileALineWaits) {
  Watch();
  for (int i = 0; i < 3000; ++i) Type("x\n");
  for (int i = 0; i < 3; ++i) pump.Dispatch();
  int unread = 0;
  ::ioctl(readEnd.Get(), FIONREAD, &unread);
  EXPECT_EQ(events, "[x] [x] [x]");
  EXPECT_EQ(unread, 6000 - 4096);
}

TEST_F(PosixEventPumpTest, ASignalIsAnEvent) {
  pump.OnTerminate(Noting("terminate"));
  ::raise(SIGTERM);
  ::raise(SIGINT);
  EXPECT_EQ(events, "");
  AwaitEvent();
  EXPECT_EQ(events, "terminate terminate");
}

TEST_F(PosixEventPumpTest, TheSignalHandlersGoWithThePump) {
  for (const int signal : {SIGINT, SIGTERM}) {
    ::signal(signal, SIG_IGN);
    {
      PosixEventPump other;
      other.OnTerminate([] {});
    }
    EXPECT_EQ(::signal(signal, SIG_DFL), SIG_IGN) << signal;
  }
}

}  // namespace
}  // namespace orvenza::test
