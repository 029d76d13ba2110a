#include "standin/behaviour.h"

#include <windows.h>

#include <sstream>

namespace orvenza::test {

Behaviour Behaviour::Now() {
  char text[1000];
  const DWORD length = ::GetEnvironmentVariableA(kVariable, text, sizeof text);
  std::istringstream words(length < sizeof text ? std::string(text, length) : std::string());
  Behaviour behaviour;
  for (std::string word; words >> word;) behaviour.words_.insert(word);
  return behaviour;
}

std::string Behaviour::After(std::string_view start) const {
  for (const std::string& word : words_) {
    if (word.starts_with(start)) return word.substr(start.size());
  }
  return "";
}

}  // namespace orvenza::test
