#pragma once

#include "platform/files.h"

namespace orvenza {

/// The files of a POSIX system. Reading or copying anything but a regular file fails with error 75, so that a
/// pipe or a device in a folder never blocks the connector.
class PosixFiles : public Files {
 public:
  bool Exists(const std::string& path) const override;
  std::uintmax_t Size(const std::string& path) const override;
  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override;
  void Append(const std::string& path, std::string_view text) override;
  void Write(const std::string& path, std::string_view content) override;
  void Copy(const std::string& from, const std::string& to) override;
  void Move(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;
  /// Makes the file writable for its owner.
  void ClearAttributes(const std::string& path) override;
  void CopyModified(const std::string& from, const std::string& to) override;
};

}  // namespace orvenza
