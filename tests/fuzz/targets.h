#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace orvenza::fuzz {

// The targets: each accepts any bytes and ends the process when a property is violated.

void FuzzCommandFile(std::string_view input);
void FuzzErrorTexts(std::string_view input);
void FuzzFormats(std::string_view input);
void FuzzLogo(std::string_view input);
void FuzzScenario(std::string_view input);
void FuzzScript(std::string_view input);
void FuzzSettings(std::string_view input);
void FuzzStateFile(std::string_view input);
void FuzzText(std::string_view input);
void FuzzTicket(std::string_view input);
void FuzzTranslation(std::string_view input);

/// Ends the process with the name of the violated property unless it holds.
inline void Require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "Does not hold: %s\n", property);
  std::abort();
}

}  // namespace orvenza::fuzz
