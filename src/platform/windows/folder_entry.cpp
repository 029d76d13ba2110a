#include "platform/windows/folder_entry.h"

#include <string_view>
#include <utility>

#include "platform/windows/local_times.h"

namespace orvenza {
namespace {

std::string AttributeLetters(DWORD attributes) {
  constexpr DWORD kFlags[] = {FILE_ATTRIBUTE_ARCHIVE, FILE_ATTRIBUTE_READONLY,   FILE_ATTRIBUTE_HIDDEN,
                              FILE_ATTRIBUTE_SYSTEM,  FILE_ATTRIBUTE_COMPRESSED, FILE_ATTRIBUTE_TEMPORARY};
  constexpr std::string_view kLetters = "ARHSCT";
  std::string letters(kLetters.size(), ' ');
  for (std::size_t i = 0; i < kLetters.size(); ++i) {
    if ((attributes & kFlags[i]) != 0) letters[i] = kLetters[i];
  }
  return letters;
}

}  // namespace

FolderEntry EntryOf(const WIN32_FIND_DATAW& data, std::string name) {
  FolderEntry entry;
  entry.name = std::move(name);
  entry.isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (!entry.isFolder) entry.size = (std::uintmax_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
  entry.created = FromFileTime(data.ftCreationTime);
  entry.accessed = FromFileTime(data.ftLastAccessTime);
  entry.modified = FromFileTime(data.ftLastWriteTime);
  entry.attributes = AttributeLetters(data.dwFileAttributes);
  return entry;
}

}  // namespace orvenza
