#include "app/kept_paper.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/system_error.h"
#include "simulator/script_line.h"

namespace orvenza {
namespace {

std::string DescriptionOf(const SystemError& failure) {
  return std::string(StandardDescription(failure.Number()));
}

}  // namespace

KeptPaper::KeptPaper(Files& files, std::string path, std::string name, Show show)
    : files_(files), path_(std::move(path)), name_(std::move(name)), show_(std::move(show)) {}

std::optional<RegisterState> KeptPaper::Remembered() {
  constexpr const char* kNew = "; the register starts new";
  try {
    if (!files_.Exists(StatePath())) return {};
    file_ = ParseStateFile(name_ + ".state", ReadWhole(files_, StatePath()));
  } catch (const SystemError& failure) {
    show_("(" + name_ + ".state: " + DescriptionOf(failure) + kNew + ")");
    return {};
  } catch (const ScriptError& damage) {
    show_("(" + std::string(damage.what()) + kNew + ")");
    return {};
  }
  written_ = true;
  unfinished_ = std::exchange(file_.printed, {});
  return file_.state;
}

void KeptPaper::Keep(const RegisterState& state) {
  CompletePaper();
  if (written_ && file_.state == state) return;  // Printing changes it too.
  file_.state = state;
  file_.paperSize = PaperSize();
  WriteState();
  for (const std::string& line : std::exchange(file_.printed, {})) PutOnPaper(line);
}

/// Not before the first command: a program that finds its folder served by another one executes none.
void KeptPaper::CompletePaper() {
  if (unfinished_.empty()) return;
  const std::uintmax_t size = PaperSize();
  const bool samePaper = size >= file_.paperSize;
  std::uintmax_t start = file_.paperSize;
  for (const std::string& line : std::exchange(unfinished_, {})) {
    const std::string text = line + "\n";
    const std::uintmax_t there = size - std::min(size, start);
    if (samePaper && there < text.size()) PutOnPaper(line, static_cast<std::size_t>(there));
    start += text.size();
  }
}

void KeptPaper::WriteState() {
  written_ = false;
  try {
    files_.Write(StatePath(), StateFileText(file_));
    written_ = true;
  } catch (const SystemError& failure) {
    if (!std::exchange(stateLossTold_, true)) show_("(" + name_ + ".state: " + DescriptionOf(failure) + ")");
  }
}

void KeptPaper::PutOnPaper(const std::string& line, std::size_t there) {
  std::string loss;
  try {
    files_.Append(path_, (line + "\n").substr(there));
  } catch (const SystemError& failure) {
    loss = DescriptionOf(failure);
  }
  show_(line);
  if (!loss.empty() && !std::exchange(paperLossTold_, true)) show_("(" + name_ + ": " + loss + ")");
}

std::uintmax_t KeptPaper::PaperSize() const {
  try {
    return files_.Size(path_);
  } catch (const SystemError&) {
    return 0;  // There is none yet.
  }
}

}  // namespace orvenza
