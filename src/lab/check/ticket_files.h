#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lab/check/ticket_check.h"
#include "lab/shell/command.h"
#include "platform/files.h"

namespace orvenza {

/// The ticket files that the words of a command line name, with masks expanded; "-" is the standard input.
/// Throws UsageError if there is none, or if the standard input is named twice.
std::vector<std::string> TicketFilesMeant(const Arguments& arguments, const LabSurroundings& surroundings);

/// Opens one of them. Throws SystemError.
std::unique_ptr<ByteReader> OpenTicketFile(const std::string& file, LabSurroundings& surroundings);

/// Writes remarks on a valid command line of `command` to the error output.
void TellRuleNotes(const std::string& command, const Arguments& arguments, const CheckRules& rules,
                   Console& console);

}  // namespace orvenza
