#pragma once

#include <string>
#include <vector>

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// A file for support, or a note on one that could not be read.
struct BundleEntry {
  std::string name;  ///< Path within the bundle, with "/" as separator.
  std::string bytes;
  LocalTime modified;
  std::string remark;    ///< "texts masked", or why the file is missing; may be empty.
  bool missing = false;  ///< Appears only in the list of contents.
};

/// Everything support needs to know of an installation: the list of contents first, then findings, versions,
/// folder listings, settings, logs and the latest tickets, in this order. Descriptions in tickets, and in the
/// log lines that quote them, are masked unless `withDescriptions`. Never fails: an unreadable file becomes a
/// missing entry.
std::vector<BundleEntry> CollectBundle(const Installation& shop, const Findings& findings,
                                       bool withDescriptions);

}  // namespace orvenza
