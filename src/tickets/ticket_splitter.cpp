#include "tickets/ticket_splitter.h"

#include <string_view>
#include <vector>

#include "core/text.h"
#include "platform/system_error.h"
#include "tickets/line_reader.h"
#include "tickets/record.h"
#include "tickets/ticket_boundary.h"

namespace orvenza {
namespace {

/// Lines without any text, such as the lone character 26 that old programs leave at the end of a file.
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

/// Writes the parts, and removes those it wrote when they are not kept.
class PartFiles {
 public:
  PartFiles(Files& files, const TicketArchive& archive, const std::string& source)
      : files_(files), archive_(archive) {
    const std::size_t nameAt = source.rfind('\\') + 1;  // npos + 1 is 0: a name alone
    const std::size_t point = source.rfind('.');
    const bool extended = point != std::string::npos && point >= nameAt;
    stem_ = source.substr(0, extended ? point : source.size());
    extension_ = extended ? source.substr(point) : std::string();
  }
  ~PartFiles() {
    for (const std::string& path : written_) Discard(path);
  }
  PartFiles(const PartFiles&) = delete;
  PartFiles& operator=(const PartFiles&) = delete;

  void Write(const std::string& content) {
    const std::string path = NextFreePath(content);
    written_.push_back(path);
    files_.Write(path, content);
  }
  void Keep() { written_.clear(); }

 private:
  /// A file of that name is another ticket and must not be lost, unless an interrupted split left it.
  std::string NextFreePath(const std::string& content) {
    for (;;) {
      const std::string path = stem_ + std::to_string(++number_) + extension_;
      if (!files_.Exists(path)) return path;
      if (!archive_.IsSettled(path) && ReadWhole(files_, path) == content) return path;
    }
  }

  void Discard(const std::string& path) {
    try {
      if (files_.Exists(path)) files_.Remove(path);
    } catch (const SystemError&) {
      // The part stays, and the next attempt finds it with the content it would write.
    }
  }

  Files& files_;
  const TicketArchive& archive_;
  std::string stem_;
  std::string extension_;
  int number_ = 0;
  std::vector<std::string> written_;
};

}  // namespace

bool TicketSplitter::SplitTicketFile(const std::string& path) {
  if (!settings_.FileParser || !HoldsSecondTicket(path)) return false;
  PartFiles parts(files_, archive_, path);
  int count = 1;
  {
    LineReader reader(files_.OpenForReading(path));
    TicketBoundary boundary(settings_.SeparatorChar);
    std::string part;
    for (std::string line; NextLine(reader, line);) {
      if (boundary.Begins(line) && count < kMostParts) {
        parts.Write(part);
        part.clear();
        ++count;
      }
      part.append(line).append(kLineBreak);
    }
    parts.Write(part);
  }
  RemoveReadOnlyToo(files_, path);
  parts.Keep();
  return true;
}

bool TicketSplitter::HoldsSecondTicket(const std::string& path) const {
  LineReader reader(files_.OpenForReading(path));
  TicketBoundary boundary(settings_.SeparatorChar);
  for (std::string line; NextLine(reader, line);) {
    if (boundary.Begins(line)) return true;
  }
  return false;
}

}  // namespace orvenza
