#include <algorithm>

#include "attack/attacked_shop.h"
#include "core/catalogue.h"
#include "core/settings.h"

namespace orvenza::test {
namespace {

const std::string kFolder = "C:\\Orvenza";
const std::string kIni = kFolder + "\\Orvenza.ini";

/// A key of a complete settings file, and the values that it may have during the three days.
struct WholeKey {
  std::string key;
  std::vector<std::string> values;
};

const std::vector<WholeKey>& WholeKeys() {
  static const std::vector<WholeKey> keys = {
      {"Version", {kIniVersion}},
      {"TicketFiles", {kFolder + "\\data\\*.txt"}},
      {"HistoricTickets", {kFolder + "\\storico\\", "D:\\storico\\"}},
      {"ComPort", {"1", "2"}},
      {"Settings", {"19200,O,7,1", "9600,N,8,1"}},
      {"FrameRetry", {"3"}},
      {"TimeWaitForAck", {"10000"}},
      {"TimeWaitForEtx", {"10000"}},
      {"TxMessageRetry", {"5"}},
      {"Ident", {"V"}},
      {"TimeWaitForLONGEtx", {"50000"}},
      {"Pc Time Correction", {""}},
      {"Time Shift", {"60"}},
      {setting::kSeparator, {"127"}},
      {"Single Quantity", {"0"}},
      {"File Parser", {"0", "1"}},
  };
  return keys;
}

bool IsCountedFor(const PrintedReceipt& receipt, const Slip& slip) {
  return !receipt.voided &&
         std::any_of(receipt.lines.begin(), receipt.lines.end(),
                     [&](const std::string& line) { return line.find(slip.item) != std::string::npos; });
}

}  // namespace

std::size_t AttackedShop::Printed(const Slip& slip) const {
  const auto& receipts = device_.Receipts();
  return static_cast<std::size_t>(std::count_if(
      receipts.begin(), receipts.end(), [&](const auto& receipt) { return IsCountedFor(receipt, slip); }));
}

/// Files that contain the item's line, except logs.
std::vector<std::string> AttackedShop::FilesWith(const std::string& item, const std::string& folder) const {
  std::vector<std::string> found;
  for (const std::string& path : disk_.Paths()) {
    const std::string content = disk_.Content(path).value_or("");
    const bool isTicket = path.ends_with(".txt") && content.starts_with("1\x7f");
    const bool holds = content.find("1\x7f" + item + "\x7f") != std::string::npos;
    if (path.starts_with(folder) && isTicket && holds) found.push_back(path);
  }
  return found;
}

void AttackedShop::Judge() {
  for (const Slip& slip : expected_) JudgeSlip(slip);
  const int closures = device_.FiscalClosures();
  const bool again = closedAtKill_ && !kind_.asksInDoubt;
  if (closures != 1 && !(again && closures == 2)) {
    Violate("fiscal closures: " + std::to_string(closures));
  }
  if (!disk_.Content(kIni)) Violate("there are no settings");
  JudgeSettings("at the end");
  for (const std::string& path : disk_.Paths()) {
    if (path.ends_with(kUnfinishedSuffix) || path.ends_with(".new")) Violate("left behind: " + path);
  }
}

void AttackedShop::JudgeSlip(const Slip& slip) {
  const std::size_t printed = Printed(slip);
  const bool again = printedAtKill_.contains(slip.item);
  const std::size_t wanted = slip.abandoned ? 0 : 1;
  if (printed != wanted && !(again && !kind_.asksInDoubt && printed == 2)) {
    Violate(slip.item + " printed " + std::to_string(printed) + " times");
  }
  for (const PrintedReceipt& receipt : device_.Receipts()) {
    if (IsCountedFor(receipt, slip) && receipt.total != slip.total)
      Violate(slip.item + " with another total");
  }
  const auto files = FilesWith(slip.item, "");
  // The rotation may disable the archive until the next start; the error log then says so.
  const std::string errors = disk_.Content(kFolder + "\\Err.txt").value_or("");
  const bool archiveOff = errors.find(LoadMessage(MessageId::kHistoricFolderNotMade)) != std::string::npos;
  if (files.empty() && !(archiveOff && printed > 0)) Violate(slip.item + " is in no file");
  if (files.size() > (again ? 2 : 1)) {
    std::string all;
    for (const std::string& file : files) all += " " + file;
    Violate(slip.item + " is in several files:" + all);
  }
}

void AttackedShop::JudgeSettings(const std::string& when) {
  const auto settings = disk_.Content(kIni);
  if (!settings) return;
  if (settingsOfTheShop_ && settings->find("; NEGOZIO") == std::string::npos) {
    Violate("the shop's settings have gone, " + when);
  }
  const auto says = [&](const std::string& key, const std::string& value) {
    return settings->find("\n" + key + "=" + value + "\r\n") != std::string::npos;
  };
  for (const WholeKey& whole : WholeKeys()) {
    const bool fits = std::any_of(whole.values.begin(), whole.values.end(),
                                  [&](const std::string& value) { return says(whole.key, value); });
    if (!fits) Violate("no or another " + whole.key + " in the settings, " + when);
  }
  const bool splits = kind_.shop != ShopKind::kNotSplit;
  if (settingsOfTheShop_ && splits && !says("File Parser", "1")) Violate("File Parser is off again, " + when);
  if (kind_.asksInDoubt && !says(setting::kAskInDoubt, "1")) Violate("nobody is asked any more, " + when);
}

}  // namespace orvenza::test
