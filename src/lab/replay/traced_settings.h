#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lab/replay/scenario_text.h"
#include "lab/replay/trace_events.h"

namespace orvenza {

/// The settings and folders of a trace, translated to the rehearsal's program folder.
class TracedSettings {
 public:
  /// Reads the lines "start", "continued" and "setting".
  void Take(const TracedEvent& event);

  /// Adds what differs from a first start to a scenario.
  void AddTo(ScenarioText& scenario) const;

  /// A path of the trace as a scenario takes it, relative to the program folder if inside it.
  std::string Path(std::string_view shown) const;

  /// The folders in this form, with "\" at the end; empty if there is none.
  const std::string& Tickets() const { return tickets_; }
  std::string InProcess() const { return tickets_ + "inproces\\"; }
  std::string Abort() const { return tickets_ + "abort\\"; }
  const std::string& Historic() const { return historic_; }

  /// The character that closes a field.
  char Separator() const;

  bool Known() const { return !values_.empty(); }

 private:
  struct Value {
    std::string section;
    std::string key;
    std::string text;
  };

  std::string Translated(const std::string& text) const;
  void FindFolders();

  std::string programFolder_;
  std::vector<Value> values_;
  std::string tickets_ = "data\\";
  std::string historic_ = "storico\\";
};

}  // namespace orvenza
