#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <set>
#include <string>

#include "lab/replay/scenario_text.h"
#include "lab/replay/trace_events.h"
#include "lab/replay/traced_settings.h"

namespace orvenza {

/// The files as the connector saw them, from one event to the next. It adds to the scenario what came and
/// went by other hands.
class ShopModel {
 public:
  ShopModel(const TracedSettings& settings, ScenarioText& scenario)
      : settings_(settings), scenario_(scenario) {}

  /// Takes the next event. Before Begin nothing is added to the scenario.
  void Take(const TracedEvent& event);

  /// From here on events are part of the scenario. `start` is when the connector starts there, in the terms
  /// of TracedEvent::passed, and `stamp` what the PC's clock shows then, in the form of a scenario. The files
  /// that are there now are there before the start. `atStart`: the connector starts here in the trace, too.
  void Begin(std::chrono::milliseconds start, const std::string& stamp, bool atStart);

  /// All events have been taken: adds the folders that were there.
  void End();

 private:
  enum class Hold { kNone, kHeld, kLocked };
  struct File {
    std::string modified;    ///< Empty: not known.
    ContentPointer content;  ///< Shared with the scenario's line; null for a file that is no news.
    bool own = false;        ///< The connector made it.
    bool readOnly = false;
    Hold hold = Hold::kNone;
  };

  File* Find(const std::string& path);
  File& At(const std::string& path);
  void Forget(const std::string& path);
  void Put(std::chrono::milliseconds passed, const std::string& path, File& file);
  void Add(std::chrono::milliseconds passed, const std::string& line);
  void AddFolder(const std::string& folder);
  void AddNumbersBefore(const std::string& folder, int number, const std::string& extension);
  File& Existing(std::chrono::milliseconds passed, const std::string& path);

  void OnSeen(const TracedEvent& event);
  void OnGone(const TracedEvent& event);
  void OnRead(const TracedEvent& event);
  void OnOwnRead(const TracedEvent& event, const std::string& path);
  void OnTaken(const TracedEvent& event);
  void OnStored(const TracedEvent& event);
  void OnMoved(const TracedEvent& event);
  void OnDeleted(const TracedEvent& event);
  void OnFolder(const TracedEvent& event);
  void OnRotated(const TracedEvent& event, const std::string& from, const std::string& to);
  void OnNotRotated(std::chrono::milliseconds passed, const std::string& folder);
  void OnNotMade(const std::string& shown, int number);
  void OnFailed(const TracedEvent& event);
  void OnWorks(const TracedEvent& event);
  void SetHold(std::chrono::milliseconds passed, const std::string& path, Hold hold);
  void Release(std::chrono::milliseconds passed, const std::string& path);
  void TakeDriveAway(std::chrono::milliseconds passed, const std::string& path);

  const TracedSettings& settings_;
  ScenarioText& scenario_;
  bool recording_ = false;
  bool atStart_ = true;
  std::chrono::milliseconds start_{};
  std::string startStamp_;
  std::size_t ticks_ = 0;
  std::map<std::string, File> files_;           ///< By path in capitals.
  std::map<std::string, std::string> spelled_;  ///< The paths as they are written.
  std::set<std::string> folders_;  ///< Those that need no line: made by the connector, or added. In capitals.
  std::set<std::string> removed_;  ///< Usual folders that the scenario removes with another.
  std::set<std::string> failing_;  ///< Folders that could not be made.
  std::string notRotated_;         ///< The line of a file whose day is not known yet.
  std::set<std::string> away_;     ///< Drives.
  std::set<std::string> full_;
};

}  // namespace orvenza
