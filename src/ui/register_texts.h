#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/register_panel.h"

namespace orvenza {

/// The captions with "&" before the letter that chooses each by keyboard: its first letter a to z that is
/// neither in `taken` (lower case) nor chosen for an earlier caption. A caption without such a letter has
/// none. An "&" of the caption itself is doubled, as Windows expects it.
std::vector<std::string> WithMnemonics(const std::vector<std::string>& captions, std::string_view taken);

/// What is chosen now, such as "Attivo: Carta esaurita, al prossimo comando".
std::string FaultText(const RegisterPanel& panel);

/// The state of a switch, such as "Cavo: ASSENTE".
std::string SwitchText(const PanelSwitch& one);

/// `lines` joined, with CR LF between any two.
std::string JoinLines(const std::vector<std::string>& lines);

/// `text` with CR LF at the end of each line, whatever it had.
std::string WithLineBreaks(std::string_view text);

}  // namespace orvenza
