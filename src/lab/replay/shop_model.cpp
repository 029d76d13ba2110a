#include "lab/replay/shop_model.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "app/trace/trace_mask.h"
#include "core/folder_path.h"
#include "core/text.h"
#include "lab/rehearsal/first_files.h"
#include "lab/replay/attempt.h"

namespace orvenza {
namespace {

using std::chrono::milliseconds;

constexpr std::string_view kOf = " of ";
constexpr std::string_view kReadOnly = ", read-only";
constexpr std::string_view kCopy = " (a copy)";
constexpr std::size_t kDateLength = 19;

bool TakeEnd(std::string& text, std::string_view end) {
  const bool has = text.ends_with(end);
  if (has) text.erase(text.size() - end.size());
  return has;
}

/// Compares two dates "dd/mm/yyyy hh:mm:ss".
bool IsEarlier(const std::string& a, const std::string& b) {
  const auto key = [](const std::string& date) {
    return date.substr(6, 4) + date.substr(3, 2) + date.substr(0, 2) + date.substr(11);
  };
  return a.size() == kDateLength && b.size() == kDateLength && key(a) < key(b);
}

std::vector<std::string> LinesOf(const std::string& text) { return ContentLines(text, nullptr); }

}  // namespace

ShopModel::File* ShopModel::Find(const std::string& path) {
  const auto found = files_.find(ToUpperAscii(path));
  return found == files_.end() ? nullptr : &found->second;
}

ShopModel::File& ShopModel::At(const std::string& path) {
  spelled_[ToUpperAscii(path)] = path;
  return files_[ToUpperAscii(path)];
}

void ShopModel::Forget(const std::string& path) { files_.erase(ToUpperAscii(path)); }

void ShopModel::Add(milliseconds passed, const std::string& line) {
  if (!recording_) return;
  if (passed <= start_)
    scenario_.AddState(line);
  else
    scenario_.AddEvent(passed - start_, line);
}

/// A file that another program wrote. Its content may follow.
void ShopModel::Put(milliseconds passed, const std::string& path, File& file) {
  file.own = false;
  file.content = std::make_shared<FileContent>();
  if (!recording_) return;
  const std::string head = "file " + Named(path) + (file.modified.empty() ? "" : " of " + file.modified);
  // What the first listing shows and is older than the start was there before.
  const bool before =
      atStart_ && ticks_ <= 1 && !file.modified.empty() && IsEarlier(file.modified, startStamp_);
  if (before || passed <= start_)
    scenario_.AddFile(head, file.content);
  else
    scenario_.AddFileAt(passed - start_, head, file.content);
}

void ShopModel::Take(const TracedEvent& event) {
  const std::string& kind = event.kind;
  if (kind == "tick") ++ticks_;
  if (kind == "seen") OnSeen(event);
  if (kind == "gone") OnGone(event);
  if (kind == "read") OnRead(event);
  if (kind == "taken") OnTaken(event);
  if (kind == "archived" || kind == "aborted") OnStored(event);
  if (kind == "copied" || kind == "moved") OnMoved(event);
  if (kind == "deleted") OnDeleted(event);
  if (kind == "folder") OnFolder(event);
  if (kind == "failed") OnFailed(event);
  if (kind == "works") OnWorks(event);
  if (kind == "log") At("Log.txt").own = true;
  if (kind == "error") At("Err.txt").own = true;
  if (kind == "written" || kind == "split") {
    const std::string path = settings_.Path(event.text);
    Release(event.passed, path);
    // The first start of a shop that lacks the file.
    const bool new_ = Find(path) == nullptr && ToUpperAscii(path) == "ERRDESC.INI";
    if (new_ && recording_ && atStart_) scenario_.AddState("remove " + path);
    At(path) = {{}, {}, true};
  }
}

void ShopModel::OnSeen(const TracedEvent& event) {
  std::string text = event.text;
  const bool readOnly = TakeEnd(text, kReadOnly);
  const auto [shown, modified] = SplitAt(text, kOf);
  if (modified.size() != kDateLength) return;
  const std::string path = settings_.Path(shown);
  const File* const known = Find(path);
  const bool same = known != nullptr && !known->own && known->modified == modified;
  File& file = At(path);
  if (!same) {
    file = {modified, {}, false};
    Put(event.passed, path, file);
  }
  if (readOnly && !file.readOnly) Add(event.passed, "read-only " + path);
  file.readOnly = readOnly;
}

void ShopModel::OnGone(const TracedEvent& event) {
  const std::string path = settings_.Path(event.text);
  Release(event.passed, path);
  if (Find(path) != nullptr) Add(event.passed, "remove " + path);
  Forget(path);
}

void ShopModel::OnRead(const TracedEvent& event) {
  std::string text = event.text;
  TakeEnd(text, ", its beginning");
  const std::string path = settings_.Path(text);
  const std::string name = ToUpperAscii(path);
  if (name == "COMMAND.TXT" || name == "REMEMBERED.INI" || name == "ERRDESC.INI")
    return OnOwnRead(event, path);
  File* file = Find(path);
  if (file == nullptr) {
    file = &At(path);
    Put(event.passed, path, *file);
  }
  if (file->own) {
    file->content = std::make_shared<FileContent>();
  } else if (!file->content || (file->content->known && file->content->lines != event.lines)) {
    Put(event.passed, path, *file);
  }
  *file->content = {true, event.lines};
}

/// Files that are read without being listed.
void ShopModel::OnOwnRead(const TracedEvent& event, const std::string& path) {
  const std::string name = ToUpperAscii(path);
  const bool quits =
      name == "COMMAND.TXT" && event.lines.size() == 1 && ToUpperAscii(event.lines[0]) == "QUIT";
  const File* const known = Find(path);
  if (known != nullptr && known->own) return;
  if (known != nullptr && known->content && !known->content->known) {
    *known->content = {true, event.lines};
    return;
  }
  if (known != nullptr && known->content && known->content->lines == event.lines) return;
  File& file = At(path);
  file.content = std::make_shared<FileContent>(FileContent{true, event.lines});
  if (!recording_) return;
  if (quits && event.passed > start_) return scenario_.AddEvent(event.passed - start_, "quit");
  if (name == "ERRDESC.INI" && event.lines == LinesOf(FilesOfAFirstStart().errDesc)) return;
  const bool before = known == nullptr && name != "COMMAND.TXT";
  if (name == "REMEMBERED.INI")
    scenario_.Comment(
        "The trace has no digests of texts, so a remembered ticket that is still there is printed again.");
  if (before || event.passed <= start_)
    scenario_.AddFile("file " + path, file.content);
  else
    scenario_.AddFileAt(event.passed - start_, "file " + path, file.content);
}

void ShopModel::OnTaken(const TracedEvent& event) {
  std::string name = event.text;
  const bool copied = TakeEnd(name, kCopy);
  const std::string from = settings_.Tickets() + name;
  if (Find(from) == nullptr) Put(event.passed, from, At(from));
  if (!copied) Release(event.passed, from);
  File taken = *Find(from);
  taken.hold = Hold::kNone;
  if (!copied) Forget(from);
  At(settings_.InProcess() + name) = taken;
}

void ShopModel::OnStored(const TracedEvent& event) {
  std::string text = event.text;
  const bool copied = TakeEnd(text, kCopy);
  const auto [name, shown] = SplitAt(text, " as ");
  const std::string path = settings_.Path(shown);
  const std::string from = settings_.InProcess() + name;
  if (!copied) Release(event.passed, from);
  if (!copied) Forget(from);
  if (event.kind == "archived" && recording_) {
    const std::string folder = path.substr(0, path.rfind('\\') + 1);
    AddFolder(folder);
    AddNumbersBefore(folder, LeadingInteger(FileNameOf(path)), path.substr(path.rfind('.')));
  }
  At(path) = {{}, {}, true};
}

/// Archived tickets are numbered on from the largest number. A number that is skipped is a folder's.
void ShopModel::AddNumbersBefore(const std::string& folder, int number, const std::string& extension) {
  const auto path = [&](int i) { return folder + std::to_string(i) + extension; };
  int latest = number - 1;
  while (latest > 0 && Find(path(latest)) == nullptr) --latest;
  if (latest == 0 && number > 1) {
    scenario_.AddState("file " + Named(path(number - 1)));
    At(path(number - 1)).own = true;
  }
  for (int i = latest + 1; latest > 0 && i < number; ++i) {
    scenario_.AddState("folder " + path(i));
    At(path(i)).own = true;
  }
}

void ShopModel::OnMoved(const TracedEvent& event) {
  const auto [shownFrom, shownTo] = SplitAt(event.text, " to ");
  const std::string from = settings_.Path(shownFrom);
  const std::string to = settings_.Path(shownTo);
  const bool log = ToUpperAscii(from).ends_with("LOG.TXT") || ToUpperAscii(from).ends_with("ERR.TXT");
  if (Find(from) == nullptr && recording_ && !log) scenario_.AddState("file " + Named(from));
  if (event.kind == "moved") Forget(from);
  At(to) = {{}, {}, true};
}

void ShopModel::OnDeleted(const TracedEvent& event) {
  const std::string path = settings_.Path(event.text);
  Release(event.passed, path);
  Forget(path);
}

/// A folder that is not missing at the start, unless it is one of a first start.
void ShopModel::AddFolder(const std::string& folder) {
  const std::string name = ToUpperAscii(WithoutEnd(folder));
  if (name.empty() || !folders_.insert(name).second) return;
  if (name != "DATA" && name != "DATA\\INPROCES" && name != "DATA\\ABORT")
    scenario_.AddState("folder " + WithoutEnd(folder));
}

void ShopModel::OnFolder(const TracedEvent& event) {
  const auto [from, to] = SplitAt(event.text, " renamed ");
  if (!to.empty()) return OnRotated(event, settings_.Path(from), settings_.Path(to));
  std::string path = event.text;
  if (!TakeEnd(path, " made")) return;
  path = WithoutEnd(settings_.Path(path));
  const std::string name = ToUpperAscii(path);
  const bool usual = name == "DATA" || name == "DATA\\INPROCES" || name == "DATA\\ABORT";
  const bool wasThere = folders_.contains(name) || (usual && atStart_ && recording_);
  if (wasThere && !removed_.contains(name)) {
    if (ticks_ == 0 && recording_)
      scenario_.AddState("remove " + path);
    else
      Add(event.passed, "remove " + path);
    if (name == "DATA") removed_ = {"DATA\\INPROCES", "DATA\\ABORT"};
  }
  removed_.erase(name);
  folders_.insert(name);
}

/// The rotation names the folder after the day of its newest ticket.
void ShopModel::OnRotated(const TracedEvent&, const std::string& from, const std::string& to) {
  const std::string folder = WithoutEnd(from);
  const std::string day = WithoutEnd(to).substr(std::min(folder.size(), WithoutEnd(to).size()));
  const std::string prefix = ToUpperAscii(folder) + "\\";
  const bool known = std::any_of(files_.begin(), files_.end(),
                                 [&](const auto& file) { return file.first.starts_with(prefix); });
  std::erase_if(files_, [&](const auto& file) { return file.first.starts_with(prefix); });
  folders_.erase(ToUpperAscii(folder));
  if (!recording_ || day.size() < 9) return;
  const std::string ticket = "file " + folder + "\\1.txt of " + day.substr(7, 2) + "/" + day.substr(5, 2) +
                             "/" + day.substr(1, 4) + " 12:00:00";
  if (!notRotated_.empty()) return scenario_.Replace(std::exchange(notRotated_, {}), ticket);
  if (known) return;
  scenario_.AddState(day.starts_with("_1899") ? "folder " + folder : ticket);
  if (day.size() > 9) scenario_.AddState("folder " + folder + day.substr(0, 9));
}

void ShopModel::Begin(milliseconds start, const std::string& stamp, bool atStart) {
  recording_ = true;
  atStart_ = atStart;
  start_ = start;
  startStamp_ = stamp;
  ticks_ = atStart ? 0 : 2;
  folders_.clear();
  if (Find("Remembered.ini") != nullptr && !Find("Remembered.ini")->content)
    scenario_.Comment("There was a Remembered.ini, whose content is not known.");
  // Without their content, the connector's own files have no effect except that of their names.
  std::erase_if(files_, [](const auto& file) { return file.second.own && !file.second.content; });
  for (auto& [name, file] : files_) {
    const std::string& path = spelled_[name];
    if (file.content)
      scenario_.AddFile("file " + Named(path) + (file.modified.empty() ? "" : " of " + file.modified),
                        file.content);
    if (file.readOnly) scenario_.AddState("read-only " + path);
    if (file.hold != Hold::kNone) scenario_.AddState((file.hold == Hold::kLocked ? "lock " : "hold ") + path);
  }
}

void ShopModel::End() {
  for (const std::string& folder : {settings_.Tickets(), settings_.InProcess(), settings_.Abort()}) {
    const auto fails = [&](const std::string& name) { return ToUpperAscii(folder).starts_with(name + "\\"); };
    if (std::none_of(failing_.begin(), failing_.end(), fails)) AddFolder(folder);
  }
  if (!atStart_) AddFolder(settings_.Historic());
}

}  // namespace orvenza
