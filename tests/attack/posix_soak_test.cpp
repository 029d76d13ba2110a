// Five thousand tickets in one run of the connector: the system resources that it holds must not grow.

#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "app/connector.h"
#include "core/event_loop.h"
#include "platform/ini_profile_file.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_folders.h"
#include "simulator/scripted_operator.h"
#include "support/scripted_link.h"
#include "support/temp_folder.h"
#include "support/test_clock.h"
#include "ui/notification_icon.h"

namespace orvenza::test {
namespace {

namespace fs = std::filesystem;

class NoIcon : public NotificationIcon {
  void CreateIcon(const std::string&) override {}
  void DeleteIcon() override {}
};

/// The resources that this process holds now.
struct Held {
  std::size_t bytes = 0;    ///< Allocated and not freed.
  std::size_t handles = 0;  ///< Open file descriptors.
};

Held HeldNow() {
  const auto open = fs::directory_iterator("/proc/self/fd");
  const auto handles = std::distance(fs::begin(open), fs::end(open));
  return {::mallinfo2().uordblks, static_cast<std::size_t>(handles)};
}

/// A host with a new ticket on every tick, and a register that accepts everything and keeps nothing.
class Soak {
 public:
  static constexpr int kWarmUp = 1000;
  static constexpr int kTickets = 5000;

  Soak() : profile_(files_), loop_(clock_, clock_), person_(loop_), link_(clock_) {
    link_.Always("3217", "321700");
    link_.Always("1999", "199900ORVSIM  01  01.00.00");
    for (const char* code : {"1003", "1004", "1036"}) link_.Always(code, std::string(code) + "00");
    folder_.Write("Orvenza.ini",
                  "[Version]\nVersion=1.06\n[Database]\nTicketFiles=" + folder_.Path("data\\*.txt") +
                      "\nHistoricTickets=" + folder_.Path("storico\\") +
                      "\n[Com Settings]\nComPort=1\nSettings=19200,O,7,1\nTimeWaitForEtx=10000\n"
                      "[General]\nSeparator (ascii,max 127)=59\nFile Parser=1\n");
  }

  void Run() {
    Connector connector({files_, folders_, profile_, clock_, loop_, person_, icon_, link_},
                        {folder_.Path(), "Orvenza"});
    connector.SetTickObserver([this] { OnTick(); });
    connector.Run(false);
  }

  int dropped = 0;
  int archived = 0;
  Held early;
  Held late;

 private:
  void OnTick() {
    // The test's own records must not count.
    link_.sent.clear();
    link_.calls.clear();
    if (dropped > 0 && dropped % 500 == 0) CarryArchiveAway();
    if (dropped >= kWarmUp && early.handles == 0) early = HeldNow();
    if (dropped >= kTickets && folder_.Read("command.txt").empty() && !AnythingWaits()) {
      late = HeldNow();
      CarryArchiveAway();
      folder_.Write("command.txt", "QUIT\r\n");
    } else if (dropped < kTickets && !AnythingWaits()) {
      Drop();
    }
  }

  /// Every hundredth file has two receipts, every fiftieth is read-only.
  void Drop() {
    const std::string receipt = "1;PANE;1,000;150;1;;;1;;\r\n1;LATTE;2,000;129;1;;;1;;\r\n2;1;0;;;;;;;;\r\n";
    const std::string name = "data\\" + std::to_string(dropped) + ".txt";
    const bool two = dropped % 100 == 98;
    folder_.Write(name, two ? receipt + receipt : receipt);
    if (dropped % 50 == 0) fs::permissions(folder_.Native(name), fs::perms::owner_read);
    dropped += two ? 2 : 1;
  }

  bool AnythingWaits() const {
    const auto holdsFiles = [&](const char* path) {
      const auto entries = fs::directory_iterator(folder_.Native(path));
      return std::any_of(fs::begin(entries), fs::end(entries),
                         [](const auto& entry) { return !entry.is_directory(); });
    };
    return holdsFiles("data") || holdsFiles("data\\inproces");
  }

  /// Like at the end of a day.
  void CarryArchiveAway() {
    if (!folder_.Has("storico")) return;
    for (const auto& entry : fs::directory_iterator(folder_.Native("storico"))) {
      ++archived;
      fs::remove(entry.path());
    }
  }

  TempFolder folder_;
  PosixFiles files_;
  PosixFolders folders_;
  IniProfileFile profile_;
  TestClock clock_;
  EventLoop loop_;
  ScriptedOperator person_;
  NoIcon icon_;
  ScriptedLink link_;
};

TEST(Soak, FiveThousandTicketsLeaveNothingBehind) {
  Soak soak;
  soak.Run();
  EXPECT_EQ(soak.dropped, Soak::kTickets);
  EXPECT_EQ(soak.archived, Soak::kTickets);
  std::printf("after %d tickets %zu bytes and %zu handles, after %d %zu and %zu\n", Soak::kWarmUp,
              soak.early.bytes, soak.early.handles, Soak::kTickets, soak.late.bytes, soak.late.handles);
  EXPECT_EQ(soak.late.handles, soak.early.handles);
  // A leak of four bytes per ticket would show.
  EXPECT_LE(soak.late.bytes, soak.early.bytes + 16 * 1024);
}

}  // namespace
}  // namespace orvenza::test
