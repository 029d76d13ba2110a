#include "lab/table/verdict.h"

#include <algorithm>
#include <sstream>
#include <string_view>

#include "core/own_texts.h"
#include "core/text.h"
#include "lab/rehearsal/scenario.h"

namespace orvenza {
namespace {

constexpr const char* kPaperOut = "Esaurita !";
constexpr std::size_t kStamp = std::string_view("dd/mm/yyyy hh:mm:ss - ").size();

bool Answered(const TicketEnd& end, Answer answer) {
  return std::find(end.answers.begin(), end.answers.end(), answer) != end.answers.end();
}

bool Logged(const TicketEnd& end, std::string_view text) {
  return std::any_of(end.log.begin(), end.log.end(),
                     [&](const std::string& line) { return line.find(text) != std::string::npos; });
}

bool Strikes(const StepFault& fault, std::string_view effect) {
  return !fault.effects.empty() && fault.effects.front() == effect;
}

/// A line of the log without its time and the parts that vary between errors or lines.
std::string Alike(std::string_view line) {
  line.remove_prefix(std::min(kStamp, line.size()));
  const std::string text(Trim(line.substr(0, line.find('\r'))));
  if (const auto at = text.find(own_text::kInterrupted); at != std::string::npos)
    return "... " + text.substr(at);
  for (const char* const beginning : {"ECR Error :", "Riga non valida :", "Abort stampa scontrino."}) {
    if (text.starts_with(beginning)) return beginning + std::string(" ...");
  }
  if (text.starts_with("Carta ") && text.ends_with(kPaperOut)) return "Carta ... " + std::string(kPaperOut);
  if (text.starts_with("Attenzione ! Carta "))
    return "Attenzione ! Carta ... " + std::string(kPaperOut) + " ...";
  return text;
}

/// Whether an answer asked for the place of the file, and so for what the customer lacks.
bool FilingWasChosen(const TicketEnd& end) {
  return (Answered(end, Answer::kGiveUp) && end.file == FileEnd::kAbort) ||
         (Answered(end, Answer::kPrinted) && end.file == FileEnd::kHistoric);
}

/// A program that is ended gives up a ticket that may already be printed; any other ticket is printed after
/// the restart.
bool LessWasChosen(const TicketEnd& end) {
  return Answered(end, Answer::kGiveUp) || Answered(end, Answer::kPrinted) ||
         Answered(end, Answer::kNoChoice) || Answered(end, Answer::kCloseReceipt) ||
         (Answered(end, Answer::kEndProgram) && end.file == FileEnd::kAbort);
}

bool MoreWasChosen(const TicketEnd& end) {
  return Answered(end, Answer::kReprint) || Answered(end, Answer::kCloseReceipt);
}

}  // namespace

bool IsForbidden(Verdict verdict) {
  switch (verdict) {
    case Verdict::kLost:
    case Verdict::kTwice:
    case Verdict::kHang: return true;
    case Verdict::kFine:
    case Verdict::kInDoubt:
    case Verdict::kTwiceByChoice:
    case Verdict::kLostByChoice:
    case Verdict::kAsksOn: break;
  }
  return false;
}

std::vector<std::string> ErrorLines(const RehearsalOutcome& outcome) {
  std::vector<std::string> lines;
  const auto found = outcome.files.find(std::string(kRehearsalFolder) + "\\Err.txt");
  std::istringstream text(found == outcome.files.end() ? std::string() : found->second);
  for (std::string line; std::getline(text, line);) {
    std::string alike = Alike(line);
    if (std::find(lines.begin(), lines.end(), alike) == lines.end()) lines.push_back(std::move(alike));
  }
  return lines;
}

Verdict VerdictOf(const TicketEnd& end, WayOfWorking way) {
  if (end.paper.whole == 0) {
    const bool chosen = way == WayOfWorking::kContract ? LessWasChosen(end) : FilingWasChosen(end);
    return chosen ? Verdict::kLostByChoice : Verdict::kLost;
  }
  if (way == WayOfWorking::kAskInDoubt && end.paper.keyedInVoided > 0 &&
      !Answered(end, Answer::kVoidForeign)) {
    return Verdict::kLost;
  }
  if (end.paper.whole > 1 || end.paper.other > 0 || end.paper.mixed > 0) {
    return MoreWasChosen(end) ? Verdict::kTwiceByChoice : Verdict::kTwice;
  }
  return end.file == FileEnd::kHistoric ? Verdict::kFine : Verdict::kInDoubt;
}

Verdict AskedOn(const TicketEnd& end, WayOfWorking way) {
  if (way == WayOfWorking::kContract) return Verdict::kAsksOn;
  // Questions excuse neither a second receipt nor a file that was put away too soon.
  const Verdict verdict = VerdictOf(end, way);
  const bool waits = end.paper.whole == 0 && end.file == FileEnd::kWaiting;
  return IsForbidden(verdict) && !waits ? verdict : Verdict::kAsksOn;
}

const std::vector<Rule>& Rules() {
  static const std::vector<Rule> all{
      {"A restart after paper-out that the register accepts or does not answer is followed by status queries "
       "until one is answered without an error, however long that takes. Silence counts as accepted: a "
       "restart "
       "that was lost is not sent again. The program can be ended from the menu meanwhile.",
       [](const TicketStep&, const StepFault&, const TicketEnd& end) {
         return end.verdict == Verdict::kHang && !end.waits;
       }},
      {"A ticket found in the in-process folder at the start is printed from its first line: nothing on the "
       "disk tells how far it had come.",
       [](const TicketStep&, const StepFault& fault, const TicketEnd& end) {
         const bool cut = fault.meanwhile == EventKind::kPowerFails || !fault.cuts.empty();
         return cut && end.verdict == Verdict::kTwice;
       }},
      {"The reply to a closure or a report is not examined: a failure stands in the error log alone.",
       [](const TicketStep& step, const StepFault&, const TicketEnd& end) {
         const bool isLong = step.command.starts_with("20") || step.command.starts_with("30");
         return isLong && end.file == FileEnd::kHistoric;
       }},
      {"A status that cannot be read in ten tries counts as \"no receipt open\".",
       [](const TicketStep&, const StepFault&, const TicketEnd& end) {
         return Logged(end, "Impossibile leggere stato Cash !");
       }},
      {"Link error 2 counts as success.", [](const TicketStep&, const StepFault& fault,
                                             const TicketEnd&) { return Strikes(fault, "link-error 2"); }},
      {"A reply that does not begin with \"ERR\" counts as success, whatever it says.",
       [](const TicketStep&, const StepFault& fault, const TicketEnd&) {
         return Strikes(fault, "reply ##");
       }},
      {"After paper-out with a receipt open the whole file is printed again, also what is complete "
       "already: the first part of a receipt that was divided, or what stands before the receipt in its "
       "file.",
       [](const TicketStep&, const StepFault&, const TicketEnd& end) {
         return end.verdict == Verdict::kTwice && Logged(end, "Ripresa da Fine Carta, annullo Totale");
       }},
      {"After paper-out without a receipt open the next line follows: the one that was refused is not sent "
       "again.",
       [](const TicketStep&, const StepFault&, const TicketEnd& end) { return Logged(end, kPaperOut); }},
      {"A logo row that is refused as out of sequence is sent again without asking, and after four times the "
       "ticket is given up, with a message. Nothing demands this; it is the connector's own choice.",
       [](const TicketStep& step, const StepFault&, const TicketEnd& end) {
         return step.command.starts_with("4052") && Logged(end, "11-Sequenza Errata");
       }},
      {"A command that is refused as out of sequence voids the receipt at once, without asking, and the next "
       "line follows. If the void fails, the receipt stays open and is completed without the refused line.",
       [](const TicketStep&, const StepFault&, const TicketEnd& end) {
         return Logged(end, "11-Sequenza Errata");
       }},
      {"A closure or a report gives its ticket up where the register was found switched off right before it, "
       "whatever is answered to the message.",
       [](const TicketStep& step, const StepFault&, const TicketEnd& end) {
         const bool isClosure = step.scenario.find("| 21;") != std::string::npos;
         return isClosure && end.file == FileEnd::kAbort && Logged(end, "Abort stampa scontrino.") &&
                Logged(end, "Dispositivo Spento o Non Collegato !");
       }},
      {"A wait for a reply that begins less than 15 s before midnight has no end of its own: a reply ends "
       "it, "
       "or the end of the program from the menu. A ticket of which nothing can have been completed is then "
       "printed at the next start; any other goes to the abort folder.",
       [](const TicketStep&, const StepFault&, const TicketEnd& end) { return end.waits; }},
  };
  return all;
}

std::string RuleFor(const TicketStep& step, const StepFault& fault, const TicketEnd& end) {
  if (!IsForbidden(end.verdict)) return {};
  for (const Rule& rule : Rules()) {
    if (rule.explains(step, fault, end)) return rule.reason;
  }
  return {};
}

}  // namespace orvenza
