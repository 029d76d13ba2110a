#include <stdexcept>

#include "windows_adapter/standin_bench.h"

namespace orvenza::test {
namespace {

class EventsTest : public StandInBench {
 protected:
  EventsTest() { Script("on 2001 link-error 1\non 2002 link-error 2\non 2003 link-error 3\n"); }
};

TEST_F(EventsTest, AreToldApartHoweverTheControlDescribesThem) {
  for (const char* types : {"class2", "class", "library", "guid", "none"}) {
    Behave(std::string("types=") + types);
    listener.heard.clear();
    adapter.emplace();
    adapter->SetEvents(&listener);
    Open();
    for (const char* command : {"321701", "200101", "200201", "200301", "321701"}) Exchange(command);
    EXPECT_EQ(listener.heard, (Lines{"reply", "error 1", "error 2", "error 3", "reply"})) << types;
  }
}

TEST_F(EventsTest, OfADualInterfaceComeAfterItsInheritedMethods) {
  Behave("inherited");
  Open();
  for (const char* command : {"321701", "200101", "200201", "200301"}) Exchange(command);
  EXPECT_EQ(listener.heard, (Lines{"reply", "error 1", "error 2", "error 3"}));
}

TEST_F(EventsTest, ComeWhileTheProgramWaits) {
  Open();
  Send("321701");
  pump.WaitForEvent(std::chrono::hours(1));
  EXPECT_EQ(listener.heard, Lines{"reply"});
}

TEST_F(EventsTest, AreDroppedWithoutAReceiver) {
  Open();
  adapter->SetEvents(nullptr);
  Exchange("321701");
  EXPECT_EQ(Done().back(), "received 321700");
  adapter->SetEvents(&listener);
  Exchange("200101");
  EXPECT_EQ(listener.heard, Lines{"error 1"});
}

TEST_F(EventsTest, GoToTheReceiverAtTheirTime) {
  Open();
  Send("321701");
  Listener later;
  adapter->SetEvents(&later);
  pump.Dispatch();
  adapter->SetEvents(nullptr);
  EXPECT_EQ(listener.heard, Lines{});
  EXPECT_EQ(later.heard, Lines{"reply"});
}

TEST_F(EventsTest, OfAnUnknownNumberAreHeardAndIgnored) {
  Behave("noisy");
  Open();
  Exchange("321701");
  EXPECT_EQ(listener.heard, Lines{"reply"});
  EXPECT_EQ(Done().back(), "received 321700");
}

TEST_F(EventsTest, MayComeFromInsideTheMethodThatSends) {
  Behave("at-once");
  Open();
  Send("321701");
  EXPECT_EQ(listener.heard, Lines{"reply"});
  EXPECT_EQ(adapter->RxMessage(), "321700");
}

TEST_F(EventsTest, FailuresOfAHandlerStayOnItsOwnSideOfTheControl) {
  struct : Listener {
    void ReplyReceived() override { throw std::runtime_error("handler"); }
  } failing;
  adapter->SetEvents(&failing);
  Open();
  Exchange("321701");
  EXPECT_EQ(Done().back(), "the handler of event 7 failed: 0x8000FFFF");
  Exchange("200101");
  EXPECT_EQ(failing.heard, Lines{"error 1"});
  adapter->SetEvents(nullptr);
}

TEST_F(EventsTest, AHandlerMayUseTheControl) {
  struct Reader : Listener {
    EcrLink* link = nullptr;
    void ReplyReceived() override { heard.push_back(link->RxMessage()); }
  } reader;
  reader.link = &*adapter;
  adapter->SetEvents(&reader);
  Open();
  Exchange("321701");
  adapter->SetEvents(nullptr);
  EXPECT_EQ(reader.heard, Lines{"321700"});
}

}  // namespace
}  // namespace orvenza::test
