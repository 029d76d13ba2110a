#include "lab/replay/attempt.h"

#include <algorithm>
#include <charconv>

namespace orvenza {

Attempt ReadAttempt(const std::string& text, bool failed, const TracedSettings& settings) {
  constexpr std::string_view kVerbs[] = {"append to", "check",  "copy",   "list",  "make",       "move",
                                         "read",      "remove", "rename", "write", "reach drive"};
  Attempt attempt;
  std::string rest = text;
  if (failed) {
    const auto [what, why] = SplitAt(text, ": ");
    rest = what;
    std::from_chars(why.data(), why.data() + why.size(), attempt.number);
  }
  for (const std::string_view verb : kVerbs) {
    if (!rest.starts_with(verb)) continue;
    attempt.verb = verb;
    rest = rest.substr(std::min(verb.size() + 1, rest.size()));
    if (verb == "copy" || verb == "move") {
      const auto [from, to] = SplitAt(rest, " to ");
      attempt.target = settings.Path(to);
      rest = from;
    }
    attempt.path = verb == "reach drive" ? rest : settings.Path(rest);
    return attempt;
  }
  attempt.verb = rest;
  return attempt;
}

std::pair<std::string, std::string> SplitAt(const std::string& text, std::string_view word) {
  const std::size_t at = text.rfind(word);
  if (at == std::string::npos) return {text, {}};
  return {text.substr(0, at), text.substr(at + word.size())};
}

std::string Named(const std::string& path) {
  const bool holdsWord =
      path.find(" of ") != std::string::npos || (path + " ").find(" from ") != std::string::npos;
  return holdsWord ? "\"" + path + "\"" : path;
}

std::string DriveOf(const std::string& path) {
  return path.size() > 1 && path[1] == ':' ? path.substr(0, 2) : "C:";
}

std::string WithoutEnd(std::string folder) {
  if (folder.ends_with('\\')) folder.pop_back();
  return folder;
}

}  // namespace orvenza
