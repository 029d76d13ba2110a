#include "lab/handover/hand_over_command.h"
#include "lab/shell/run_lab.h"

#include <gtest/gtest.h>

#include "lab/shell/shop_bench.h"
#include "support/faulty_files.h"
#include "tickets/remembered_tickets.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* kTicket = "26;\n24;Cassa 3;1;\n";
constexpr const char* kReady =
    "26\x7F\r\n24\x7F"
    "Cassa 3\x7F"
    "1\x7F\r\n";
constexpr const char* kBad = "4;x;\n";

class HandOver : public ShopBench {
 protected:
  HandOver() { machine.served = true; }

  int Run(std::vector<std::string> words) {
    words.insert(words.begin(), "hand-over");
    LabSurroundings lab = Lab();
    return RunLab(words, {HandOverCommand()}, lab);
  }

  void Put(const std::string& file, const std::string& text = kTicket) {
    disk.Put("C:\\host\\" + file, text);
  }

  void UseOutcomes() {
    disk.Put(At("Orvenza.ini"), *disk.Content(At("Orvenza.ini")) + "[Host]\r\nOutcomes=D:\\esiti\r\n");
    disk.MakeFolder("D:\\esiti");
  }

  /// The outcome of a ticket with this text. `lines` are further lines of the file.
  void End(const std::string& name, const std::string& receipt, const std::string& reason,
           const std::string& lines = {}, const std::string& text = kReady) {
    const Fingerprint print = FingerprintOf(text);
    disk.Put("D:\\esiti\\" + name + ".ini",
             "[Outcome]\r\nSchema=1\r\nTicket=" + name +
                 "\r\nState=" + (reason.empty() ? "started" : "done") + "\r\nReceipt=" + receipt +
                 "\r\nReason=" + reason + "\r\nSize=" + std::to_string(print.size) +
                 "\r\nDigest=" + std::to_string(print.digest) + "\r\n" + lines);
  }

  std::string Handed(const std::string& name) { return disk.Content(At("data\\" + name)).value_or("none"); }
};

TEST_F(HandOver, WritesTheTicketIntoTheTicketFolder) {
  Put("0042.txt");
  EXPECT_EQ(Run({"C:\\host\\0042.txt"}), 0);
  EXPECT_EQ(Handed("0042.txt"), kReady);
  EXPECT_EQ(out.str(), "C:\\host\\0042.txt: handed over as 0042.txt\n");
  EXPECT_EQ(err.str(), "");
  EXPECT_EQ(clock.Uptime(), 0s);
}

TEST_F(HandOver, FollowsTheSettings) {
  Edit("=127", "=124");
  Edit("data\\*.txt", "in\\*.tck");
  Put("0042.txt");
  EXPECT_EQ(Run({"C:\\host\\0042.txt"}), 0);
  EXPECT_EQ(disk.Content(At("in\\0042.tck")), "26|\r\n24|Cassa 3|1|\r\n");
}

TEST_F(HandOver, WorksBeforeTheFirstStart) {
  disk.Delete(At("Orvenza.ini"));
  disk.Delete(At("data"));
  machine.served = false;
  Put("0042.txt");
  EXPECT_EQ(Run({"C:\\host\\0042.txt"}), 0);
  EXPECT_EQ(Handed("0042.txt"), kReady);
  EXPECT_EQ(
      err.str(),
      "orvenza-lab hand-over: there is no Orvenza.ini in C:\\Orvenza yet, so the default settings count\n"
      "orvenza-lab hand-over: no connector is running in C:\\Orvenza; tickets wait until one is started\n");
}

TEST_F(HandOver, ReplacesNoFile) {
  disk.Put(At("data\\a.txt"), "older");
  Put("a.txt");
  EXPECT_EQ(Run({"C:\\host\\a.txt"}), 0);
  EXPECT_EQ(Handed("a.txt"), "older");
  EXPECT_EQ(Handed("a-2.txt"), kReady);
}

TEST_F(HandOver, LetsASecondPassOnlyWhereNamesWouldTurnTheOrder) {
  for (const char* name : {"9.txt", "10.txt", "b.txt", "a.txt"}) Put(name);
  EXPECT_EQ(Run({"C:\\host\\9.txt", "C:\\host\\10.txt", "C:\\host\\b.txt"}), 0);
  EXPECT_EQ(clock.Uptime(), 0s);
  EXPECT_EQ(Run({"C:\\host\\b.txt", "C:\\host\\a.txt"}), 0);
  EXPECT_EQ(clock.Uptime(), 1s);
}

TEST_F(HandOver, ExpandsMasks) {
  Put("a.txt");
  Put("b.txt");
  EXPECT_EQ(Run({"C:\\host\\*.txt"}), 0);
  EXPECT_EQ(Handed("a.txt") + Handed("b.txt"), std::string(kReady) + kReady);
}

TEST_F(HandOver, HandsNothingOverIfALineIsInvalid) {
  Put("good.txt");
  Put("bad.txt", kBad);
  EXPECT_EQ(Run({"C:\\host\\good.txt", "C:\\host\\bad.txt"}), 1);
  EXPECT_EQ(Handed("good.txt") + Handed("bad.txt"), "nonenone");
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(
      err.str(),
      "C:\\host\\bad.txt:1:1: error: 'x' holds other characters than digits; accepted: digits, 0 to 20; "
      "others are sent as 20 [not-digits]\n"
      "orvenza-lab hand-over: nothing is handed over, because a line is invalid; --anyway hands it over "
      "all the same\n");
}

TEST_F(HandOver, HandsAnInvalidLineOverAnyway) {
  Put("bad.txt", kBad);
  EXPECT_EQ(Run({"--anyway", "C:\\host\\bad.txt"}), 0);
  EXPECT_EQ(Handed("bad.txt"), "4\x7Fx\x7F\r\n");
  EXPECT_NE(err.str().find("[not-digits]"), std::string::npos);
}

TEST_F(HandOver, ShowsWarnings) {
  Put("a.txt", "4;25;\n");
  EXPECT_EQ(Run({"C:\\host\\a.txt"}), 0);
  EXPECT_EQ(err.str(), "C:\\host\\a.txt:1:1: warning: '25' is sent as '20': outside 0 to 20 [clamped]\n");
}

TEST_F(HandOver, TakesTheSeparatorThatIsNamed) {
  Put("a.txt", "26|\n");
  EXPECT_EQ(Run({"C:\\host\\a.txt"}), 2);
  EXPECT_EQ(Run({"--separator", "124", "C:\\host\\a.txt"}), 0);
  EXPECT_EQ(Handed("a.txt"), "26\x7F\r\n");
}

TEST_F(HandOver, NamesTheFileThatItRefuses) {
  Put("a.txt", "hello\n");
  Put("large.txt", "26;\n" + std::string(1024 * 1024, ' '));
  const struct {
    std::vector<std::string> words;
    const char* reason;
  } kRefused[] = {
      {{"C:\\host\\a.txt"},
       "C:\\host\\a.txt: no line begins with a record type and a separator (the character 127 or ';'); name "
       "the separator with --separator\n"},
      {{"C:\\host\\none.txt"}, "C:\\host\\none.txt: File not found\n"},
      {{"C:\\host"}, "C:\\host: Path/File access error\n"},
      {{"C:\\host\\large.txt"}, "C:\\host\\large.txt: it is larger than 1 MB\n"},
      {{}, "which files?\nSee 'orvenza-lab hand-over --help'.\n"},
      {{"a", "--wait", "b"},
       "--wait 'b': expected seconds, 1 to 86400; write --wait behind the files, or --wait=60\n"
       "See 'orvenza-lab hand-over --help'.\n"},
      {{"a", "--wait=0"},
       "--wait '0': expected seconds, 1 to 86400; write --wait behind the files, or --wait=60\n"
       "See 'orvenza-lab hand-over --help'.\n"},
      {{"--folder", "Q:\\none", "a"}, "'Q:\\none' is not a folder\n"},
  };
  for (const auto& [words, reason] : kRefused) {
    err.str("");
    EXPECT_EQ(Run(words), 2);
    EXPECT_EQ(err.str(), std::string("orvenza-lab hand-over: ") + reason);
  }
}

TEST_F(HandOver, RefusesSettingsItCannotFollow) {
  Put("a.txt");
  const std::string ini = *disk.Content(At("Orvenza.ini"));
  Edit("=127", "=9");
  EXPECT_EQ(Run({"C:\\host\\a.txt"}), 2);
  EXPECT_NE(err.str().find("the separator of the settings, 9, is never found"), std::string::npos);
  disk.Put(At("Orvenza.ini"), ini);
  err.str("");
  Edit("TicketFiles=C:\\Orvenza\\", "TicketFiles=");
  EXPECT_EQ(Run({"C:\\host\\a.txt"}), 2);
  EXPECT_EQ(err.str(),
            "orvenza-lab hand-over: [Database] TicketFiles is \"data\\*.txt\", which depends on where the "
            "connector is started; write the whole path\n");
  disk.Put(At("Orvenza.ini"), ini);
  err.str("");
  Edit("File Parser=0", "File Parser=1");
  EXPECT_EQ(Run({"C:\\host\\a.txt", "--wait"}), 2);
  EXPECT_EQ(
      err.str(),
      "orvenza-lab hand-over: --wait needs [Host] Outcomes in the settings where \"File Parser\" is on\n");
}

TEST_F(HandOver, EndsWithTwoIfTheFolderCannotBeWrittenTo) {
  Put("a.txt");
  FaultyFiles files(disk.FileSeam());
  files.FailNext("Write", error_number::kDiskFull);
  LabSurroundings lab{files, disk.FolderSeam(), clock, clock, machine, console, At("")};
  EXPECT_EQ(RunLab({"hand-over", "--folder", "C:\\Orvenza", "C:\\host\\a.txt"}, {HandOverCommand()}, lab), 2);
  EXPECT_EQ(err.str(), "orvenza-lab hand-over: Disk full ( C:\\Orvenza\\data\\a.txt )\n");
  EXPECT_EQ(out.str(), "");
}

// --- Waiting
// -------------------------------------------------------------------------------------------------

TEST_F(HandOver, WaitsForTheOutcome) {
  UseOutcomes();
  Put("a.txt");
  clock.After(300ms, [&] { End("a.txt", "doubtful", ""); });
  clock.After(4s, [&] { End("a.txt", "yes", "printed", "Filed=C:\\Orvenza\\storico\\1.txt\r\n"); });
  EXPECT_EQ(Run({"C:\\host\\a.txt", "--wait"}), 0);
  EXPECT_EQ(out.str(),
            "C:\\host\\a.txt: handed over as a.txt\na.txt: printed, filed as C:\\Orvenza\\storico\\1.txt\n");
  EXPECT_EQ(clock.Uptime(), 4s);
}

TEST_F(HandOver, SaysWhatBecameOfEachTicket) {
  UseOutcomes();
  for (const char* name : {"a.txt", "b.txt", "c.txt"}) Put(name);
  clock.After(1s, [&] {
    End("a.txt", "none", "printed");
    End("b.txt", "no", "refused", "Line=2\r\nText=24<7F>Cassa 3<7F>1<7F>\r\nReply=ERR13\r\n");
    End("c.txt", "doubtful", "no-answer");
  });
  EXPECT_EQ(Run({"C:\\host\\a.txt", "C:\\host\\b.txt", "C:\\host\\c.txt", "--wait"}), 1);
  EXPECT_EQ(out.str().substr(out.str().find("a.txt: done")),
            "a.txt: done, it prints nothing\n"
            "b.txt: not printed (refused), line 2: 24 Cassa 3 1 , reply ERR13\n"
            "c.txt: in doubt, look at the paper (no-answer)\n");
}

TEST_F(HandOver, BelievesNoOutcomeOfAnotherTicket) {
  UseOutcomes();
  Put("a.txt");
  clock.After(1s, [&] { End("a.txt", "yes", "printed", "", "another"); });
  EXPECT_EQ(Run({"C:\\host\\a.txt", "--wait=2"}), 3);
}

TEST_F(HandOver, LooksAtThePartsOfAFile) {
  UseOutcomes();
  Edit("File Parser=0", "File Parser=1");
  Put("a.txt");
  clock.After(1s, [&] {
    End("a.txt", "none", "split", "Parts=2\r\n");
    End("a2.txt", "no", "refused", "Source=a.txt\r\nPart=2\r\n");
    End("ba1.txt", "yes", "printed", "Source=ba.txt\r\nPart=1\r\n");
  });
  clock.After(3s, [&] { End("a1.txt", "yes", "printed", "Source=a.txt\r\nPart=1\r\n"); });
  EXPECT_EQ(Run({"C:\\host\\a.txt", "--wait"}), 1);
  EXPECT_EQ(out.str().substr(out.str().find("a.txt: split")),
            "a.txt: split into 2 tickets\n  a1.txt: printed\n  a2.txt: not printed (refused)\n");
  EXPECT_EQ(clock.Uptime(), 3s);
}

TEST_F(HandOver, SaysWhereATicketIsWhenTheTimeIsOver) {
  UseOutcomes();
  for (const char* name : {"a.txt", "b.txt", "c.txt"}) Put(name);
  clock.After(1s, [&] {
    disk.FileSeam().Move(At("data\\a.txt"), At("storico\\1.txt"));
    disk.FileSeam().Move(At("data\\b.txt"), At("data\\inproces\\b.txt"));
  });
  EXPECT_EQ(Run({"C:\\host\\a.txt", "C:\\host\\b.txt", "C:\\host\\c.txt", "--wait=5"}), 3);
  EXPECT_EQ(out.str().substr(out.str().find("a.txt: not done")),
            "a.txt: not done, it has left the ticket folder, but there is no outcome\n"
            "b.txt: not done, it is being printed, or the operator is being asked\n"
            "c.txt: not done, it waits in the ticket folder\n");
  EXPECT_EQ(clock.Uptime(), 5s);
}

TEST_F(HandOver, FollowsTheFileWithoutOutcomes) {
  for (const char* name : {"a.txt", "b.txt"}) Put(name);
  for (const std::string name : {"a.txt", "b.txt"}) {
    clock.After(1s,
                [this, name] { disk.FileSeam().Move(At("data\\" + name), At("data\\inproces\\" + name)); });
  }
  clock.After(3s, [&] { disk.FileSeam().Move(At("data\\inproces\\a.txt"), At("storico\\1.txt")); });
  clock.After(4s,
              [&] { disk.FileSeam().Move(At("data\\inproces\\b.txt"), At("data\\abort\\b.txt.abort.txt")); });
  EXPECT_EQ(Run({"C:\\host\\a.txt", "C:\\host\\b.txt", "--wait"}), 1);
  EXPECT_EQ(out.str().substr(out.str().find("a.txt: done")),
            "a.txt: done, filed in C:\\Orvenza\\storico\\\n"
            "b.txt: given up, look at the paper; filed as C:\\Orvenza\\data\\abort\\b.txt.abort.txt\n");
  EXPECT_EQ(clock.Uptime(), 4s);
}

TEST_F(HandOver, TakesNoTicketForDoneWhoseFolderIsAway) {
  Put("a.txt");
  clock.After(1s, [&] { disk.Delete(At("data")); });
  EXPECT_EQ(Run({"C:\\host\\a.txt", "--wait=2"}), 3);
}

TEST_F(HandOver, KnowsThatPrintedTicketsMayBeRemoved) {
  Edit("HistoricTickets=C:\\Orvenza\\storico\\", "HistoricTickets=");
  Put("a.txt");
  clock.After(1s, [&] { disk.FileSeam().Remove(At("data\\a.txt")); });
  EXPECT_EQ(Run({"C:\\host\\a.txt", "--wait"}), 0);
  EXPECT_TRUE(out.str().ends_with("a.txt: done and removed\n")) << out.str();
}

TEST_F(HandOver, TriesAgainWhenAnOutcomeCannotBeRead) {
  UseOutcomes();
  Put("a.txt");
  FaultyFiles files(disk.FileSeam());
  files.FailAlways("OpenForReading", "esiti", error_number::kPermissionDenied);
  clock.After(1s, [&] { End("a.txt", "yes", "printed"); });
  LabSurroundings lab{files, disk.FolderSeam(), clock, clock, machine, console, At("")};
  EXPECT_EQ(RunLab({"hand-over", "--folder", "C:\\Orvenza", "C:\\host\\a.txt", "--wait=3"},
                   {HandOverCommand()}, lab),
            3);
}

}  // namespace
}  // namespace orvenza::test
