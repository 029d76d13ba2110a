// A ticket, the register's faults meanwhile, and the operator's answers, through the whole connector.
// Properties: the run ends; the ticket's file is then in the historic or the abort folder, once; every
// command is well-formed; without refusals and questions exactly the ticket's commands are sent; and no
// receipt is printed twice unless the operator chose that. If the operator is asked in doubt, that holds
// after a power cut and paper-out, too, and no line is left out unless somebody decided so.

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "choices.h"
#include "core/catalogue.h"
#include "core/text.h"
#include "lab/rehearsal/rehearsal.h"
#include "lab/shell/no_files.h"
#include "memory_shop.h"
#include "targets.h"
#include "tickets/line_reader.h"
#include "tickets/record_types.h"
#include "tickets/translation.h"

namespace orvenza::fuzz {
namespace {

using namespace std::chrono_literals;

constexpr char kSeparator = ';';
constexpr const char* kTicket = "C:\\Orvenza\\data\\ticket.txt";
constexpr std::string_view kOpeningQuery = "321701";
constexpr std::string_view kPrefixes[] = {"321701", "10",   "1003", "1004", "1005", "1028", "1031", "1036",
                                          "1045",   "1047", "1058", "1063", "1065", "1149", "20",   "30"};
constexpr std::string_view kEffects[] = {
    "silence",      "lose-reply",        "late 16000",        "late 52000",  "link-error 1",
    "link-error 2", "link-error 3",      "reply ##",          "reply ERR",   "reply ERR08",
    "reply ERR11",  "reply ERR16",       "reply ERR17",       "reply ERR99", "absent 3",
    "port-fails 2", "paper-out receipt", "paper-out journal", "reply ERR23", "reply ERR2323"};
/// From here on, events may cause the whole file to be printed again, or add a payment.
constexpr std::size_t kPrintsAgain = 16;
/// The first of those that add a payment.
constexpr std::size_t kDivides = 18;
constexpr EventKind kEvents[] = {EventKind::kMenu, EventKind::kQuit, EventKind::kSessionEnds,
                                 EventKind::kPowerFails};
/// Faults stop after some commands, so an operator who chooses to go on never reaches this.
constexpr std::size_t kMostDialogs = 300;

/// One run: the faults taken from the input, and their consequences.
class Run {
 public:
  explicit Run(std::string_view input) : choices_(input) {
    scenario_.untilPrinted = true;
    ReadFaults();
    ReadEvent();
    ReadSettings();
    for (std::size_t i = choices_.Below(8); i > 0; --i) answers_.push_back(choices_.Below(8));
    content_ = choices_.Rest();
    ScenarioEvent put;
    put.path = kTicket;
    put.content = content_;
    scenario_.events.insert(scenario_.events.begin(), put);
    scenario_.judgement = [this](const ShownDialog& dialog) { return Decide(dialog); };
  }

  void Play() {
    outcome_ = Rehearse(scenario_);
    Require(outcome_.ended, "the run ends");
    RequireFiled();
    for (const std::string& command : outcome_.sent) RequireWellFormed(command);
    if (undisturbed_ && dialogs_ == 0 && !WasRefused()) RequireSent();
    if (!mayPrintAgain_) RequireNoSecondReceipt();
    if (asks_ && decisions_ == 0) RequireNothingLeftOut();
  }

 private:
  void ReadFaults() {
    std::string script;
    for (std::size_t i = choices_.Below(4); i > 0; --i) {
      const std::string_view prefix = choices_.Of(kPrefixes);
      const std::string occurrence = std::to_string(1 + choices_.Below(3));
      const std::string times = std::to_string(1 + choices_.Below(3));
      const std::size_t effect = choices_.Below(std::size(kEffects));
      script.append("on ")
          .append(prefix)
          .append(" #" + occurrence + " x" + times + " ")
          .append(kEffects[effect]) += '\n';
      undisturbed_ = false;
      mayPrintAgain_ = mayPrintAgain_ || effect >= kPrintsAgain;
      divides_ = divides_ || effect >= kDivides;
    }
    scenario_.device = ParseFaultScript("script", script);
    scenario_.device.speed = 0;
  }

  void ReadEvent() {
    if (!choices_.Yes()) return;
    ScenarioEvent event;
    event.kind = choices_.Of(kEvents);
    event.at = (1 + choices_.Below(128)) * 250ms;
    undisturbed_ = false;
    mayPrintAgain_ = mayPrintAgain_ || event.kind == EventKind::kPowerFails;
    scenario_.events.push_back(event);
  }

  void ReadSettings() {
    const std::size_t settings = choices_.Below(4);
    splits_ = settings % 2 == 1;
    asks_ = settings >= 2;
    if (asks_) {
      scenario_.settings.push_back({setting::kSafety, setting::kAskInDoubt, "1"});
      mayPrintAgain_ = divides_;
    }
    if (splits_) scenario_.settings.push_back({setting::kGeneral, "File Parser", "1"});
  }

  /// The input's answers, and afterwards answers that go on.
  std::string Decide(const ShownDialog& dialog) {
    if (++dialogs_ > kMostDialogs) return {};
    std::vector<std::string> replies = dialog.options.empty() ? dialog.buttons : dialog.options;
    // Who is asked again and again answers otherwise: a closing payment never closes a document.
    const std::size_t button = dialogs_ > kMostDialogs / 2 ? replies.size() - 1 : 0;
    std::size_t choice = dialog.options.empty() ? button : 2;
    replies.insert(replies.end(), {"close", "menu Esci"});
    if (answered_ < answers_.size()) choice = answers_[answered_++] % replies.size();
    if (choice < dialog.options.size()) ++decisions_;
    const bool ends = dialog.caption.find(LoadMessage(MessageId::kEndRequest)) != std::string::npos;
    const bool prints = dialog.options.empty() ? replies[choice] == "S\xC3\xAC" && !ends : choice == 1;
    mayPrintAgain_ = mayPrintAgain_ || prints;
    return replies[choice];
  }

  bool WasRefused() const {
    return std::any_of(outcome_.events.begin(), outcome_.events.end(), [](const RehearsalEvent& event) {
      return event.kind == "reply" && event.text.starts_with("ERR");
    });
  }

  void RequireFiled() const {
    std::size_t filed = 0;
    for (const auto& [path, text] : outcome_.files) {
      Require(path != kTicket && path.find("\\inproces\\") == std::string::npos, "no ticket is left");
      const bool isTicket =
          path.find("\\storico\\") != std::string::npos || path.find("\\abort\\") != std::string::npos;
      if (isTicket && (splits_ || text == content_)) ++filed;
    }
    Require(splits_ ? filed > 0 : filed == 1, "the ticket is filed once");
  }

  static void RequireWellFormed(const std::string& command) {
    Require(command.size() >= 4 && OnlyDigits(command.substr(0, 4)), "a command begins with its code");
    Require(std::all_of(command.begin(), command.end(),
                        [](char c) { return c >= ' ' && static_cast<unsigned char>(c) <= 127; }),
            "a command is ASCII without control characters");
  }

  /// The commands of the ticket's lines, for a register without rules of its own.
  std::vector<std::string> Commands() const {
    MemoryShop shop;
    const RegisterIdentity identity;
    const RecordTranslator translator(identity, shop.settings, shop.disk.FileSeam(), shop.logs);
    std::vector<std::string> commands;
    LineReader reader(std::make_unique<TextBytes>(content_));
    RecordFields fields;
    for (std::string line; reader.ReadLine(line);) {
      SplitRecord(line, kSeparator, fields);
      std::string command = translator.TranslateRecord(fields);
      if (IsLongRunning(command)) command.pop_back();
      if (!command.empty()) commands.push_back(std::move(command));
    }
    return commands;
  }

  void RequireSent() const {
    std::vector<std::string> sent = outcome_.sent;
    sent.erase(sent.begin(), std::find(sent.begin(), sent.end(), kOpeningQuery));
    std::erase(sent, kOpeningQuery);
    Require(sent == Commands(), "the ticket's commands are sent, each once, in their order");
  }

  void RequireNothingLeftOut() const {
    for (const std::string& command : Commands()) {
      const bool sent = std::find(outcome_.sent.begin(), outcome_.sent.end(), command) != outcome_.sent.end();
      Require(sent, "in doubt no line is left out that nobody decided about");
    }
  }

  void RequireNoSecondReceipt() const {
    std::size_t endings = 0;
    LineReader reader(std::make_unique<TextBytes>(content_));
    RecordFields fields;
    for (std::string line; reader.ReadLine(line);) {
      SplitRecord(line, kSeparator, fields);
      if (HasRole(fields[0], &RecordRoles::closesTicket) || HasRole(fields[0], &RecordRoles::followsClosing))
        ++endings;
    }
    const auto closed = std::count_if(outcome_.receipts.begin(), outcome_.receipts.end(),
                                      [](const PrintedReceipt& receipt) { return !receipt.voided; });
    Require(static_cast<std::size_t>(closed) <= endings,
            "no receipt comes twice that nobody chose to print again");
  }

  Choices choices_;
  Scenario scenario_;
  std::string content_;
  std::vector<std::size_t> answers_;
  std::size_t answered_ = 0;
  std::size_t dialogs_ = 0;
  bool undisturbed_ = true;
  bool mayPrintAgain_ = false;
  bool divides_ = false;
  bool splits_ = false;
  bool asks_ = false;  ///< The operator decides in doubt, and then nobody else does.
  std::size_t decisions_ = 0;
  RehearsalOutcome outcome_;
};

}  // namespace

void FuzzTicket(std::string_view input) { Run(input).Play(); }

}  // namespace orvenza::fuzz
