#pragma once

#include <string>
#include <vector>

#include "lab/shell/command.h"

namespace orvenza {

/// The man page of the lab, which lists its commands: the source of orvenza-lab.1.
std::string ManPage(const std::vector<Command>& commands);

/// The man page of one command: the source of orvenza-lab-NAME.1, with the texts of its help page.
std::string ManPage(const Command& command);

/// The man page of the connector, the source of Orvenza.1, with its help page.
std::string ManPageOfConnector();

}  // namespace orvenza
