#pragma once

#include <string>
#include <vector>

#include "platform/profile_file.h"

namespace orvenza {

/// A settings file that is read but never changed: what is written to it is kept here, and read back from
/// here. It notes what it was asked. It stands for one file, whatever path it is given.
class RecordingProfile : public ProfileFile {
 public:
  struct Value {
    std::string section;
    std::string key;
    std::string text;
  };

  /// One key that was read.
  struct Asked {
    Value value;           ///< With the text that was found, or else the fallback.
    bool missing = false;  ///< The fallback was used.
  };

  /// Stands before `behind`, which must outlive it; null for a file with nothing in it.
  explicit RecordingProfile(const ProfileFile* behind) : behind_(behind) {}

  std::string Read(const std::string& path, const std::string& section, const std::string& key,
                   const std::string& fallback) const override;
  void Write(const std::string& path, const std::string& section, const std::string& key,
             const std::string& value) override;

  /// In the order in which they were first asked for; of a key asked for twice, the last answer.
  const std::vector<Asked>& AllAsked() const { return asked_; }
  /// In the order in which they were first written; of a key written twice, the last value.
  const std::vector<Value>& AllWritten() const { return written_; }

 private:
  Asked Look(const std::string& path, const std::string& section, const std::string& key,
             const std::string& fallback) const;

  const ProfileFile* behind_;
  mutable std::vector<Asked> asked_;
  std::vector<Value> written_;
};

}  // namespace orvenza
