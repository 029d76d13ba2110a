#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvenza {

// What a trace shows of tickets. Everything is masked as in the support bundle, see MaskTexts.

/// A command with the texts in it masked. If the register's command has no known form, everything behind its
/// code is masked. The length does not change.
std::string MaskCommand(std::string_view command);

/// A line of a log or a text of a dialog, in UTF-8, with the ticket line masked that it quotes.
std::string MaskQuotes(std::string_view text, char separator);

/// The lines of a file, in the form that a scenario takes: control characters as their numbers in angle
/// brackets, "<7F>". Texts are masked if `separator` is not null.
std::vector<std::string> ContentLines(std::string_view content, const char* separator);

}  // namespace orvenza
