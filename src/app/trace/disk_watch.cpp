#include "app/trace/disk_watch.h"

#include <string>
#include <string_view>

#include "app/trace/transcript_text.h"
#include "core/folder_path.h"
#include "core/text.h"

namespace orvenza {
namespace {

constexpr std::string_view kBehindStamp = " - ";
constexpr std::size_t kLongestStamp = 24;

/// Whether a file is directly in `folder`, which ends in "\".
bool IsIn(std::string_view path, std::string_view folder) {
  return !folder.empty() && path.substr(0, path.rfind('\\') + 1) == folder;
}

/// A log's line without its stamp, as the transcript has its own time. The system decides the stamp's form.
std::string_view WithoutStamp(std::string_view line) {
  if (line.ends_with(kLineBreak)) line.remove_suffix(kLineBreak.size());
  const std::size_t dash = line.find(kBehindStamp);
  const bool stamped = dash <= kLongestStamp && line[0] >= '0' && line[0] <= '9';
  return stamped ? line.substr(dash + kBehindStamp.size()) : line;
}

}  // namespace

std::string DiskWatch::Shown(std::string_view path) const { return ShownPath(path, programFolder_); }

void DiskWatch::OnDisk(const DiskEvent& event) {
  switch (event.act) {
    case DiskAct::kAppended: OnAppended(event); break;
    case DiskAct::kCopied: OnMoved(event, true); break;
    case DiskAct::kMoved: OnMoved(event, false); break;
    case DiskAct::kWritten:
      recorder_.Add(
          settings_ != nullptr && IsIn(event.path, settings_->InProcessFolder) ? "split" : "written",
          Shown(event.path));
      break;
    case DiskAct::kRemoved: recorder_.Add("deleted", Shown(event.path)); break;
    case DiskAct::kAttributesCleared: recorder_.Add("file", Shown(event.path) + " made writable"); break;
    case DiskAct::kFolderMade: recorder_.Add("folder", Shown(event.path) + " made"); break;
    case DiskAct::kFolderRenamed:
      recorder_.Add("folder", Shown(event.path) + " renamed " + Shown(event.target));
      break;
  }
}

void DiskWatch::OnAppended(const DiskEvent& event) {
  const std::string name = ToUpperAscii(FileNameOf(event.path));
  const std::string text = Printable(WithoutStamp(event.text));
  if (name == "LOG.TXT")
    recorder_.Add("log", text);
  else if (name == "ERR.TXT" || name == "ERROR.TXT")
    recorder_.Add("error", text);
  else
    recorder_.Add("file", Shown(event.path) + " longer by \"" + text + "\"");
}

void DiskWatch::OnMoved(const DiskEvent& event, bool copied) {
  const std::string how = copied ? " (a copy)" : "";
  const AppSettings none;
  const AppSettings& settings = settings_ == nullptr ? none : *settings_;
  if (IsIn(event.path, settings.TicketFolder) && IsIn(event.target, settings.InProcessFolder)) {
    recorder_.Add("taken", FileNameOf(event.path) + how);
  } else if (IsIn(event.path, settings.InProcessFolder) && IsIn(event.target, settings.HistoricFolder)) {
    recorder_.Add("archived", FileNameOf(event.path) + " as " + Shown(event.target) + how);
  } else if (IsIn(event.path, settings.InProcessFolder) && IsIn(event.target, settings.AbortFolder)) {
    recorder_.Add("aborted", FileNameOf(event.path) + " as " + Shown(event.target) + how);
  } else {
    recorder_.Add(copied ? "copied" : "moved", Shown(event.path) + " to " + Shown(event.target));
  }
}

}  // namespace orvenza
