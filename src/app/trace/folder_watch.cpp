#include "app/trace/folder_watch.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "app/trace/trace_mask.h"
#include "app/trace/transcript_text.h"
#include "core/folder_path.h"
#include "core/text.h"

namespace orvenza {
namespace {

constexpr const char* kRemembered = "REMEMBERED.INI";

std::string FolderOf(std::string_view path) { return std::string(path.substr(0, path.rfind('\\') + 1)); }

/// The digest of a text tells whether it was guessed right. It is the third word of a value.
void BlankDigests(std::vector<std::string>& lines) {
  for (std::string& line : lines) {
    std::size_t word = line.find('=');
    for (int i = 0; i < 2 && word != std::string::npos; ++i) word = line.find(' ', word + 1);
    if (word == std::string::npos) continue;
    const std::size_t end = line.find(' ', word + 1);
    if (end != std::string::npos) line.replace(word + 1, end - word - 1, "0");
  }
}

}  // namespace

FolderWatch::FolderWatch(Trace& trace, const ProgramPaths& paths) : trace_(trace), paths_(paths) {}

bool FolderWatch::IsTicketPlace(std::string_view folder) const {
  return settings_ != nullptr && !folder.empty() &&
         (folder == settings_->TicketFolder || folder == settings_->InProcessFolder);
}

void FolderWatch::OnListing(const std::string& pattern, const FolderListing& listing) {
  const std::string folder = FolderOf(pattern);
  if (!IsTicketPlace(folder) || pattern.substr(folder.size()) != settings_->TicketMask) return;
  SeenFiles& before = seen_[folder];
  SeenFiles now;
  for (const FolderEntry& entry : listing) {
    if (entry.isFolder || IsOwn(folder + entry.name)) continue;
    const SeenFile file{FixedStamp(entry.modified), entry.attributes.find('R') != std::string::npos};
    now[entry.name] = file;
    const auto known = before.find(entry.name);
    const bool isNews = known == before.end() ||
                        (!known->second.modified.empty() && (known->second.modified != file.modified ||
                                                             known->second.readOnly != file.readOnly));
    if (isNews) Tell(folder + entry.name, file);
  }
  for (const auto& [name, file] : before) {
    if (now.contains(name)) continue;
    read_.erase(Key(folder + name));
    trace_.Add("gone", ShownPath(folder + name, paths_.AppPath));
  }
  before = std::move(now);
}

void FolderWatch::OnMissing(const std::string& path) {
  const auto folder = seen_.find(FolderOf(path));
  if (folder == seen_.end() || folder->second.erase(FileNameOf(path)) == 0) return;
  read_.erase(Key(path));
  trace_.Add("gone", ShownPath(path, paths_.AppPath));
}

void FolderWatch::Tell(const std::string& path, const SeenFile& file) {
  trace_.Add("seen",
             ShownPath(path, paths_.AppPath) + " of " + file.modified + (file.readOnly ? ", read-only" : ""));
}

void FolderWatch::OnDisk(const DiskEvent& event) {
  const auto forget = [this](std::string_view path) {
    read_.erase(Key(path));
    if (const auto folder = seen_.find(FolderOf(path)); folder != seen_.end())
      folder->second.erase(FileNameOf(path));
  };
  const auto note = [this](std::string_view path) {
    if (IsTicketPlace(FolderOf(path))) seen_[FolderOf(path)][FileNameOf(path)] = {};
  };
  switch (event.act) {
    case DiskAct::kMoved:
      forget(event.path);
      note(event.target);
      break;
    case DiskAct::kCopied: note(event.target); break;
    case DiskAct::kWritten: note(event.path); break;
    case DiskAct::kRemoved: forget(event.path); break;
    case DiskAct::kAppended:
    case DiskAct::kAttributesCleared:
    case DiskAct::kFolderMade:
    case DiskAct::kFolderRenamed: break;
  }
}

std::string FolderWatch::Key(std::string_view path) const {
  return ToUpperAscii(ShownPath(path, paths_.AppPath));
}

bool FolderWatch::IsReadOnly(const std::string& path) const {
  const auto folder = seen_.find(FolderOf(path));
  if (folder == seen_.end()) return false;
  const auto file = folder->second.find(FileNameOf(path));
  return file != folder->second.end() && file->second.readOnly;
}

bool FolderWatch::IsOwn(std::string_view path) const {
  static const std::set<std::string> kOwn{"COMMAND.TXT", "REMEMBERED.INI", "LOG.TXT",   "LOG.BAK",
                                          "ERR.TXT",     "ERR.BAK",        "ERROR.TXT", "ERROR.BAK"};
  return kOwn.contains(Key(path));
}

bool FolderWatch::IsTicket(const std::string& path) const {
  return IsTicketPlace(FolderOf(path)) && !IsOwn(path);
}

bool FolderWatch::WantsContent(const std::string& path) const {
  static const std::set<std::string> kWanted{"COMMAND.TXT", kRemembered, "ERRDESC.INI"};
  return kWanted.contains(Key(path)) || IsTicket(path);
}

void FolderWatch::OnRead(const std::string& path, std::string_view content) {
  const std::size_t digest = std::hash<std::string_view>()(content);
  const auto [known, isNew] = read_.try_emplace(Key(path), digest);
  if (!isNew && std::exchange(known->second, digest) == digest) return;
  const bool ofTickets = IsTicket(path);
  const char separator = settings_ == nullptr ? '\0' : settings_->SeparatorChar;
  const bool cut = content.size() > kLongestContent;
  std::vector<std::string> lines =
      ContentLines(content.substr(0, kLongestContent), ofTickets ? &separator : nullptr);
  if (Key(path) == kRemembered) BlankDigests(lines);
  trace_.AddWithLines("read", ShownPath(path, paths_.AppPath) + (cut ? ", its beginning" : ""), lines);
}

}  // namespace orvenza
