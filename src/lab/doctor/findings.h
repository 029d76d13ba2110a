#pragma once

#include <string>
#include <vector>

namespace orvenza {

enum class Severity {
  kOk,       ///< Checked and found in order.
  kNote,     ///< Worth knowing; requires no action.
  kWarning,  ///< Receipts are printed, but something is not as it should be.
  kError,    ///< Receipts are not printed, or are lost.
};

/// One result of an examination. Fact and remedy are sentences.
struct Finding {
  Severity severity = Severity::kOk;
  std::string code;  ///< Its meaning never changes, e.g. "folder.missing".
  std::string fact;
  std::string remedy = {};  ///< Empty if no action is needed.
};

using Findings = std::vector<Finding>;

}  // namespace orvenza
