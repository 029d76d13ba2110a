#pragma once

#include <span>
#include <string>
#include <string_view>

namespace orvenza {

/// `caption` without the "&" that marks its letter.
std::string PlainCaption(std::string_view caption);

/// The caption, counted from 1, that `answer` names by its number or in full; 0 when it names none. Letter
/// case, accents, apostrophes and "&" are ignored. A number takes precedence over a caption that looks like
/// one.
int FindCaption(std::span<const std::string> captions, std::string_view answer);

/// The same for buttons, which a letter may also name: the one after "&", otherwise the first, if no other
/// caption has it.
int FindButton(std::span<const std::string> captions, std::string_view answer);

/// The same, or the only caption that begins with `answer`.
int FindCaptionByStart(std::span<const std::string> captions, std::string_view answer);

/// Whether `answer` is `word`. Letter case, accents and apostrophes are ignored.
bool IsWord(std::string_view answer, std::string_view word);

/// Whether `answer` asks for the panel of the simulated register: "r", "reg" or "registratore".
bool AsksForPanel(std::string_view answer);

/// Whether `answer` asks for the menu: "m" or "menu".
bool AsksForMenu(std::string_view answer);

/// Whether `answer` closes a dialog: "x" or "chiudi".
bool AsksToClose(std::string_view answer);

}  // namespace orvenza
