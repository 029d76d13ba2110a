#pragma once

#include <string>

namespace orvenza::test {

/// Appends a line to the file that the environment variable ORVENZA_STANDIN_LOG names, if it names one.
void Note(const std::string& line);

}  // namespace orvenza::test
