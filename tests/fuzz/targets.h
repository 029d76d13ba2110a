#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace orvenza::fuzz {

// The targets: each takes any bytes and ends the process where a property does not hold.

void FuzzCommandFile(std::string_view input);
void FuzzErrorTexts(std::string_view input);
void FuzzFormats(std::string_view input);
void FuzzLogo(std::string_view input);
void FuzzScenario(std::string_view input);
void FuzzScript(std::string_view input);
void FuzzSettings(std::string_view input);
void FuzzText(std::string_view input);
void FuzzTicket(std::string_view input);
void FuzzTranslation(std::string_view input);

/// Ends the process, saying which property does not hold.
inline void Require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "Does not hold: %s\n", property);
  std::abort();
}

}  // namespace orvenza::fuzz
