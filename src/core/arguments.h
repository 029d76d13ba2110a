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
  /// The word that stands for its value on the help page, in brackets where it may be left out: "[SCRIPT]".
  /// Empty: it takes none.
  std::string value;
  std::string help;  ///< What it does, in a line or two.
};

/// The words of a command line, read by the options of its command.
struct Arguments {
  std::vector<std::string> words;  ///< Those that are neither options nor values of one, in order.
  std::map<std::string, std::string> options;  ///< Values by option name; of one given twice the last.
  std::string error;                           ///< What is wrong with the words; empty: nothing.

  bool Has(const std::string& name) const { return options.count(name) > 0; }
  /// Nothing where the option was not given, empty where its value was left out.
  std::optional<std::string> Value(const std::string& name) const;
};

/// Reads "--name VALUE" and "--name=VALUE". A lone "-" is a word like others, and after "--" all are.
[[nodiscard]] Arguments ReadArguments(const std::vector<std::string>& words,
                                      const std::vector<Option>& options);

/// The one of `known` that `word` was probably meant to be; "" when none is close.
std::string ClosestTo(std::string_view word, const std::vector<std::string>& known);

/// "; did you mean 'WORD'?" for the one of `known` that is close to `word`, "" when none is.
std::string Hint(std::string_view word, const std::vector<std::string>& known);

}  // namespace orvenza
