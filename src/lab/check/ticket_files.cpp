#include "lab/check/ticket_files.h"

#include <algorithm>

#include "lab/check/check_rules.h"
#include "lab/shell/named_files.h"

namespace orvenza {
namespace {

/// A ByteReader of a stream.
class StreamBytes : public ByteReader {
 public:
  explicit StreamBytes(std::istream& in) : in_(in) {}
  std::size_t Read(char* buffer, std::size_t capacity) override {
    in_.read(buffer, static_cast<std::streamsize>(capacity));
    return static_cast<std::size_t>(in_.gcount());
  }

 private:
  std::istream& in_;
};

/// Remarks on a valid command line.
std::vector<std::string> NotesOf(const Arguments& arguments, const CheckRules& rules) {
  std::vector<std::string> notes;
  if (arguments.Has("--name") && !arguments.Has("--folder")) {
    notes.emplace_back("--name has no effect without --folder");
  }
  if (!rules.settingsNote.empty()) notes.push_back(rules.settingsNote);
  const std::string model = UnknownModelNote(arguments.Value("--model").value_or(""));
  if (!model.empty()) notes.push_back(model);
  if (arguments.Has("--release") && !arguments.Has("--model")) {
    notes.emplace_back("--release has no effect without --model");
  }
  return notes;
}

}  // namespace

std::vector<std::string> TicketFilesMeant(const Arguments& arguments, const LabSurroundings& surroundings) {
  const std::vector<std::string>& words = arguments.words;
  if (words.empty()) throw UsageError("which files? '-' is standard input");
  if (std::count(words.begin(), words.end(), "-") > 1) {
    throw UsageError("'-' is named twice, but the standard input can be read only once");
  }
  return FilesNamed(words, surroundings);
}

std::unique_ptr<ByteReader> OpenTicketFile(const std::string& file, LabSurroundings& surroundings) {
  if (file == "-") return std::make_unique<StreamBytes>(surroundings.console.in);
  return surroundings.files.OpenForReading(file);
}

void TellRuleNotes(const std::string& command, const Arguments& arguments, const CheckRules& rules,
                   Console& console) {
  for (const std::string& note : NotesOf(arguments, rules)) {
    console.err << "orvenza-lab " << command << ": " << note << "\n" << std::flush;
  }
}

}  // namespace orvenza
