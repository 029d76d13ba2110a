#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// Receives what the connector does and what happens to it, in the words of a transcript.
class EventRecorder {
 public:
  virtual ~EventRecorder() = default;

  /// Records an event now. `kind` is a constant; `text` is one line of UTF-8 and may be empty.
  virtual void Add(std::string_view kind, std::string text = {}) = 0;
};

}  // namespace orvenza
