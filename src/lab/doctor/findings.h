#pragma once

#include <string>
#include <vector>

namespace orvenza {

enum class Severity {
  kOk,       ///< Looked at and found in order.
  kNote,     ///< Worth knowing, nothing to do.
  kWarning,  ///< Receipts are printed, but something is not as it should be.
  kError,    ///< Receipts are not printed, or get lost.
};

/// What was found out about one thing. Facts and remedies are sentences.
struct Finding {
  Severity severity = Severity::kOk;
  std::string code;  ///< Never changes its meaning: "folder.missing".
  std::string fact;
  std::string remedy = {};  ///< Empty where nothing is to be done.
};

using Findings = std::vector<Finding>;

}  // namespace orvenza
