#include "platform/windows/unfinished_file.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_error.h"
#include "platform/windows/windows_paths.h"

namespace orvenza {
namespace {

/// Longest file name of the file systems, in UTF-16 units.
constexpr std::size_t kLongestName = 255;

/// Most bytes written at a time: some network drives refuse more.
constexpr std::size_t kPiece = 1024 * 1024;

std::wstring UnfinishedName(const std::wstring& nativeTarget) {
  const std::size_t nameAt = nativeTarget.find_last_of(L"\\/") + 1;  // npos + 1 is 0.
  const std::size_t room = kLongestName - kUnfinishedSuffix.size();
  return nativeTarget.substr(0, nameAt + room) + ToWide(kUnfinishedSuffix);
}

HANDLE CreateUnfinished(const std::wstring& native) {
  return ::CreateFileW(native.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

/// Moves the finished file into the target's place. A program that is reading the old target (a virus
/// scanner, an editor, the host) blocks this, but usually only for a moment.
bool Replace(const std::wstring& finished, const std::wstring& target, const std::function<void()>& pause) {
  constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  for (int tries = 1; !::MoveFileExW(finished.c_str(), target.c_str(), kHow); ++tries) {
    const DWORD code = ::GetLastError();
    const bool isHeld = code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED;
    if (!isHeld || tries == UnfinishedFile::kReplaceTries) return false;
    pause();
  }
  return true;
}

}  // namespace

bool WriteAll(HANDLE file, std::string_view text) {
  while (!text.empty()) {
    DWORD written = 0;
    const DWORD piece = static_cast<DWORD>(std::min(text.size(), kPiece));
    if (!::WriteFile(file, text.data(), piece, &written, nullptr)) return false;
    text.remove_prefix(written);
  }
  return true;
}

UnfinishedFile::UnfinishedFile(const std::string& target)
    : target_(target),
      nativeTarget_(NativePath(target)),
      native_(UnfinishedName(nativeTarget_)),
      file_(CreateUnfinished(native_)) {
  if (!file_.Valid()) ThrowFileError(::GetLastError(), target_);
}

UnfinishedFile::~UnfinishedFile() {
  file_.Reset();
  if (!native_.empty()) ::DeleteFileW(native_.c_str());
}

void UnfinishedFile::Add(std::string_view bytes) {
  if (!WriteAll(file_.Get(), bytes)) ThrowFileError(::GetLastError(), target_);
}

void UnfinishedFile::SetModified(const FILETIME& time) {
  if (!::SetFileTime(file_.Get(), nullptr, nullptr, &time)) ThrowFileError(::GetLastError(), target_);
}

void UnfinishedFile::Finish(const std::function<void()>& pause) {
  // The data must be on the disk before the file gets its name: the source may be removed next, and the power
  // may fail.
  if (!::FlushFileBuffers(file_.Get())) ThrowFileError(::GetLastError(), target_);
  file_.Reset();
  if (!Replace(native_, nativeTarget_, pause)) ThrowFileError(::GetLastError(), target_);
  native_.clear();
}

}  // namespace orvenza
