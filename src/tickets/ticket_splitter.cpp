#include "tickets/ticket_splitter.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "core/text.h"
#include "platform/name_mask.h"
#include "platform/system_error.h"
#include "tickets/line_reader.h"
#include "tickets/record.h"
#include "tickets/ticket_boundary.h"

namespace orvenza {
namespace {

/// The error log's label for the preparation of a file during a tick.
constexpr const char* kLabel = "Timer1 - ";

/// Builds a part's name from its source's name.
using PartNaming = std::string (*)(const std::string& name, int number);

std::string NumberedBehind(const std::string& name, int number) {
  const std::size_t point = std::min(name.rfind('.'), name.size());
  return name.substr(0, point) + std::to_string(number) + name.substr(point);
}

std::string NumberedBefore(const std::string& name, int number) { return std::to_string(number) + name; }

/// The naming that makes every part visible as a ticket; null when there is none. All parts use the same,
/// since their names decide the order of printing.
PartNaming NamingOf(const std::string& name, const std::string& mask) {
  for (const PartNaming naming : {NumberedBehind, NumberedBefore}) {
    int number = 1;
    while (number <= TicketSplitter::kMostParts && MatchesMask(naming(name, number), mask)) ++number;
    if (number > TicketSplitter::kMostParts) return naming;
  }
  return nullptr;
}

/// Start of the name in a path; 0 for a plain name.
std::size_t NameStart(const std::string& path) { return path.rfind('\\') + 1; }

/// Lines without text, such as the single character 26 that old programs write at the end of a file.
bool IsEmptyLine(std::string_view line) {
  RecordFields fields;
  SplitRecord(line, '\0', fields);
  return fields.IsEmpty();
}

bool NextLine(LineReader& reader, std::string& line) {
  while (reader.ReadLine(line)) {
    if (!IsEmptyLine(line)) return true;
  }
  return false;
}

/// Writes the parts, and removes them unless they are kept.
class PartFiles {
 public:
  PartFiles(Files& files, const TicketArchive& archive, const std::string& source, PartNaming naming,
            const BetweenPieces& between, bool witnessed)
      : files_(files),
        archive_(archive),
        witnessed_(witnessed),
        folder_(source.substr(0, NameStart(source))),
        name_(source.substr(NameStart(source))),
        naming_(naming),
        between_(between) {}
  ~PartFiles() {
    for (const SplitPart& part : written_) Discard(part.path);
  }
  PartFiles(const PartFiles&) = delete;
  PartFiles& operator=(const PartFiles&) = delete;

  void Write(const std::string& content) {
    const std::string path = NextFreePath(content);
    written_.push_back({path, witnessed_ ? FingerprintOf(content) : Fingerprint{}});
    files_.Write(path, content);
  }
  [[nodiscard]] const std::vector<SplitPart>& Written() const { return written_; }
  void Keep() { written_.clear(); }

 private:
  /// An existing file of that name is another ticket and must not be lost, unless an interrupted split left
  /// it.
  std::string NextFreePath(const std::string& content) {
    for (;;) {
      const std::string path = folder_ + naming_(name_, ++number_);
      if (!files_.Exists(path)) return path;
      if (!archive_.IsSettled(path) && ReadInPieces(files_, path, between_) == content) return path;
    }
  }

  void Discard(const std::string& path) {
    try {
      if (files_.Exists(path)) files_.Remove(path);
    } catch (const SystemError&) {
      // The part stays, and the next attempt finds it with the same content.
    }
  }

  Files& files_;
  const TicketArchive& archive_;
  bool witnessed_;
  std::string folder_;
  std::string name_;
  PartNaming naming_;
  BetweenPieces between_;
  int number_ = 0;
  std::vector<SplitPart> written_;
};

}  // namespace

bool CanNameParts(const std::string& name, const std::string& mask) {
  return NamingOf(name, mask) != nullptr;
}

bool TicketSplitter::SplitTicketFile(const std::string& path, const BetweenPieces& between) {
  if (!settings_.FileParser || !HoldsSecondTicket(path, between)) return false;
  const PartNaming naming = NamingOf(path.substr(NameStart(path)), settings_.TicketMask);
  if (naming == nullptr) {
    LogUnnameable(path);
    return false;
  }
  PartFiles parts(files_, archive_, path, naming, between, !witness_.Empty());
  int count = 1;
  {
    LineReader reader(std::make_unique<PieceReader>(files_.OpenForReading(path), between));
    TicketBoundary boundary(settings_.SeparatorChar);
    std::string part;
    for (std::string line; NextLine(reader, line);) {
      if (boundary.Begins(line) && count < kMostParts) {
        parts.Write(part);
        part.clear();
        // The last part may be nearly the whole file: growing would need twice the memory.
        if (++count == kMostParts) part.reserve(static_cast<std::size_t>(files_.Size(path)));
      }
      part.append(line).append(kLineBreak);
    }
    parts.Write(part);
  }
  witness_.Splitting(path, parts.Written());
  RemoveReadOnlyToo(files_, path);
  witness_.Split(path, parts.Written());
  parts.Keep();
  return true;
}

bool TicketSplitter::WouldSplit(const std::string& path, const BetweenPieces& between) const {
  if (!settings_.FileParser || !CanNameParts(path.substr(NameStart(path)), settings_.TicketMask))
    return false;
  try {
    return HoldsSecondTicket(path, between);
  } catch (const SystemError&) {
    return true;
  }
}

bool TicketSplitter::HoldsSecondTicket(const std::string& path, const BetweenPieces& between) const {
  LineReader reader(std::make_unique<PieceReader>(files_.OpenForReading(path), between));
  TicketBoundary boundary(settings_.SeparatorChar);
  for (std::string line; NextLine(reader, line);) {
    if (boundary.Begins(line)) return true;
  }
  return false;
}

void TicketSplitter::LogUnnameable(const std::string& path) {
  const std::size_t nameAt = NameStart(path);
  const SystemError failure(error_number::kBadFileName,
                            path.substr(0, nameAt) + NumberedBehind(path.substr(nameAt), 1));
  logs_.WrFailure(kLabel, failure.Number(), failure.Description());
}

}  // namespace orvenza
