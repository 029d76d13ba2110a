#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvenza {

/// An option of a program or a command.
struct Option {
  std::string name;  ///< With its dashes: "--json".
  /// Placeholder of its value on the help page, in brackets if the value is optional: "[SCRIPT]". Empty: no
  /// value.
  std::string value;
  std::string help;  ///< Its effect, in a line or two.
};

/// A parsed command line.
struct Arguments {
  std::vector<std::string> words;  ///< Arguments other than options and their values, in order.
  std::map<std::string, std::string>
      options;        ///< Values by option name; if an option is given twice, the last one counts.
  std::string error;  ///< Why the command line is invalid; empty if it is valid.

  bool Has(const std::string& name) const { return options.count(name) > 0; }
  /// Empty optional: the option was not given. Empty text: its value was left out.
  std::optional<std::string> Value(const std::string& name) const;
};

/// Parses "--name VALUE" and "--name=VALUE". A lone "-" is an ordinary argument, as is everything after "--".
[[nodiscard]] Arguments ReadArguments(const std::vector<std::string>& words,
                                      const std::vector<Option>& options);

/// The word in `known` that `word` was probably meant to be; "" when none is similar.
std::string ClosestTo(std::string_view word, const std::vector<std::string>& known);

/// "; did you mean 'WORD'?" for the word in `known` that is similar to `word`; "" when none is.
std::string Hint(std::string_view word, const std::vector<std::string>& known);

}  // namespace orvenza
