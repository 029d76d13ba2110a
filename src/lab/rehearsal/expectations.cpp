#include "lab/rehearsal/expectations.h"

#include <algorithm>

#include "core/text.h"

namespace orvenza {
namespace {

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string CheckSent(const Expectation& expected, const RehearsalOutcome& outcome) {
  const auto fits = [&](const std::string& command) { return command.starts_with(expected.text); };
  const auto count = std::count_if(outcome.sent.begin(), outcome.sent.end(), fits);
  if (count == static_cast<std::ptrdiff_t>(expected.times)) return {};
  return "expected command " + expected.text + " " + std::to_string(expected.times) + " times, it was sent " +
         std::to_string(count) + " times";
}

bool Found(const Expectation& expected, const RehearsalOutcome& outcome) {
  const auto hasEvent = [&](const RehearsalEvent& event) {
    return event.kind == expected.event && Contains(event.text, expected.text);
  };
  const auto hasText = [&](const std::string& line) {
    return Contains(FromWindows1252(line), expected.text);
  };
  const auto isFile = [&](const auto& file) {
    return ToUpperAscii(file.first) == ToUpperAscii(expected.text) && Contains(file.second, expected.content);
  };
  switch (expected.kind) {
    case Expectation::Kind::kEvent:
      return std::any_of(outcome.events.begin(), outcome.events.end(), hasEvent);
    case Expectation::Kind::kPaper: return std::any_of(outcome.paper.begin(), outcome.paper.end(), hasText);
    case Expectation::Kind::kFile: return std::any_of(outcome.files.begin(), outcome.files.end(), isFile);
    case Expectation::Kind::kSent: break;
  }
  return false;
}

std::string Check(const Expectation& expected, const RehearsalOutcome& outcome) {
  if (expected.kind == Expectation::Kind::kSent) return CheckSent(expected, outcome);
  if (Found(expected, outcome) != expected.none) return {};
  std::string what = "the event " + expected.event + " with \"" + expected.text + "\"";
  if (expected.kind == Expectation::Kind::kPaper) what = "\"" + expected.text + "\" on the paper";
  if (expected.kind == Expectation::Kind::kFile) what = "a file " + expected.text;
  if (!expected.content.empty()) what += " with \"" + expected.content + "\"";
  return expected.none ? "expected not to find " + what + ", but there was one" : "expected " + what;
}

}  // namespace

std::vector<std::string> Unfulfilled(const std::vector<Expectation>& expectations,
                                     const RehearsalOutcome& outcome) {
  std::vector<std::string> problems;
  for (const Expectation& expected : expectations) {
    std::string problem = Check(expected, outcome);
    if (!problem.empty()) problems.push_back(std::move(problem));
  }
  return problems;
}

}  // namespace orvenza
