#include "attack/process_shop.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>

#include "program/running_program.h"

namespace orvenza::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr int kKilled = 137;

/// Longest duration of a start, so that a program that repeats a question endlessly is stopped.
constexpr auto kLongestRun = 60s;

std::string ReceiptOf(const std::string& item) {
  return "1\x7f" + item +
         "\x7f"
         "1,000\x7f"
         "150\x7f"
         "1\x7f\x7f\x7f"
         "1\x7f\x7f\r\n2\x7f"
         "1\x7f"
         "0\x7f\r\n";
}

}  // namespace

ProcessShop::ProcessShop(const ProcessAttack& attack) : attack_(attack) {
  beside_.Write("register.script", "speed instant\npaper " + beside_.Path() + "/carta.txt\n");
}

void ProcessShop::LiveThreeDays() {
  Drop("0001.txt", ReceiptOf("PANE"));
  Live(1, {"PANE"});
  Technician();
  Drop("0002.txt", ReceiptOf("LATTE") + ReceiptOf("MELE"));
  Drop("0003.txt", ReceiptOf("FARINA"));
  Live(2, {"LATTE", "MELE", "FARINA"});
  Drop("0004.txt", ReceiptOf("OLIO"));
  Live(3, {"OLIO"});
  Judge();
}

/// Starts the program until it ends at the host's request.
void ProcessShop::Live(int start, const std::vector<std::string>& items) {
  items_.insert(items_.end(), items.begin(), items.end());
  constexpr int kMostStarts = 3;
  for (int run = 1; run <= kMostStarts; ++run) {
    const End end = RunOnce(start, run == 1 && attack_.start == start, items);
    if (end == End::kQuit) return;
    if (end == End::kKilled) NoteKill();
    if (end == End::kSilent) Violate("it stands still in start " + std::to_string(start));
  }
  Violate("start " + std::to_string(start) + " does not succeed");
}

ProcessShop::End ProcessShop::RunOnce(int start, bool attacked, const std::vector<std::string>& items) {
  std::vector<std::string> words{"/usr/bin/env", "LD_PRELOAD=" ORVENZA_ATTACKED_CALLS,
                                 "ORVENZA_ATTACK_FOLDER=" + shop_.Path(),
                                 "ORVENZA_ATTACK_REPORT=" + ReportOf(start)};
  if (attacked) {
    words.push_back("ORVENZA_ATTACK_CALL=" + std::to_string(attack_.call));
    words.push_back("ORVENZA_ATTACK_ERROR=" + std::to_string(attack_.error));
  }
  for (const std::string& word : {std::string(ORVENZA_PROGRAM), std::string("--folder"), shop_.Path(),
                                  std::string("--simulate"), beside_.Path() + "/register.script"}) {
    words.push_back(word);
  }
  RunningProgram program(words);
  bool asked = false;
  bool configured = start != 2;
  std::string box;
  const auto enter = [&](const std::string& line) {
    try {
      program.Enter(line);
    } catch (const std::runtime_error&) {
      // It was killed right after its question.
    }
  };
  const auto end = std::chrono::steady_clock::now() + kLongestRun;
  for (std::string line; std::chrono::steady_clock::now() < end && program.NextLine(line);) {
    box += line + "\n";
    if (line.starts_with("Numero + Invio")) {
      enter(AnswerTo(box, start));
      box.clear();
    } else if (!configured && line.find(" in funzione") != std::string::npos) {
      enter("m");
      configured = true;
    }
    const bool printed =
        std::all_of(items.begin(), items.end(), [&](const std::string& item) { return Printed(item) > 0; });
    if (printed && !asked) Write("command.txt", "QUIT\r\n");
    asked = asked || printed;
  }
  const int status = program.ExitStatus();
  if (status == kKilled) return End::kKilled;
  if (status == -1) return End::kSilent;
  return asked ? End::kQuit : End::kRefused;
}

std::string ProcessShop::AnswerTo(const std::string& box, int start) const {
  const auto shows = [&](const char* text) { return box.find(text) != std::string::npos; };
  if (shows("Abortire")) return "3";
  if (shows("Configura   ")) return "Configura";
  if (shows("COM16")) return "COM2";
  return start == 2 && shows("Porta COM   COM1 ") ? "1" : "";
}

void ProcessShop::Drop(const std::string& name, const std::string& content) const {
  fs::create_directories(shop_.Native("data"));
  Write("data\\" + name, content);
}

/// Written elsewhere and renamed, like a host does.
void ProcessShop::Write(const std::string& path, const std::string& content) const {
  beside_.Write("draft", content);
  fs::rename(beside_.Native("draft"), shop_.Native(path));
}

/// Changes the settings by hand, and lets the archived tickets become a day old.
void ProcessShop::Technician() {
  std::string settings = shop_.Read("Orvenza.ini");
  const std::size_t parser = settings.find("File Parser=0");
  if (parser == std::string::npos) return Violate("no settings after the first day");
  settings.replace(parser, 13, "File Parser=1").insert(0, "; NEGOZIO\r\n");
  shop_.Write("Orvenza.ini", settings);
  settingsOfTheShop_ = true;
  if (!shop_.Has("storico")) return;
  for (const auto& entry : fs::recursive_directory_iterator(shop_.Native("storico"))) {
    fs::last_write_time(entry.path(), fs::file_time_type::clock::now() - 48h);
  }
}

void ProcessShop::NoteKill() {
  for (const std::string& item : items_) {
    if (Printed(item) > 0 && !FilesWith(item, "/inproces/").empty()) printedAtKill_[item] = true;
  }
}

void ProcessShop::Judge() {
  // The rotation may disable the archive until the next start; the error log then says so.
  const bool archiveOff =
      shop_.Read("Err.txt").find("Errore creazione cartella storico") != std::string::npos;
  for (const std::string& item : items_) {
    const int printed = Printed(item);
    if (printed != 1 && !(printed == 2 && printedAtKill_.contains(item))) {
      Violate(item + " printed " + std::to_string(printed) + " times");
    }
    if (FilesWith(item, "/").empty() && !(archiveOff && printed > 0)) Violate(item + " is in no file");
  }
  const std::string settings = shop_.Read("Orvenza.ini");
  for (const char* wanted :
       {"; NEGOZIO\r\n", "Version=1.06\r\n", "TicketFiles=", "HistoricTickets=", "ComPort=", "Settings=",
        "TimeWaitForLONGEtx=50000\r\n", "Separator (ascii,max 127)=127\r\n", "File Parser=1\r\n"}) {
    const bool there = settings.find(wanted) != std::string::npos;
    if (settingsOfTheShop_ && !there) Violate(std::string("the settings lack ") + wanted);
  }
  for (const auto& entry : fs::recursive_directory_iterator(shop_.Native("."))) {
    const std::string path = entry.path().string();
    if (path.ends_with(".orv~") || path.ends_with(".new")) Violate("left behind: " + path);
  }
}

/// Closed receipts with this item. A receipt left open by a kill stays open and is voided by the next start.
int ProcessShop::Printed(const std::string& item) const {
  const std::string paper = beside_.Read("carta.txt");
  int printed = 0;
  for (std::size_t from = 0, end = 0; (end = paper.find("SCONTRINO N.", from)) != std::string::npos;
       from = end + 1) {
    const std::size_t head = paper.rfind("NEGOZIO DI PROVA", end);
    if (paper.substr(head, end - head).find("\n" + item) != std::string::npos) ++printed;
  }
  return printed;
}

/// Ticket files with this item whose path contains `part`.
std::vector<std::string> ProcessShop::FilesWith(const std::string& item, const std::string& part) const {
  std::vector<std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(shop_.Native("."))) {
    const std::string path = entry.path().string();
    if (!entry.is_regular_file() || !path.ends_with(".txt") || path.find(part) == std::string::npos) continue;
    const std::string content = shop_.Read(fs::relative(entry.path(), shop_.Native(".")).string());
    if (content.find("1\x7f" + item + "\x7f") != std::string::npos) found.push_back(path);
  }
  return found;
}

std::size_t ProcessShop::CallsOf(int start) const {
  const std::string report = beside_.Read("calls" + std::to_string(start));
  return static_cast<std::size_t>(std::atol(report.c_str()));
}

std::string ProcessShop::Struck() const {
  const std::string report = beside_.Read("calls" + std::to_string(attack_.start));
  return report.substr(0, report.find('\n'));
}

}  // namespace orvenza::test
