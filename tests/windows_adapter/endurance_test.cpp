// The connector's resources do not grow with the tickets that it prints through the control.

#include "app/connector.h"
#include "platform/ini_profile_file.h"
#include "simulator/scripted_operator.h"
#include "support/shop.h"
#include "support/virtual_folder.h"
#include "support/windows_holdings.h"
#include "windows_adapter/standin_bench.h"
#include "windows_adapter/test_pump.h"

namespace orvenza::test {
namespace {

constexpr int kWarmUp = 10;
constexpr int kTickets = 1000;

/// The connector on the adapter. Its time, disk and operator are virtual.
struct AdapterEndurance : StandInBench {
  AdapterEndurance() {
    shop.Write("Orvenza.ini",
               "[Version]\nVersion=1.06\n[Database]\nTicketFiles=C:\\shop\\data\\*.txt\n"
               "HistoricTickets=C:\\shop\\storico\\\n[Com Settings]\nComPort=1\nSettings=19200,O,7,1\n"
               "TimeWaitForEtx=10000\nTimeWaitForLONGEtx=50000\n"
               "[General]\nSeparator (ascii,max 127)=59\n");
  }

  VirtualClock clock;
  TestPump testPump{pump, clock};
  VirtualDisk disk{clock, "C:\\shop"};
  VirtualFolder shop{disk};
  IniProfileFile profile{disk.FileSeam()};
  EventLoop loop{clock, testPump};
  ScriptedOperator person{loop};
  RecordedIcon icon;
};

TEST_F(AdapterEndurance, ATicketLeavesNothingBehind) {
  for (int i = 0; i < kWarmUp + kTickets; ++i) {
    shop.Write("data\\" + std::to_string(10000 + i) + ".txt",
               "1;Pane;1,000;250;1;;;1;;\r\n1;Latte;2,000;120;1;;;1;;\r\n2;1;500;\r\n");
  }
  Connector connector({disk.FileSeam(), disk.FolderSeam(), profile, clock, loop, person, icon, *adapter},
                      {"C:\\shop", "Orvenza"});
  Holdings before;
  Holdings after;
  int tick = 0;  // each prints one ticket
  connector.SetTickObserver([&] {
    if (tick == kWarmUp) before = HoldingsOf(GetCurrentProcess());
    if (tick == kWarmUp + kTickets) {
      after = HoldingsOf(GetCurrentProcess());
      shop.Write("command.txt", "QUIT\r\n");
    }
    ++tick;
  });
  connector.Run(false);
  EXPECT_EQ(shop.Names("storico").size(), static_cast<std::size_t>(kWarmUp + kTickets));
  EXPECT_EQ(shop.Read("Err.txt"), "");
  ExpectFlat(before, after);
}

}  // namespace
}  // namespace orvenza::test
