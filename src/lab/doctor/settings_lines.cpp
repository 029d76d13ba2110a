#include "lab/doctor/settings_lines.h"

#include <algorithm>
#include <optional>
#include <set>

#include "core/arguments.h"
#include "core/text.h"
#include "lab/settings/known_settings.h"
#include "lab/shell/wording.h"

namespace orvenza {
namespace {

constexpr std::size_t kMostNumbers = 5;

std::string At(const IniLine& line, const char* what) {
  return "Line " + std::to_string(line.number) + ": " + what + Quoted(ToUtf8(line.name));
}

/// A hint ends in a question mark, which ends the sentence.
std::string Sentence(const std::string& text, const std::string& hint) {
  return text + (hint.empty() ? "." : hint);
}

/// Visits the lines in order, the way the connector looks for its keys.
class LineWalk {
 public:
  LineWalk(const KnownSettings& known, Findings& findings) : known_(known), findings_(findings) {}

  void Take(const IniLine& line) {
    if (line.kind == IniLine::Kind::kSection) {
      TakeSection(line);
    } else if (line.kind == IniLine::Kind::kEntry && section_) {
      if (isRead_) TakeEntry(line);
    } else {
      meaningless_.push_back(line.number);
    }
  }

  void End() {
    if (meaningless_.empty()) return;
    std::string numbers;
    for (std::size_t i = 0; i < std::min(meaningless_.size(), kMostNumbers); ++i) {
      numbers += (i == 0 ? "" : ", ") + std::to_string(meaningless_[i]);
    }
    if (meaningless_.size() > kMostNumbers) {
      numbers += " and " + std::to_string(meaningless_.size() - kMostNumbers) + " more";
    }
    Add("settings.line",
        "No section, and no key of one, stands in " +
            std::string(meaningless_.size() == 1 ? "line " : "lines ") + numbers + ".",
        "Remove what is no setting, or begin a remark with \";\".");
  }

 private:
  void TakeSection(const IniLine& line) {
    section_ = line.name;
    const std::string is = At(line, "section ");
    isRead_ = false;
    if (!known_.HasSection(line.name)) {
      Add("settings.unknown", Sentence(is + " is never read", Hint(line.name, known_.Sections())),
          "Correct its name, or remove it.");
    } else if (!sections_.insert(ToUpperAscii(line.name)).second) {
      Add("settings.duplicate", is + " is there already; what follows is never read.",
          "Move its keys to the first section of that name.");
    } else {
      isRead_ = true;
    }
  }

  void TakeEntry(const IniLine& line) {
    const std::string is = At(line, "");
    if (!known_.HasKey(*section_, line.name)) {
      const std::string fact = is + " is no key of [" + *section_ + "]";
      const std::string place = known_.SectionOf(line.name);
      Add("settings.unknown",
          place.empty() ? Sentence(fact, Hint(line.name, known_.Keys(*section_)))
                        : fact + "; it belongs in [" + place + "].",
          "Correct it, or remove it.");
    } else if (!keys_.insert(ToUpperAscii(*section_) + "\n" + ToUpperAscii(line.name)).second) {
      Add("settings.duplicate", is + " is there already; this one is never read.", "Remove one of them.");
    }
  }

  void Add(const char* code, std::string fact, std::string remedy) {
    findings_.push_back({Severity::kWarning, code, std::move(fact), std::move(remedy)});
  }

  const KnownSettings& known_;
  Findings& findings_;
  std::optional<std::string> section_;
  bool isRead_ = false;  // of the current section
  std::set<std::string> sections_;
  std::set<std::string> keys_;
  std::vector<std::size_t> meaningless_;
};

}  // namespace

Findings FindInLines(const SettingsReview& review) {
  Findings findings;
  if (IniText(review.content).HoldsNul()) {
    findings.push_back({Severity::kWarning, "settings.encoding",
                        "The settings hold characters with the code 0, as a damaged file does.",
                        "Restore the file from a copy."});
  }
  const KnownSettings known;
  LineWalk walk(known, findings);
  for (const IniLine& line : review.lines) walk.Take(line);
  walk.End();
  return findings;
}

}  // namespace orvenza
