#include "lab/table/case_grid.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "core/settings.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kPane = "| 1;PANE;1,000;150;1;;;1;;\n";
constexpr const char* kLatte = "| 1;LATTE;2,000;129;1;;;1;;\n";
constexpr const char* kMele = "| 1;MELE;1,255;199;1;;;1;;\n";
constexpr const char* kPayment = "| 2;1;1000;\n";

/// Long enough for the connector to be waiting, shorter than its timeouts for a reply.
constexpr auto kMeanwhile = 500ms;

std::string Ticket(const std::string& lines) { return "ticket ticket.txt\n" + lines; }

/// Three items and the payment, each item with a different command.
std::string Receipt(const std::string& afterSecondItem = {}, const std::string& afterPayment = {}) {
  return Ticket(std::string(kPane) + kLatte + afterSecondItem + kMele + kPayment + afterPayment);
}

std::string PartPaid() { return Ticket(std::string(kPane) + kLatte + "| 2;1;300;\n" + kPayment); }

std::string Document() { return Ticket("| 29;1;\n| 30;1;0;PROMEMORIA;\n| 31;1;\n"); }

std::string WithReceiptLeftOpen() { return "ticket earlier.txt\n| 1;ALTRO;1,000;100;1;;;1;;\n" + Receipt(); }

/// Somebody keys an item in at the register itself, and later has it paid, before the fifth status query.
std::string WithReceiptKeyedIn(const std::string& when) {
  return "register " + when + "receipt-open\nregister on 3217 #5 receipt-paid\n" + Receipt();
}

std::string WithPaperOut() { return "register on 1004 paper-out receipt\n" + Receipt(); }

/// The register is so small that the third item does not fit. The line that divides the receipt always has
/// the separator 127.
std::string Divided() {
  std::string lines;
  for (const char c : Receipt()) lines += c == ';' ? std::string("<7F>") : std::string(1, c);
  return "register capacity 2\nsetting [General] " + std::string(setting::kSeparator) + " = 127\n" + lines;
}

std::string Code(int number) {
  char text[16];
  std::snprintf(text, sizeof text, "%02d", number);
  return text;
}

/// Codes with a treatment of their own; in the thinned table one code represents all others.
bool IsSpecial(int code) {
  constexpr std::array kCodes{1, 2, 8, 11, 16, 17, 23};
  return std::find(kCodes.begin(), kCodes.end(), code) != kCodes.end();
}

bool IsLong(const TicketStep& step) {
  return step.command.starts_with("20") || step.command.starts_with("30");
}

void AddExchangeFaults(std::vector<StepFault>& faults, const TicketStep& step) {
  faults.push_back({"command lost", {"silence"}, false, {}, {}});
  faults.push_back({"reply lost", {"lose-reply"}, false, {}, {}});
  faults.push_back({"reply late", {IsLong(step) ? "late 52000" : "late 16000"}, false, {}, {}});
  for (const char* number : {"1", "2", "3"}) {
    faults.push_back(
        {std::string("link error ") + number, {std::string("link-error ") + number}, false, {}, {}});
  }
  faults.push_back({"garbled reply", {"reply ##"}, false, {}, {}});
}

void AddErrorCodes(std::vector<StepFault>& faults, TableExtent extent) {
  for (int code = 1; code <= 31; ++code) {
    if (extent == TableExtent::kThinned && !IsSpecial(code)) continue;
    faults.push_back({"ERR" + Code(code), {"reply ERR" + Code(code)}, false, {}, {}});
  }
  faults.push_back({"ERR2323", {"reply ERR2323"}, false, {}, {}});
}

StepFault PowerCutAt(const std::string& where, PowerCut cut) {
  StepFault fault;
  fault.name = "power cut (" + where + ")";
  fault.cuts = {std::move(cut)};
  return fault;
}

std::vector<StepFault> FilingFaults() {
  return {PowerCutAt("before its file is moved", {PowerCut::When::kAfterChange, {}, 0}),
          PowerCutAt("after its file was moved", {PowerCut::When::kAfterChange, {}, 1})};
}

void AddOutages(std::vector<StepFault>& faults, const TicketStep& step) {
  faults.push_back({"receipt paper ends", {"paper-out receipt"}, false, {}, {}});
  faults.push_back({"journal paper ends", {"paper-out journal"}, false, {}, {}});
  faults.push_back({"register off (command lost)", {"silence", "absent 3"}, false, {}, {}});
  faults.push_back({"register off (reply lost)", {"lose-reply", "absent 3"}, false, {}, {}});
  faults.push_back({"register off (after its reply)", {"absent 3"}, false, {}, {}});
  faults.push_back({"port gone (command lost)", {"silence", "port-fails 2"}, false, {}, {}});
  faults.push_back({"port gone (reply lost)", {"lose-reply", "port-fails 2"}, false, {}, {}});
  faults.push_back({"program ended (command lost)", {"silence"}, false, EventKind::kMenu, kMeanwhile});
  faults.push_back({"program ended (reply lost)", {"lose-reply"}, false, EventKind::kMenu, kMeanwhile});
  faults.push_back({"power cut (command lost)", {"silence"}, false, EventKind::kPowerFails, kMeanwhile});
  faults.push_back({"power cut (reply lost)", {"lose-reply"}, false, EventKind::kPowerFails, kMeanwhile});
  using When = PowerCut::When;
  faults.push_back(PowerCutAt("before it is sent", {When::kBeforeCommand, step.command, step.occurrence}));
  faults.push_back(PowerCutAt("after its reply", {When::kAfterReply, step.command, step.occurrence}));
}

/// Whether the fault may well repeat.
bool MayLast(const StepFault& fault) {
  return fault.effects.size() == 1 && !fault.meanwhile && !fault.effects[0].starts_with("late") &&
         !fault.effects[0].starts_with("paper") && !fault.effects[0].starts_with("absent");
}

}  // namespace

std::vector<TicketStep> TicketSteps() {
  return {
      {"opening status query", Receipt(), "321701", 1},
      {"opening status query, an earlier receipt left open", WithReceiptLeftOpen(), "321701", 2},
      {"void of an earlier receipt left open", WithReceiptLeftOpen(), "1028", 1},
      {"opening status query, a receipt keyed in by hand since the start", WithReceiptKeyedIn("on 321701 "),
       "321701", 1},
      {"opening status query, a receipt keyed in by hand before the start", WithReceiptKeyedIn(""), "321701",
       1},
      {"void of a receipt keyed in by hand", WithReceiptKeyedIn(""), "1028", 1},
      {"first item", Receipt(), "1003", 1},
      {"item in mid-receipt", Receipt(), "1004", 1},
      {"discount", Receipt("| 1;1;1;;50;;;;-1;\n"), "1021", 1},
      {"subtotal", Receipt("| 20;1;\n"), "1050", 1},
      {"text", Receipt("| 28;1;GRAZIE;\n"), "1058", 1},
      {"total void", Receipt("| 4;1;\n"), "1028", 1},
      {"part payment", PartPaid(), "1036", 1},
      {"payment that closes", Receipt(), "1036", 1},
      {"payment that closes after a part payment", PartPaid(), "1036", 2},
      {"drawer after the receipt", Receipt({}, "| 26;\n"), "104701", 1},
      {"payment that divides a long receipt", Divided(), "1036", 1},
      {"item that was refused, in the next receipt", Divided(), "1005", 2},
      {"restart after paper-out", WithPaperOut(), "1149", 1},
      {"status query after the restart", WithPaperOut(), "321701", 2},
      {"void after the restart", WithPaperOut(), "1028", 1},
      {"first line of a document", Document(), "1063", 1},
      {"line of a document", Document(), "1064", 1},
      {"end of a document", Document(), "1065", 1},
      {"cash movement", Ticket("| 34;0;500;1;\n"), "1031", 1},
      {"opening status query of a closure", Ticket("| 21;;;;;;;;;\n"), "321701", 1},
      {"fiscal closure", Ticket("| 21;;;;;;;;;\n"), "3001", 1},
      {"fiscal closure with the financial report", Ticket("| 22;;;;;;;;;\n"), "3002", 1},
      {"report", Ticket("| 32;1;1;\n"), "2001", 1},
      {"logo row",
       "logo 3 logo.bmp\n" + Ticket(std::string("| 33;1;C:\\Orvenza\\logo.bmp;\n") + kPane + kPayment),
       "4052", 2},
      {"receipt printed, its file not moved yet", Receipt(), {}, 1, true},
      {"closure printed, its file not moved yet", Ticket("| 21;;;;;;;;;\n"), {}, 1, true},
      {"line without a separator", Receipt("| PAGA\n"), {}, 1},
      {"line with a value that is refused", Receipt("| 1;UOVA;1;100;1;;;1;;\n"), {}, 1},
  };
}

LocalTime StartAt(TableHour hour) {
  return hour == TableHour::kDay ? LocalTime{2026, 11, 16, 9, 0, 0} : LocalTime{2026, 11, 16, 23, 59, 50};
}

std::vector<StepFault> StepFaults(const TicketStep& step, TableExtent extent) {
  if (step.filing) return FilingFaults();
  if (step.command.empty()) return {{"the line itself", {}, false, {}, {}}};
  std::vector<StepFault> faults;
  AddExchangeFaults(faults, step);
  AddErrorCodes(faults, extent);
  AddOutages(faults, step);
  for (std::size_t i = 0, count = faults.size(); i < count; ++i) {
    if (!MayLast(faults[i])) continue;
    StepFault lasting = faults[i];
    lasting.eachTime = true;
    faults.push_back(std::move(lasting));
  }
  return faults;
}

}  // namespace orvenza
