#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/profile_file.h"

namespace orvenza {

/// A settings file that never changes: what is written to it is kept here, and read back from here. It notes
/// what it was asked. It stands for one file, whatever path it is given.
class RecordingProfile : public ProfileFile {
 public:
  /// One key that was read.
  struct Asked {
    ProfileValue value;  ///< With the text that was found; empty where it is missing.
    bool missing = false;
  };

  /// Stands before `behind`, which must outlive it.
  explicit RecordingProfile(const ProfileContent& behind) : behind_(behind) {}

  /// What it returns notes what it is asked, and must not outlive this.
  std::unique_ptr<ProfileContent> Load(const std::string& path) const override;
  void Write(const std::string& path, const std::string& section, const std::string& key,
             const std::string& value) override;
  void WriteAll(const std::vector<ProfileValue>& values);

  /// In the order in which they were first asked for; of a key asked for twice, the last answer.
  const std::vector<Asked>& AllAsked() const { return asked_; }
  /// In the order in which they were first written; of a key written twice, the last value.
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
