#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "lab/rehearsal/scenario.h"
#include "simulator/script_line.h"

namespace orvenza {

// The parts of a scenario's lines. Invalid input is refused through `line`.

/// A time with its unit, such as "2s", of at most 1000 hours.
std::chrono::milliseconds ReadTime(ScriptLine& line);

/// The whole `text` as a date and time, such as "16/11/2026 09:00:00".
LocalTime ReadDate(const ScriptLine& line, std::string_view text);

/// The rest of the line as a path, relative to `folder` unless it begins with a drive.
std::string ReadPath(ScriptLine& line, const std::string& folder = kRehearsalFolder);

/// Reads, after its first word, an event that is allowed both before the start and later. False, with nothing
/// read, when `word` is none of them.
bool ReadEvent(std::string_view word, ScriptLine& line, ScenarioEvent& event);

/// Refuses a line because `word` is not in `words`: names the similar one, or all.
[[noreturn]] void RefuseWord(const ScriptLine& line, std::string_view word,
                             const std::vector<std::string>& words);

/// The words that ReadEvent accepts.
const std::vector<std::string>& EventWords();

/// Reads the rest of a line after "power".
PowerCut ReadPowerCut(ScriptLine& line);

/// Reads the rest of a line after "at".
ScenarioEvent ReadEventInTime(ScriptLine& line);

}  // namespace orvenza
