#include "lab/handover/hand_over_command.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <stdexcept>

#include "core/create_all_dirs.h"
#include "lab/check/check_report.h"
#include "lab/check/check_rules.h"
#include "lab/check/file_check.h"
#include "lab/doctor/doctor_command.h"
#include "lab/handover/ticket_names.h"
#include "lab/handover/ticket_text.h"
#include "lab/handover/ticket_watch.h"
#include "lab/settings/settings_review.h"
#include "lab/shell/named_files.h"
#include "lab/shell/wording.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kWait = "--wait";
constexpr auto kUsualWait = 60s;
constexpr int kLongestWait = 24 * 60 * 60;
constexpr auto kBetweenLooks = 500ms;
/// Files of the same second are printed in the order of their names.
constexpr auto kTimeStep = 1s;
constexpr std::size_t kLargestTicket = 1024 * 1024;

constexpr int kNotPrinted = 1;
constexpr int kTimeOver = 3;

void Tell(Console& console, const std::string& text) {
  console.out.flush();
  console.err << "orvenza-lab hand-over: " << text << "\n" << std::flush;
}

/// Empty if nothing is waited for.
std::optional<std::chrono::seconds> WaitingTime(const Arguments& arguments) {
  const auto text = arguments.Value(kWait);
  if (!text) return std::nullopt;
  if (text->empty()) return kUsualWait;
  int seconds = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), seconds);
  if (error != std::errc() || end != text->data() + text->size() || seconds < 1 || seconds > kLongestWait) {
    throw UsageError("--wait '" + *text + "': expected seconds, 1 to " + std::to_string(kLongestWait) +
                     "; write --wait behind the files, or --wait=" + std::to_string(kUsualWait.count()));
  }
  return std::chrono::seconds(seconds);
}

/// The settings of the installation; those of a new one if it has none yet. Throws std::runtime_error if
/// nothing can be handed over with them.
AppSettings SettingsOf(const ProgramPaths& paths, LabSurroundings& lab) {
  const SettingsReview review = ReviewSettings(lab.files, lab.clock, paths);
  if (review.state == SettingsReview::State::kUnreadable) {
    throw std::runtime_error(paths.ExecutableName + ".ini in " + paths.AppPath + " cannot be read");
  }
  if (review.state == SettingsReview::State::kNew) {
    Tell(lab.console, "there is no " + paths.ExecutableName + ".ini in " + paths.AppPath +
                          " yet, so the default settings count");
  }
  if (!IsWholePath(review.settings.TicketFolder)) {
    throw std::runtime_error("[Database] TicketFiles is " + Quoted(review.settings.TicketFilesSpec) +
                             ", which depends on where the connector is started; write the whole path");
  }
  RequireUsableSeparator(review.settings);
  return review.settings;
}

HandedOver TicketOf(const std::string& file, const AppSettings& settings, const Arguments& arguments,
                    const Files& files) {
  const auto separator = arguments.Value("--separator");
  const std::string bytes = ReadWhole(files, file, kLargestTicket + 1);
  if (bytes.size() > kLargestTicket) throw std::runtime_error("it is larger than 1 MB");
  return {file,
          {},
          TicketText(bytes, settings.SeparatorChar,
                     separator ? std::optional(SeparatorNamed(*separator)) : std::nullopt)};
}

/// Reads all files and chooses their names. Throws std::runtime_error, naming the file.
std::vector<HandedOver> MakeTickets(const std::vector<std::string>& files, const AppSettings& settings,
                                    const Arguments& arguments, const LabSurroundings& lab) {
  TicketNames names(lab.files, settings);
  std::vector<HandedOver> tickets;
  for (const std::string& file : files) {
    try {
      tickets.push_back(TicketOf(file, settings, arguments, lab.files));
      tickets.back().name = names.NameFor(file);
    } catch (const UsageError&) {
      throw;
    } catch (const SystemError& failure) {
      throw std::runtime_error(file + ": " + std::string(StandardDescription(failure.Number())));
    } catch (const std::exception& refused) {
      throw std::runtime_error(file + ": " + refused.what());
    }
  }
  return tickets;
}

/// Shows the findings of `check` on the error output; returns whether every line is valid.
bool Check(const std::vector<HandedOver>& tickets, const AppSettings& settings, LabSurroundings& lab) {
  const auto report = MakeTextReport(lab.console.err, false, true);
  CheckProgress progress(lab.console, lab.clock, false);
  TicketCheck check({settings, IdentityOf({}, {})}, lab.files, lab.clock);
  FileCheck fileCheck(check, *report, progress);
  for (const HandedOver& ticket : tickets) {
    fileCheck.CheckFile(ticket.file, [&] { return std::make_unique<TextBytes>(ticket.text); });
  }
  return fileCheck.Totals().errors == 0;
}

void WaitFor(std::chrono::nanoseconds time, const LabSurroundings& lab) {
  const auto end = lab.clock.Uptime() + time;
  while (lab.clock.Uptime() < end) lab.pump.WaitForEvent(end - lab.clock.Uptime());
}

/// Writes the tickets so that they are printed in their order.
void HandOver(const std::vector<HandedOver>& tickets, const AppSettings& settings, LabSurroundings& lab) {
  MakeAllDirs(lab.folders, settings.TicketFolder);
  std::string last;
  for (const HandedOver& ticket : tickets) {
    if (!last.empty() && !ComesBefore(last, ticket.name)) WaitFor(kTimeStep, lab);
    // The file appears whole, as if renamed.
    lab.files.Write(settings.TicketFolder + ticket.name, ticket.text);
    lab.console.out << ticket.file << ": handed over as " << ticket.name << "\n" << std::flush;
    last = ticket.name;
  }
}

/// Empty if the ticket is not done by then.
std::optional<TicketFate> AwaitFate(const HandedOver& ticket, const TicketWatch& watch,
                                    std::chrono::nanoseconds deadline, const LabSurroundings& lab) {
  for (;;) {
    const bool isOver = lab.clock.Uptime() >= deadline;
    auto found = watch.FateOf(ticket);
    if (found || isOver) return found;
    WaitFor(kBetweenLooks, lab);
  }
}

int WaitForFates(const std::vector<HandedOver>& tickets, const TicketWatch& watch, std::chrono::seconds limit,
                 LabSurroundings& lab) {
  const auto deadline = lab.clock.Uptime() + limit;
  bool inOrder = true;
  bool inTime = true;
  for (const HandedOver& ticket : tickets) {
    const auto fate = AwaitFate(ticket, watch, deadline, lab);
    lab.console.out << ticket.name << ": " << (fate ? fate->text : "not done, " + watch.PlaceOf(ticket))
                    << "\n"
                    << std::flush;
    inOrder = inOrder && (!fate || fate->inOrder);
    inTime = inTime && fate;
  }
  if (!inOrder) return kNotPrinted;
  return inTime ? 0 : kTimeOver;
}

int Run(const Arguments& arguments, LabSurroundings& lab) {
  const auto limit = WaitingTime(arguments);
  if (arguments.words.empty()) throw UsageError("which files?");
  const ProgramPaths paths = ChosenInstallation(arguments, lab);
  const AppSettings settings = SettingsOf(paths, lab);
  const TicketWatch watch(lab.files, lab.folders, settings, paths.AppPath);
  if (limit && settings.FileParser && !watch.HasOutcomes()) {
    throw std::runtime_error("--wait needs [Host] Outcomes in the settings where \"File Parser\" is on");
  }
  const auto tickets = MakeTickets(FilesNamed(arguments.words, lab), settings, arguments, lab);
  if (!Check(tickets, settings, lab) && !arguments.Has("--anyway")) {
    Tell(lab.console,
         "nothing is handed over, because a line is invalid; --anyway hands it over all the same");
    return kNotPrinted;
  }
  if (!lab.machine.IsServed(paths.AppPath)) {
    Tell(lab.console, "no connector is running in " + paths.AppPath + "; tickets wait until one is started");
  }
  HandOver(tickets, settings, lab);
  return limit ? WaitForFates(tickets, watch, *limit, lab) : 0;
}

}  // namespace

Command HandOverCommand() {
  return {
      "hand-over",
      "hand tickets over to a connector, as a host does",
      "FILE... [--folder DIR] [OPTION...]",
      "Writes ticket files into the ticket folder of an installation. Each is checked\n"
      "first; the findings go to the error output, and if a line of any file is\n"
      "invalid, nothing is handed over. The file gets the separator of the settings,\n"
      "the encoding Windows-1252 and CR LF. It appears in the folder whole.\n"
      "\n"
      "A file may be UTF-8 or Windows-1252. Its separator is the character behind the\n"
      "record types: ';', the character 127 or the one of the settings. If lines differ\n"
      "in it, nothing is guessed.\n"
      "\n"
      "Tickets are printed in the order given. They keep their names; a name that is\n"
      "taken gets a number, and no file is replaced.",
      InstallationOptions(
          {{"--separator", "N",
            "the separator in the files: its character code, or the\ncharacter itself (default: recognised)"},
           {"--anyway", {}, "hand over files with invalid lines, too"},
           {kWait, "[SECONDS]",
            "wait until the tickets are done, and say what became\nof each (default: 60 seconds for all)"}}),
      "0  handed over; with --wait, every ticket is printed\n"
      "1  not handed over, because a line is invalid; with --wait, a ticket is not\n"
      "   printed, or it is in doubt\n"
      "2  a file cannot be read or written, or the command line cannot be understood\n"
      "3  with --wait: a ticket was not done in time",
      "orvenza-lab hand-over --folder C:\\Orvenza coffee.txt --wait\n"
      "orvenza-lab hand-over *.txt --wait=120",
      Run};
}

}  // namespace orvenza
