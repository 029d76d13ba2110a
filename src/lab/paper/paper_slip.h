#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvenza {

/// A row of a drawn slip.
struct PaperRow {
  enum class Kind {
    kPrinted,  ///< A line on the paper.
    kLogo,     ///< The place of a logo.
    kRemark,   ///< A remark of the drawing, such as a line that was refused here.
  };
  Kind kind = Kind::kPrinted;
  std::string text;  ///< UTF-8 without control characters, at most kPaperColumns characters.

  bool operator==(const PaperRow&) const = default;
};

/// A piece of the register's paper up to the next cut.
struct PaperSlip {
  std::vector<PaperRow> rows;
  bool cut = false;  ///< False: it still hangs in the register.

  bool operator==(const PaperSlip&) const = default;
};

/// Whether the register cuts the paper behind `lines`, all that one command printed.
bool EndsWithCut(const std::vector<std::string>& lines);

/// A paper line in the register's encoding as a row.
PaperRow PrintedRow(const std::string& line);

/// Assembles the slips from what the register prints and from remarks.
class SlipRecorder {
 public:
  /// A line of the current command, in the register's encoding.
  void Print(const std::string& line) { printed_.push_back(line); }

  /// The current command is complete: cuts the paper if it printed the cut.
  void EndCommand();

  /// Adds a text in the place where the paper is now, in as many rows as it needs.
  void Add(PaperRow::Kind kind, std::string_view text);

  /// The slips since the last call. The paper is torn off, so that the next row begins a new slip.
  [[nodiscard]] std::vector<PaperSlip> Take() { return std::exchange(slips_, {}); }

 private:
  PaperSlip& Current();

  std::vector<std::string> printed_;
  std::vector<PaperSlip> slips_;
};

}  // namespace orvenza
