#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "lab/rehearsal/scenario.h"
#include "simulator/script_line.h"

namespace orvenza {

// The parts of a scenario's lines. What cannot be read is refused by `line`.

/// A time with its unit, "2s", of at most 1000 hours.
std::chrono::milliseconds ReadTime(ScriptLine& line);

/// All of `text` as a date and time, "16/11/2026 09:00:00".
LocalTime ReadDate(const ScriptLine& line, std::string_view text);

/// The rest of the line as a path, below `folder` unless it begins with a drive.
std::string ReadPath(ScriptLine& line, const std::string& folder = kRehearsalFolder);

/// Reads what may be so from the start as well as happen later, behind its first word. False, with nothing
/// read, when `word` is none of that.
bool ReadEvent(std::string_view word, ScriptLine& line, ScenarioEvent& event);

/// Refuses a line for `word`, which is none of `words`: names the one that was probably meant, or all.
[[noreturn]] void RefuseWord(const ScriptLine& line, std::string_view word,
                             const std::vector<std::string>& words);

/// The words that ReadEvent knows.
const std::vector<std::string>& EventWords();

/// What stands behind "at".
ScenarioEvent ReadEventInTime(ScriptLine& line);

}  // namespace orvenza
