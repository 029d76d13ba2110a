// The commands and tickets that the pages show must be right.

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "lab/commands.h"
#include "lab/shell/run_lab.h"
#include "lab/shell/shop_bench.h"
#include "lab_program/page_reader.h"
#include "tickets/remembered_tickets.h"

namespace orvenza::test {
namespace {

std::vector<std::filesystem::path> Pages() {
  std::vector<std::filesystem::path> pages = FilesIn(kProject / "docs", ".md");
  for (const char* page : {"README.md", "DEVELOPERS.md", "examples/README.md"})
    pages.push_back(kProject / page);
  return pages;
}

const Command* CommandNamed(const std::string& name) {
  static const std::vector<Command> all = Commands();
  const auto found = std::find_if(all.begin(), all.end(), [&](const Command& c) { return c.name == name; });
  return found == all.end() ? nullptr : &*found;
}

/// What the lab itself answers, besides its commands.
bool IsBuiltIn(const std::string& name) { return name == "help" || name == "man" || name == "completion"; }

/// The words of a command line behind "orvenza-lab"; none for another line. A remark behind two blanks is
/// left out.
TextLines WordsOf(const std::string& line) {
  static const std::regex kCommand(R"(^[>$]? ?(?:build/\w+/)?orvenza-lab ([a-z-].*)$)");
  static const std::regex kWord("\"([^\"]*)\"|(\\S+)");
  std::smatch match;
  if (!std::regex_match(line, match, kCommand)) return {};
  const std::string rest = match[1].str();
  const std::string command = rest.substr(0, std::min(rest.find("  "), rest.size()));
  TextLines words;
  for (std::sregex_iterator word(command.begin(), command.end(), kWord), end; word != end; ++word) {
    const std::string found = (*word)[1].matched ? (*word)[1].str() : (*word)[2].str();
    if (found == "<" || found == ">" || found == "|") break;
    words.push_back(found);
  }
  return words;
}

TEST(Pages, ShowOnlyCommandLinesThatAreUnderstood) {
  int commands = 0;
  for (const auto& page : Pages()) {
    for (const TextLines& block : BlocksOf(page)) {
      for (const std::string& line : block) {
        const TextLines words = WordsOf(line);
        // A colon ends the name in a message.
        if (words.empty() || words[0] == "COMMAND" || words[0].ends_with(':') || IsBuiltIn(words[0]))
          continue;
        ++commands;
        const Command* const command = CommandNamed(words[0]);
        ASSERT_NE(command, nullptr) << page << ": " << line;
        const Arguments arguments = ReadArguments({words.begin() + 1, words.end()}, command->options);
        EXPECT_EQ(arguments.error, "") << page << ": " << line;
      }
    }
  }
  EXPECT_GE(commands, 30);
}

TEST(Pages, NameOnlyCommandsThatExist) {
  static const std::regex kNamed("`orvenza-lab ([a-z-]+)");
  for (const auto& page : Pages()) {
    const std::string text = BytesOf(page);
    for (std::sregex_iterator named(text.begin(), text.end(), kNamed), end; named != end; ++named) {
      const std::string name = (*named)[1].str();
      EXPECT_TRUE(IsBuiltIn(name) || CommandNamed(name) != nullptr) << page << ": " << named->str();
    }
  }
}

/// A till in C:\Orvenza, which is also the current folder, as in the pages for programmers of hosts. Its
/// connector prints a ticket within a second.
class HostPages : public ShopBench {
 protected:
  HostPages() {
    machine.served = true;
    disk.Put(At("Orvenza.ini"),
             *disk.Content(At("Orvenza.ini")) + "[Host]\r\nOutcomes=C:\\Orvenza\\esiti\r\n");
    for (const auto& ticket : FilesIn(kProject / "examples", ".txt"))
      here.Put(At("examples\\" + ticket.filename().string()), BytesOf(ticket));
  }

  void Print(const std::string& name) {
    if (!here.FileSeam().Exists(At("data\\" + name))) return;
    const Fingerprint text = FingerprintOf(*here.Content(At("data\\" + name)));
    here.MakeFolder(At("storico"));
    here.FileSeam().Move(At("data\\" + name), At("storico\\1.txt"));
    here.Put(
        At("esiti\\" + name + ".ini"),
        "[Outcome]\r\nSchema=1\r\nTicket=" + name +
            "\r\nState=done\r\nReceipt=yes\r\nReason=printed\r\nFiled=C:\\Orvenza\\storico\\1.txt\r\nSize=" +
            std::to_string(text.size) + "\r\nDigest=" + std::to_string(text.digest) + "\r\n");
  }

  std::string Run(const TextLines& words) {
    out.str("");
    err.str("");
    here.Put(At("Orvenza.ini"), *disk.Content(At("Orvenza.ini")));
    clock.After(std::chrono::seconds(1), [this] { Print("coffee.txt"); });
    LabSurroundings lab{here.FileSeam(), here.FolderSeam(),   clock, clock, machine,
                        console,         At("").substr(0, 10)};
    RunLab(words, Commands(), lab);
    return out.str() + err.str();
  }

  VirtualDisk here{clock, "C:\\Orvenza"};
};

TEST_F(HostPages, ShowWhatTheCommandsPrint) {
  int shown = 0;
  for (const char* page : {"integrate.md", "troubleshooting.md"}) {
    for (const TextLines& block : BlocksOf(kProject / "docs" / page)) {
      if (std::all_of(block.begin(), block.end(), IsRecord)) here.Put(At("coffee.txt"), TextOf(block));
      if (!block.front().starts_with("> ")) continue;
      ++shown;
      EXPECT_EQ(Run(WordsOf(block.front())), TextOf({block.begin() + 1, block.end()})) << block.front();
    }
  }
  EXPECT_EQ(shown, 3);
}

TEST_F(HostPages, ShowOnlyTicketsWithoutAFinding) {
  int tickets = 0;
  for (const char* page : {"integrate.md", "troubleshooting.md", "outcomes.md", "cookbook.md"}) {
    for (const TextLines& block : BlocksOf(kProject / "docs" / page)) {
      TextLines records;
      std::copy_if(block.begin(), block.end(), std::back_inserter(records), IsRecord);
      if (records.empty()) continue;
      ++tickets;
      here.Put(At("t.txt"), TextOf(records));
      const std::string found = Run({"check", "--separator", ";", "--quiet", "t.txt"});
      EXPECT_TRUE(found.ends_with(" 0 errors, 0 warnings\n")) << page << "\n" << found;
    }
  }
  EXPECT_GE(tickets, 30);
}

}  // namespace
}  // namespace orvenza::test
