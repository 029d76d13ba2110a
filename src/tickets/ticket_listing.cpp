#include "tickets/ticket_listing.h"

#include <algorithm>
#include <utility>

#include "core/folder_path.h"
#include "core/text.h"

namespace orvenza {
namespace {

constexpr std::size_t kStampLength = TicketListing::kStampLength;

/// The sort key of an entry. Small letters are used because a closure request's name consists of "z" and must
/// also come after "_"; all other characters sort before that letter. Numbers are compared by length without
/// leading zeros, then by digits.
std::string SortKey(std::string_view entry) {
  constexpr std::string_view kDigits = "0123456789";
  std::string key(entry.substr(0, kStampLength));
  for (std::string_view rest = entry.substr(kStampLength); !rest.empty();) {
    if (const std::size_t digits = std::min(rest.find_first_not_of(kDigits), rest.size()); digits > 0) {
      const std::string_view number = WithoutLeadingZeros(rest.substr(0, digits));
      key += '0';
      key += static_cast<char>(number.size());
      key += number;
      rest.remove_prefix(digits);
      continue;
    }
    const char c = rest.front();
    if (static_cast<unsigned char>(c) > 'z') key += "y\x7F";
    key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    rest.remove_prefix(1);
  }
  return key;
}

}  // namespace

TicketListing::SortedList TicketListing::Read(const std::string& folder) const {
  const FolderListing files = folders_.ListFolder(folder + settings_.TicketMask);
  if (files.empty()) return {};
  const std::vector<std::string> own = OwnNames(folder);
  const auto isOwn = [&](const std::string& name) {
    return !own.empty() && std::find(own.begin(), own.end(), ToUpperAscii(name)) != own.end();
  };
  std::vector<std::pair<std::string, std::string>> keyed;  // sort key and entry
  for (const FolderEntry& file : files) {
    if (file.isFolder || isOwn(file.name)) continue;
    std::string entry = DateDigits(file.modified) + TimeDigits(file.modified) + file.name;
    keyed.emplace_back(SortKey(entry), std::move(entry));
  }
  std::sort(keyed.begin(), keyed.end());
  SortedList list;
  list.reserve(keyed.size());
  for (auto& [key, entry] : keyed) list.push_back(std::move(entry));
  return list;
}

std::string TicketListing::NameOf(const std::string& entry) { return entry.substr(kStampLength); }

bool TicketListing::IsOlder(std::string_view entry, std::string_view other) {
  return SortKey(entry) < SortKey(other);
}

/// Names of the program's own files in `folder`, in capitals.
std::vector<std::string> TicketListing::OwnNames(const std::string& folder) const {
  const std::string place = NormalisedFolder(folder);
  std::vector<std::string> paths = logs_.Paths();
  paths.insert(paths.end(), {settings_.CommandFilePath, settings_.EvidencePath, rememberedFiles_});
  std::vector<std::string> names;
  for (const std::string& path : paths) {
    const std::size_t name = path.rfind('\\') + 1;
    if (NormalisedFolder(path.substr(0, name)) == place) names.push_back(ToUpperAscii(path.substr(name)));
  }
  return names;
}

}  // namespace orvenza
