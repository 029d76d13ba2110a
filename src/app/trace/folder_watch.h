#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "app/trace/trace.h"
#include "core/settings.h"
#include "platform/folders.h"
#include "simulator/virtual_disk.h"

namespace orvenza {

/// Records the tickets that come and go in the folders, as the connector's listings show them, and what is in
/// them when they are read.
class FolderWatch {
 public:
  /// From a longer file only the beginning is recorded.
  static constexpr std::size_t kLongestContent = 64 * 1024;

  FolderWatch(Trace& trace, const ProgramPaths& paths);

  /// The connector's settings, once they exist. They must outlive the last call.
  void SetSettings(const AppSettings& settings) { settings_ = &settings; }

  /// A listing of the connector.
  void OnListing(const std::string& pattern, const FolderListing& listing);

  /// The connector has found that a file does not exist.
  void OnMissing(const std::string& path);

  /// What the connector did itself is no news in the next listing.
  void OnDisk(const DiskEvent& event);

  /// Whether the file lies in a folder of tickets and is none of the program's own.
  bool IsTicket(const std::string& path) const;

  /// Whether the content of this file is of interest.
  bool WantsContent(const std::string& path) const;

  /// The beginning of a file that was read to its end. Recorded if it is new.
  void OnRead(const std::string& path, std::string_view content);

  /// Whether the latest listing showed the file as read-only.
  bool IsReadOnly(const std::string& path) const;

 private:
  struct SeenFile {
    std::string modified;  ///< Empty if not known: the connector made it.
    bool readOnly = false;
  };
  using SeenFiles = std::map<std::string, SeenFile>;

  std::string Key(std::string_view path) const;
  bool IsTicketPlace(std::string_view folder) const;
  bool IsOwn(std::string_view path) const;
  void Tell(const std::string& path, const SeenFile& file);

  Trace& trace_;
  ProgramPaths paths_;
  const AppSettings* settings_ = nullptr;
  std::map<std::string, SeenFiles> seen_;    ///< By folder in the form of a listing, then by name.
  std::map<std::string, std::size_t> read_;  ///< Digests of the contents recorded, by path.
};

}  // namespace orvenza
