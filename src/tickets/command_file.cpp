#include "tickets/command_file.h"

#include <memory>

#include "core/catalogue.h"
#include "core/text.h"
#include "platform/program_end.h"
#include "tickets/line_reader.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Timer1 - ";
/// Longest part of the command file that is read, in bytes. A longer first line is not a command.
constexpr std::size_t kLongestCommand = 64 * 1024;
/// A megabyte; takes some hundredths of a second.
constexpr int kPiecesBetweenLooks = 16;

}  // namespace

bool AsksToQuit(const FileReader& files, const std::string& commandFile) {
  LineReader reader(std::make_unique<TextBytes>(ReadWhole(files, commandFile, kLongestCommand)));
  std::string line;
  reader.ReadLine(line);
  if (line.size() == kLongestCommand) return false;
  const std::string command = ToUpperAscii(Trim(line));
  // Deliberate: an empty first line is a request to quit, too.
  return command.empty() || command == "QUIT";
}

void CommandFile::QuitIfAsked() {
  const std::string& commandFile = settings_.CommandFilePath;
  if (!files_.Exists(commandFile) || !AsksToQuit(files_, commandFile)) return;
  link_.ClosePort();
  logs_.Attempt(kLabel, [&] { RemoveReadOnlyToo(files_, commandFile); });
  logs_.WrLog(LoadMessage(MessageId::kQuitCommand));
  throw ProgramEnd{.unload = true};
}

void CommandFile::Breathe() {
  loop_.Dispatch();
  loop_.CheckEnd();
  if (++pieces_ % kPiecesBetweenLooks != 0) return;
  logs_.Attempt(kLabel, [&] { QuitIfAsked(); });
}

}  // namespace orvenza
