#include "lab/bundle/support_bundle.h"

#include <algorithm>
#include <sstream>

#include "app/trace/trace_file.h"
#include "app/trace/trace_setting.h"
#include "core/folder_path.h"
#include "core/logs.h"
#include "core/text.h"
#include "core/version.h"
#include "lab/bundle/folder_listing.h"
#include "lab/doctor/diagnosis.h"
#include "lab/shell/wording.h"
#include "platform/system_error.h"
#include "tickets/text_mask.h"

namespace orvenza {
namespace {

/// Support reads the end of a log and the beginning of a ticket.
constexpr std::size_t kLongestLog = 2'000'000;
constexpr std::size_t kLongestTicket = 1'000'000;
constexpr std::size_t kMostTickets = 10;
constexpr const char* kMasked = "texts masked";

/// A longer log is cut at the start of a line: a quotation cut in the middle could not be masked.
std::string ReadEnd(const FileReader& files, const std::string& path) {
  std::string end;
  std::string piece(65536, '\0');
  const auto reader = files.OpenForReading(path);
  while (const std::size_t count = reader->Read(piece.data(), piece.size())) {
    end.append(piece, 0, count);
    if (end.size() > 2 * kLongestLog) end.erase(0, end.size() - kLongestLog);
  }
  if (end.size() <= kLongestLog) return end;
  const std::size_t lineEnd = end.find('\n', end.size() - kLongestLog);
  return end.substr(std::min(lineEnd, end.size() - 1) + 1);
}

BundleEntry Missing(const std::string& name, const std::string& reason) {
  return {name, {}, {}, reason, true};
}

std::string CutRemark(const char* which, std::size_t kept, std::uintmax_t size) {
  return size <= kept ? std::string()
                      : std::string("the ") + which + " " + SizeText(kept) + " of " + SizeText(size);
}

/// Joins two remarks; either may be empty.
std::string Both(const std::string& first, const std::string& second) {
  return first + (first.empty() || second.empty() ? "" : "; ") + second;
}

/// Collects the entries; each method adds one kind.
class Collector {
 public:
  Collector(const Installation& shop, bool withDescriptions)
      : shop_(shop), withDescriptions_(withDescriptions) {}

  void AddText(const std::string& name, std::string text) {
    entries_.push_back({name, std::move(text), shop_.now, {}});
  }

  void AddFindings(const Findings& findings) {
    std::ostringstream text;
    WriteDiagnosis(text, shop_, findings, false);
    AddText("doctor.txt", text.str());
    std::ostringstream json;
    WriteDiagnosisAsJson(json, shop_, findings);
    AddText("doctor.json", json.str());
  }

  void AddSettings() {
    for (const std::string& path : {shop_.paths.Ini(), shop_.paths.ErrDesc()}) {
      const std::string name = "settings/" + FileNameOf(path);
      if (!MayExist(shop_.files, path)) {
        entries_.push_back(Missing(name, "does not exist"));
        continue;
      }
      Add(name, [&](BundleEntry& entry) { entry.bytes = ReadWhole(shop_.files, path); });
    }
  }

  void AddLogs() {
    const std::string folder = shop_.paths.AppPath + "\\";
    const std::string& log = shop_.Settings().LogPath;
    for (const std::string& path : {log, shop_.Settings().ErrPath, folder + Logs::kErrFallback}) {
      const std::string copy = Logs::BakOf(path);
      AddLog(path, FileNameOf(path));
      AddLog(copy, FileNameOf(copy));
    }
    // On a case-sensitive file system, lines that could not be written to a log have a file of their own.
    const std::string fallback = folder + Logs::kLogFallback;
    if (IsListed(log) && IsListed(fallback)) AddLog(fallback, "fallback-log.txt");
  }

  /// Masked when it was written, and never longer than a log.
  void AddTrace() {
    const std::string path = ReadTraceSetting(IniText(shop_.review.content), shop_.paths).path;
    for (int number = 0; !path.empty() && number < TraceFile::kFiles; ++number) {
      const std::string file = TraceFile::PathOf(path, number);
      const std::string name = "logs/" + FileNameOf(file);
      if (MayExist(shop_.files, file)) {
        Add(name, [&](BundleEntry& entry) {
          entry.bytes = ReadWhole(shop_.files, file, kLongestLog);
          entry.remark = kMasked;
        });
      } else if (number == 0) {
        entries_.push_back(Missing(name, "does not exist"));
      }
    }
  }

  void AddTickets() {
    for (const FoundTicket& ticket : LatestTickets(shop_, kMostTickets)) {
      Add("tickets/" + ticket.place + "/" + ticket.entry.name, [&](BundleEntry& entry) {
        entry.bytes = ReadWhole(shop_.files, ticket.path, kLongestTicket);
        entry.modified = ticket.entry.modified;
        entry.remark = CutRemark("first", kLongestTicket, ticket.entry.size);
        if (withDescriptions_) return;
        entry.bytes = MaskTicketTexts(entry.bytes, shop_.Settings().SeparatorChar);
        entry.remark = Both(kMasked, entry.remark);
      });
    }
  }

  std::vector<BundleEntry> Take() { return std::move(entries_); }

 private:
  /// Adds the entry that `fill` completes, or the reason why that failed.
  template <typename Fill>
  void Add(const std::string& name, Fill fill) {
    BundleEntry entry{name, {}, shop_.now, {}};
    try {
      fill(entry);
      entries_.push_back(std::move(entry));
    } catch (const SystemError& failure) {
      entries_.push_back(Missing(name, failure.Description()));
    }
  }

  bool IsListed(const std::string& path) const {
    try {
      const FolderListing listing = shop_.folders.ListFolder(path);
      return std::any_of(listing.begin(), listing.end(),
                         [&](const auto& entry) { return entry.name == FileNameOf(path); });
    } catch (const SystemError&) {
      return false;
    }
  }

  void AddLog(const std::string& path, const std::string& name) {
    if (!MayExist(shop_.files, path)) {
      entries_.push_back(Missing("logs/" + name, "does not exist"));
      return;
    }
    Add("logs/" + name, [&](BundleEntry& entry) {
      entry.bytes = ReadEnd(shop_.files, path);
      entry.remark = CutRemark("last", entry.bytes.size(), shop_.files.Size(path));
      bool masked = false;
      if (!withDescriptions_) entry.bytes = MaskLog(entry.bytes, shop_.Settings().SeparatorChar, masked);
      if (masked) entry.remark = Both("texts of quoted ticket lines masked", entry.remark);
    });
  }

  const Installation& shop_;
  bool withDescriptions_;
  std::vector<BundleEntry> entries_;
};

std::string Versions(const Installation& shop) {
  const ControlRegistration control = shop.machine.FindControl();
  std::string text = "orvenza-lab " + std::string(kVersionText) + "\n";
  text += "system      " + shop.machine.SystemName() + "\n";
  text += "time        " + IsoText(shop.now) + "\n";
  text += "folder      " + shop.paths.AppPath + "\n";
  text += "connector   " + std::string(shop.isServed ? "running" : "not running") + "\n";
  text += "settings    " + (shop.review.version.empty() ? "without version" : shop.review.version) + "\n";
  text += "control     " + (control.server.empty() ? "none" : control.server) + "\n";
  text += "ports      ";
  if (const auto ports = shop.machine.SerialPorts()) {
    for (const int port : *ports) text += " COM" + std::to_string(port);
  }
  return text + "\n";
}

/// One line per entry.
std::string ListOfContents(const std::vector<BundleEntry>& entries) {
  std::size_t width = 0;
  for (const BundleEntry& entry : entries) width = std::max(width, CountCharacters(ShownBytes(entry.name)));
  std::string list;
  // The list itself comes first and cannot include its own size.
  for (auto entry = entries.begin() + 1; entry != entries.end(); ++entry) {
    const std::string size = entry->missing ? "missing" : SizeText(entry->bytes.size());
    const std::string name = ShownBytes(entry->name);
    list.append(name).append(width - CountCharacters(name) + 2, ' ').append(size);
    if (!entry->remark.empty())
      list += std::string(12 - std::min<std::size_t>(size.size(), 11), ' ') + ShownBytes(entry->remark);
    list += "\n";
  }
  return list;
}

}  // namespace

std::vector<BundleEntry> CollectBundle(const Installation& shop, const Findings& findings,
                                       bool withDescriptions) {
  Collector collector(shop, withDescriptions);
  collector.AddText("contents.txt", {});
  collector.AddFindings(findings);
  collector.AddText("versions.txt", Versions(shop));
  collector.AddText("folders.txt", ListFolders(shop));
  collector.AddSettings();
  collector.AddLogs();
  collector.AddTrace();
  collector.AddTickets();
  std::vector<BundleEntry> entries = collector.Take();
  entries.front().bytes =
      "Orvenza in " + ShownBytes(shop.paths.AppPath) + ", " + MinuteText(shop.now) + ", by orvenza-lab " +
      kVersionText + "\n" +
      (withDescriptions ? "Texts of tickets are in it as they are.\n"
                        : "Texts of tickets are masked; amounts, quantities and numbers are not.\n") +
      "\n" + ListOfContents(entries);
  return entries;
}

}  // namespace orvenza
