#include "lab/rehearsal/disk_watch.h"

#include <string>
#include <string_view>

#include "core/folder_path.h"
#include "core/text.h"
#include "lab/rehearsal/transcript_text.h"

namespace orvenza {
namespace {

constexpr std::string_view kStampForm = "dd/mm/yyyy hh:mm:ss - ";

/// Whether a file is directly in `folder`, which ends in "\".
bool IsIn(std::string_view path, std::string_view folder) {
  return !folder.empty() && path.substr(0, path.rfind('\\') + 1) == folder;
}

/// A log's line without its stamp, as the transcript has its own time.
std::string_view WithoutStamp(std::string_view line) {
  if (line.ends_with(kLineBreak)) line.remove_suffix(kLineBreak.size());
  const bool stamped = line.size() >= kStampForm.size() && line[2] == '/' && line[5] == '/' &&
                       line.substr(kStampForm.size() - 3, 3) == " - ";
  return stamped ? line.substr(kStampForm.size()) : line;
}

}  // namespace

void DiskWatch::OnDisk(const DiskEvent& event) {
  switch (event.act) {
    case DiskAct::kAppended: OnAppended(event); break;
    case DiskAct::kCopied: OnMoved(event, true); break;
    case DiskAct::kMoved: OnMoved(event, false); break;
    case DiskAct::kWritten:
      transcript_.Add(
          settings_ != nullptr && IsIn(event.path, settings_->InProcessFolder) ? "split" : "written",
          ShownPath(event.path));
      break;
    case DiskAct::kRemoved: transcript_.Add("deleted", ShownPath(event.path)); break;
    case DiskAct::kAttributesCleared:
      transcript_.Add("file", ShownPath(event.path) + " made writable");
      break;
    case DiskAct::kFolderMade: transcript_.Add("folder", ShownPath(event.path) + " made"); break;
    case DiskAct::kFolderRenamed:
      transcript_.Add("folder", ShownPath(event.path) + " renamed " + ShownPath(event.target));
      break;
  }
}

void DiskWatch::OnAppended(const DiskEvent& event) {
  const std::string name = ToUpperAscii(FileNameOf(event.path));
  const std::string text = Printable(WithoutStamp(event.text));
  if (name == "LOG.TXT")
    transcript_.Add("log", text);
  else if (name == "ERR.TXT" || name == "ERROR.TXT")
    transcript_.Add("error", text);
  else
    transcript_.Add("file", ShownPath(event.path) + " longer by \"" + text + "\"");
}

void DiskWatch::OnMoved(const DiskEvent& event, bool copied) {
  const std::string how = copied ? " (a copy)" : "";
  const AppSettings none;
  const AppSettings& settings = settings_ == nullptr ? none : *settings_;
  if (IsIn(event.path, settings.TicketFolder) && IsIn(event.target, settings.InProcessFolder)) {
    transcript_.Add("taken", FileNameOf(event.path) + how);
  } else if (IsIn(event.path, settings.InProcessFolder) && IsIn(event.target, settings.HistoricFolder)) {
    transcript_.Add("archived", FileNameOf(event.path) + " as " + ShownPath(event.target) + how);
  } else if (IsIn(event.path, settings.InProcessFolder) && IsIn(event.target, settings.AbortFolder)) {
    transcript_.Add("aborted", FileNameOf(event.path) + " as " + ShownPath(event.target) + how);
  } else {
    transcript_.Add(copied ? "copied" : "moved", ShownPath(event.path) + " to " + ShownPath(event.target));
  }
}

}  // namespace orvenza
