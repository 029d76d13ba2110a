#pragma once

#include "platform/files.h"

namespace orvenza {

/// What other programs may do with a file while it is read.
enum class WhileRead {
  kNoWriting,  ///< A file that another program has open for writing is neither read nor copied (error 70), so
               ///< that a ticket is always read complete.
  kEverything,  ///< Disturbs no other program, but may read an incomplete file.
};

/// The files of Windows. A file may be renamed or removed while it is read.
class WindowsFiles : public Files {
 public:
  explicit WindowsFiles(WhileRead others = WhileRead::kNoWriting) : others_(others) {}

  bool Exists(const std::string& path) const override;
  std::uintmax_t Size(const std::string& path) const override;
  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override;
  void Append(const std::string& path, std::string_view text) override;
  void Write(const std::string& path, std::string_view content) override;
  /// The copy gets the default attributes, so that a copy of a read-only file is writable.
  void Copy(const std::string& from, const std::string& to) override;
  void Move(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;
  void ClearAttributes(const std::string& path) override;
  void CopyModified(const std::string& from, const std::string& to) override;

 private:
  const WhileRead others_;
};

}  // namespace orvenza
