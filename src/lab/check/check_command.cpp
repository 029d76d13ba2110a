#include "lab/check/check_command.h"

#include <algorithm>

#include "lab/check/check_report.h"
#include "lab/check/check_rules.h"
#include "lab/check/file_check.h"

namespace orvenza {
namespace {

constexpr int kInvalidLine = 1;
constexpr int kUnreadable = 2;

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

/// The files that the argument `word` names. A mask is expanded, sorted by name, since the shells of Windows
/// do not expand masks.
std::vector<std::string> FilesMeant(const std::string& word, const LabSurroundings& surroundings) {
  const std::size_t nameAt = word.find_last_of("\\/") + 1;  // npos + 1 is 0
  if (word.find_first_of("*?", nameAt) == std::string::npos || MayExist(surroundings.files, word))
    return {word};
  std::vector<std::string> found;
  const std::string folder = word.substr(0, nameAt);
  const std::string listed = folder.empty() ? ".\\" : SettingsPath(folder);
  if (!surroundings.folders.Exists(listed)) return {word};
  for (const FolderEntry& entry : surroundings.folders.ListFolder(listed + word.substr(nameAt))) {
    if (!entry.isFolder) found.push_back(folder + entry.name);
  }
  std::sort(found.begin(), found.end());
  return found.empty() ? std::vector{word} : found;
}

std::vector<std::string> FilesMeant(const std::vector<std::string>& words,
                                    const LabSurroundings& surroundings) {
  std::vector<std::string> files;
  for (const std::string& word : words) {
    const auto meant = FilesMeant(word, surroundings);
    files.insert(files.end(), meant.begin(), meant.end());
  }
  return files;
}

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

int Run(const Arguments& arguments, LabSurroundings& surroundings) {
  Console& console = surroundings.console;
  if (arguments.words.empty()) return RefuseUsage(console, "check", "which files? '-' is standard input");
  if (std::count(arguments.words.begin(), arguments.words.end(), "-") > 1) {
    return RefuseUsage(console, "check", "'-' is named twice, but the standard input can be read only once");
  }
  const CheckRules rules = CheckRulesOf(arguments, surroundings);
  const std::vector<std::string> files = FilesMeant(arguments.words, surroundings);
  for (const std::string& note : NotesOf(arguments, rules)) {
    console.err << "orvenza-lab check: " << note << "\n" << std::flush;
  }
  const bool quiet = arguments.Has("--quiet");
  const bool json = arguments.Has("--json");
  const auto report =
      json ? MakeJsonReport(console.out, rules) : MakeTextReport(console.out, console.colours, quiet);
  // Results that appear on the terminal show the progress themselves.
  CheckProgress progress(console, surroundings.clock, console.progress && (quiet || !console.terminal));
  TicketCheck check(rules, surroundings.files, surroundings.clock);
  FileCheck fileCheck(check, *report, progress);
  for (const std::string& file : files) {
    fileCheck.CheckFile(file, [&]() -> std::unique_ptr<ByteReader> {
      if (file == "-") return std::make_unique<StreamBytes>(console.in);
      return surroundings.files.OpenForReading(file);
    });
  }
  progress.Clear();
  report->End(fileCheck.Totals());
  if (fileCheck.Totals().unreadable > 0) return kUnreadable;
  return fileCheck.Totals().errors > 0 ? kInvalidLine : 0;
}

}  // namespace

Command CheckCommand() {
  std::vector<Option> options = CheckRuleOptions();
  options.push_back({"--quiet", "", "show the findings only, not the commands"});
  options.push_back({"--json", "", "write JSON"});
  return {"check",
          "show the commands and errors of ticket files",
          "FILE... [OPTION...]",
          "Reads ticket files as the connector does and shows, line by line, the command\n"
          "that the register gets, or every reason why it gets none:\n"
          "\n"
          "  FILE:LINE:FIELD: error: what was found and what is accepted [code]\n"
          "\n"
          "Fields count from 0, the record type. A warning means that a line is valid but\n"
          "may not print what the programmer meant: a text is cut, a value is changed, a\n"
          "payment does not cover the items. A point at half height stands for a blank in a\n"
          "command. '-' is the standard input. Nothing is sent and nothing is written.",
          options,
          "0  every line is valid; there may be warnings\n"
          "1  at least one line is invalid\n"
          "2  a file could not be read, or the command line cannot be understood",
          "orvenza-lab check ticket.txt\n"
          "orvenza-lab check --folder C:\\Orvenza --quiet C:\\Orvenza\\data\\abort\\*.txt\n"
          "orvenza-lab check --model \"QUARNIS A\" --release 2.02.00 ticket.txt\n"
          "orvenza-lab check --json - < ticket.txt",
          Run};
}

}  // namespace orvenza
