#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/profile_file.h"

namespace orvenza {

/// A settings file that is never changed: written values are kept in memory and read back from there. It
/// records every access, and stands for one file, whatever path it is given.
class RecordingProfile : public ProfileFile {
 public:
  /// A key that was read.
  struct Asked {
    ProfileValue value;  ///< The text found; empty if the key is missing.
    bool missing = false;
  };

  /// Reads from `behind`, which must outlive it.
  explicit RecordingProfile(const ProfileContent& behind) : behind_(behind) {}

  /// The returned content records its accesses in this object and must not outlive it.
  std::unique_ptr<ProfileContent> Load(const std::string& path) const override;
  void Write(const std::string& path, const std::string& section, const std::string& key,
             const std::string& value) override;
  void WriteAll(const std::vector<ProfileValue>& values);

  /// In order of the first read. If a key is read twice, the last answer counts.
  const std::vector<Asked>& AllAsked() const { return asked_; }
  /// In order of the first write. If a key is written twice, the last value counts.
  const std::vector<ProfileValue>& AllWritten() const { return written_; }

 private:
  class Content;

  const ProfileValue* FindWritten(const std::string& section, const std::string& key) const;
  void Note(const Asked& asked) const;

  const ProfileContent& behind_;
  mutable std::vector<Asked> asked_;
  std::vector<ProfileValue> written_;
};

}  // namespace orvenza
