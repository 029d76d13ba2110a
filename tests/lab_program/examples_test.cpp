// The sample tickets are what a programmer copies: they must be valid, and print.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "lab/shell/lab_bench.h"
#include "lab_program/page_reader.h"

namespace orvenza::test {
namespace {

std::vector<std::filesystem::path> Tickets() {
  std::vector<std::filesystem::path> all = FilesIn(kProject / "examples" / "tickets", ".txt");
  const auto day = FilesIn(kProject / "examples", ".txt");
  all.insert(all.end(), day.begin(), day.end());
  return all;
}

/// What `orvenza-lab` prints.
std::string Lab(const TextLines& words, const std::string& file, const std::string& input = {}) {
  LabBench lab;
  lab.files.content["t.txt"] = file;
  lab.in.str(input);
  lab.Run(words);
  return lab.out.str() + lab.err.str();
}

std::string Check(const std::filesystem::path& ticket) {
  return Lab({"check", "--separator", ";", "t.txt"}, BytesOf(ticket));
}

/// The transcript of a day with this ticket.
std::string Rehearse(const std::filesystem::path& ticket) {
  std::string day = "ticket t.txt\n";
  for (std::string line : LinesOf(BytesOf(ticket))) day += "  | " + line.substr(0, line.find('\r')) + "\n";
  return Lab({"rehearse", "-"}, {}, day + "at 60s quit\n");
}

/// The slip without its heading and its foot.
TextLines PaperOf(const std::filesystem::path& ticket) {
  constexpr std::string_view kPaper = "  paper     |";
  TextLines paper;
  for (const std::string& line : LinesOf(Rehearse(ticket))) {
    if (const std::size_t at = line.find(kPaper); at != std::string::npos) {
      std::string printed = line.substr(at + kPaper.size());
      paper.push_back(printed.substr(0, printed.find_last_not_of(' ') + 1));
    }
  }
  const bool heading = !paper.empty() && paper[0].ends_with("NEGOZIO DI PROVA");
  if (heading) paper.erase(paper.begin(), paper.begin() + 3);
  if (!paper.empty()) paper.resize(paper.size() - 2);
  return paper;
}

TEST(Examples, AreThere) { EXPECT_GE(Tickets().size(), 36U); }

TEST(Examples, PassTheCheckWithoutAFinding) {
  const std::map<std::string, std::string> kMeant{{"05-riga-errata.txt", "[quantity-short]"},
                                                  {"07-accenti.txt", "[blanked]"}};
  for (const auto& ticket : Tickets()) {
    const std::string shown = Check(ticket);
    const auto meant = kMeant.find(ticket.filename().string());
    if (meant == kMeant.end()) {
      EXPECT_TRUE(shown.ends_with(" 0 errors, 0 warnings\n")) << ticket << "\n" << shown;
    } else {
      EXPECT_NE(shown.find(meant->second), std::string::npos) << ticket << "\n" << shown;
    }
  }
}

TEST(Examples, ArePrintedWithoutADialog) {
  for (const auto& ticket : FilesIn(kProject / "examples" / "tickets", ".txt")) {
    const std::string transcript = Rehearse(ticket);
    EXPECT_NE(transcript.find("  archived  t.txt as storico"), std::string::npos) << ticket << transcript;
    EXPECT_EQ(transcript.find("  dialog  "), std::string::npos) << ticket << transcript;
    EXPECT_EQ(transcript.find("reply     ERR"), std::string::npos) << ticket << transcript;
  }
}

TEST(Examples, EndTheirLinesInCrLf) {
  for (const auto& ticket : Tickets()) {
    const std::string bytes = BytesOf(ticket);
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), std::count(bytes.begin(), bytes.end(), '\r'))
        << ticket;
    EXPECT_TRUE(bytes.ends_with(";\r\n")) << ticket;
  }
}

TEST(Examples, AreListedByPurpose) {
  const std::string list = BytesOf(kProject / "examples" / "README.md");
  for (const auto& file : Tickets()) {
    const std::string name = file.filename().string();
    EXPECT_NE(list.find("| [" + name + "]("), std::string::npos) << name;
  }
  for (const auto& entry : std::filesystem::directory_iterator(kProject / "examples" / "hosts")) {
    const std::string name = entry.path().filename().string();
    EXPECT_NE(list.find("| [" + name + "](hosts/" + name + ") |"), std::string::npos) << name;
  }
}

/// The lines, the commands and the paper of a ticket, as in the cookbook.
std::string CookbookEntry(const std::filesystem::path& ticket) {
  TextLines lines = LinesOf(BytesOf(ticket));
  for (std::string& line : lines) std::erase(line, '\r');
  TextLines commands = LinesOf(Check(ticket));
  commands = {commands.begin() + 1, commands.end() - 1};  // without the name and the totals
  const TextLines paper = PaperOf(ticket);
  return TextOf(lines) + "\n" + TextOf(commands) + (paper.empty() ? "" : "\n") + TextOf(paper);
}

TEST(Cookbook, ShowsEachTicketWithItsCommandsAndItsPaper) {
  const auto page = kProject / "docs" / "cookbook.md";
  const std::string text = BytesOf(page);
  for (const auto& ticket : FilesIn(kProject / "examples" / "tickets", ".txt")) {
    const std::string name = ticket.filename().string();
    const std::string entry =
        "[" + name + "](../examples/tickets/" + name + ")\n\n```text\n" + CookbookEntry(ticket) + "```\n";
    EXPECT_NE(text.find(entry), std::string::npos) << "docs/cookbook.md lacks\n" << entry;
  }
  EXPECT_EQ(BlocksOf(page).size(), FilesIn(kProject / "examples" / "tickets", ".txt").size());
}

}  // namespace
}  // namespace orvenza::test
