#pragma once

#include <string>

#include "lab/table/failure_table.h"

namespace orvenza {

/// The failure table as an HTML page with filters. Without scripts it shows all rows. Unlike the Markdown,
/// each row names the ways of working and the hours for which it holds, and writes out the lines of the error
/// log.
std::string TablePage(const PlayedCases& contract, const PlayedCases& askInDoubt);

}  // namespace orvenza
