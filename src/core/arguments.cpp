#include "core/arguments.h"

#include <algorithm>
#include <numeric>

namespace orvenza {
namespace {

/// Edit distance: letters to insert, delete or replace until the words are equal.
std::size_t Distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= from.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t exchanged = diagonal + (from[i - 1] == to[j - 1] ? 0U : 1U);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, exchanged});
    }
  }
  return row.back();
}

std::vector<std::string> NamesOf(const std::vector<Option>& options) {
  std::vector<std::string> names;
  names.reserve(options.size());
  for (const Option& option : options) names.push_back(option.name);
  return names;
}

/// Reads the option at words[i] with its value; returns the error, if any.
std::string TakeOption(const std::vector<std::string>& words, std::size_t& i,
                       const std::vector<Option>& options, Arguments& arguments) {
  const std::string& word = words[i];
  const std::size_t equals = word.find('=');
  const std::string name = word.substr(0, equals);
  const auto option =
      std::find_if(options.begin(), options.end(), [&](const Option& o) { return o.name == name; });
  if (option == options.end()) return "unknown option '" + name + "'" + Hint(name, NamesOf(options));

  std::string& value = arguments.options[name];
  value.clear();
  const bool attached = equals != std::string::npos;
  if (option->value.empty()) return attached ? "option '" + name + "' takes no value" : std::string();
  if (attached) {
    value = word.substr(equals + 1);
  } else if (i + 1 < words.size() && !words[i + 1].starts_with("--")) {
    value = words[++i];
  }
  const bool mayBeLeftOut = option->value.starts_with('[');
  if (!value.empty() || mayBeLeftOut) return {};
  return "option '" + name + "' needs a value: " + name + " " + option->value;
}

}  // namespace

std::optional<std::string> Arguments::Value(const std::string& name) const {
  const auto found = options.find(name);
  return found == options.end() ? std::nullopt : std::optional(found->second);
}

Arguments ReadArguments(const std::vector<std::string>& words, const std::vector<Option>& options) {
  Arguments arguments;
  for (std::size_t i = 0; i < words.size() && arguments.error.empty(); ++i) {
    if (words[i] == "--") {
      arguments.words.insert(arguments.words.end(), words.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                             words.end());
      break;
    }
    if (words[i].size() > 1 && words[i][0] == '-') {
      arguments.error = TakeOption(words, i, options, arguments);
    } else {
      arguments.words.push_back(words[i]);
    }
  }
  return arguments;
}

std::string ClosestTo(std::string_view word, const std::vector<std::string>& known) {
  std::string closest;
  // With more than a third of the letters wrong it is a different word.
  std::size_t least = word.size() / 3 + 1;
  for (const std::string& candidate : known) {
    if (candidate.size() + least <= word.size()) continue;  // measuring a huge word would take minutes
    const std::size_t distance = Distance(word, candidate);
    if (distance >= least) continue;
    least = distance;
    closest = candidate;
  }
  return closest;
}

std::string Hint(std::string_view word, const std::vector<std::string>& known) {
  const std::string closest = ClosestTo(word, known);
  return closest.empty() ? std::string() : "; did you mean '" + closest + "'?";
}

}  // namespace orvenza
