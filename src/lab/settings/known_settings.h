#pragma once

#include <string>
#include <vector>

#include "platform/profile_file.h"

namespace orvenza {

/// The sections and keys that a settings file may contain. Letter case in names is ignored.
class KnownSettings {
 public:
  /// Those of a new file and the optional ones.
  KnownSettings();

  /// Those of `values`, and those that a new file lacks.
  explicit KnownSettings(std::vector<ProfileValue> values);

  /// In file order.
  std::vector<std::string> Sections() const;
  std::vector<std::string> Keys(const std::string& section) const;

  bool HasSection(const std::string& section) const;
  bool HasKey(const std::string& section, const std::string& key) const;

  /// The section that `key` belongs to; "" for none.
  std::string SectionOf(const std::string& key) const;

 private:
  std::vector<ProfileValue> values_;
};

}  // namespace orvenza
