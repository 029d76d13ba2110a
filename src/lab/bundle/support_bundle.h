#pragma once

#include <string>
#include <vector>

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// A file for support, or what is to be said of one that could not be had.
struct BundleEntry {
  std::string name;  ///< Within the bundle, with "/" between its levels.
  std::string bytes;
  LocalTime modified;
  std::string remark;    ///< "texts masked"; why it is missing. Empty: nothing to say.
  bool missing = false;  ///< It is only told of, in the list of contents.
};

/// What support needs to know of an installation: its list of contents first, then findings, versions, folder
/// listings, settings, logs and the latest tickets, in this order. Descriptions in tickets, and in the log
/// lines that quote them, are masked unless `withDescriptions`. Never fails: a file that cannot be read is an
/// entry that is missing.
std::vector<BundleEntry> CollectBundle(const Installation& shop, const Findings& findings,
                                       bool withDescriptions);

/// The log text with what is quoted of tickets masked; true in `masked` when something was.
std::string MaskLog(const std::string& log, char separator, bool& masked);

}  // namespace orvenza
