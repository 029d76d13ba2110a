#include "lab/shell/completion.h"

namespace orvenza {
namespace {

constexpr const char* kShells = "bash powershell";

/// The words that can follow the program's name.
std::string FirstWords(const std::vector<Command>& commands) {
  std::string words;
  for (const Command& command : commands) words += command.name + " ";
  return words + "help completion man --version --help";
}

std::string CommandNames(const std::vector<Command>& commands) {
  std::string names;
  for (const Command& command : commands) names += command.name + " ";
  names.pop_back();
  return names;
}

std::string OptionNames(const Command& command) {
  std::string names;
  for (const Option& option : command.options) names += option.name + " ";
  return names + "--help";
}

/// The choices in a placeholder such as "text|json", separated by blanks; "" if it lists none.
std::string ChoicesOf(const Option& option) {
  std::string choices = option.value;
  if (choices.find('|') == std::string::npos) return {};
  for (char& c : choices) {
    if (c == '|') c = ' ';
  }
  return choices;
}

std::string BashValue(const Option& option) {
  const std::string choices = ChoicesOf(option);
  if (!choices.empty()) return "COMPREPLY=($(compgen -W '" + choices + "' -- \"$word\")); return";
  if (option.value == "DIR") return "COMPREPLY=($(compgen -d -- \"$word\")); return";
  return "return";
}

std::string BashCase(const Command& command) {
  std::string text = "    " + command.name + ")\n      case $before in\n";
  for (const Option& option : command.options) {
    if (!option.value.empty()) text += "        " + option.name + ") " + BashValue(option) + " ;;\n";
  }
  return text + "      esac\n      options='" + OptionNames(command) + "'\n      ;;\n";
}

/// 'a', 'b', 'c' for "a b c".
std::string QuotedWords(const std::string& words) {
  std::string quoted = "'";
  for (const char c : words) {
    if (c == ' ')
      quoted += "', '";
    else
      quoted += c;
  }
  return quoted + "'";
}

std::string PowerShellRow(const std::string& name, const std::string& words) {
  return "  '" + name + "' = @(" + QuotedWords(words) + ")\n";
}

}  // namespace

std::string BashCompletion(const std::vector<Command>& commands) {
  std::string text =
      "# Completes command lines of orvenza-lab in bash. Written by: orvenza-lab completion bash\n"
      "_orvenza_lab() {\n"
      "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} options=\n"
      "  COMPREPLY=()\n"
      "  if ((COMP_CWORD == 1)); then\n"
      "    COMPREPLY=($(compgen -W '" +
      FirstWords(commands) +
      "' -- \"$word\"))\n"
      "    return\n"
      "  fi\n"
      "  case ${COMP_WORDS[1]} in\n"
      "    help | man) options='" +
      CommandNames(commands) +
      "' ;;\n"
      "    completion) options='" +
      kShells + "' ;;\n";
  for (const Command& command : commands) text += BashCase(command);
  return text +
         "  esac\n"
         "  if [[ $word == -* || ${COMP_WORDS[1]} =~ ^(help|man|completion)$ ]]; then\n"
         "    COMPREPLY=($(compgen -W \"$options\" -- \"$word\"))\n"
         "  fi\n"
         "}\n"
         "complete -o default -F _orvenza_lab orvenza-lab\n";
}

std::string PowerShellCompletion(const std::vector<Command>& commands) {
  std::string words = PowerShellRow("", FirstWords(commands));
  std::string values;
  for (const Command& command : commands) {
    words += PowerShellRow(command.name, OptionNames(command));
    for (const Option& option : command.options) {
      const std::string choices = ChoicesOf(option);
      if (!choices.empty()) values += PowerShellRow(command.name + " " + option.name, choices);
    }
  }
  words += PowerShellRow("help", CommandNames(commands)) + PowerShellRow("man", CommandNames(commands)) +
           PowerShellRow("completion", kShells);
  return "# Completes command lines of orvenza-lab in PowerShell. Written by: orvenza-lab completion "
         "powershell\n"
         "$orvenzaLabWords = @{\n" +
         words + "}\n$orvenzaLabValues = @{\n" + values +
         "}\n"
         "Register-ArgumentCompleter -Native -CommandName orvenza-lab, orvenza-lab.exe -ScriptBlock {\n"
         "  param($word, $line, $cursor)\n"
         "  $given = @($line.CommandElements | ForEach-Object { $_.ToString() } |\n"
         "    Select-Object -Skip 1)\n"
         "  if ($word -ne '' -and $given.Count -gt 0) { $given = @($given | Select-Object -SkipLast 1) }\n"
         "  $command = if ($given.Count -gt 0) { $given[0] } else { '' }\n"
         "  $before = if ($given.Count -gt 1) { $given[-1] } else { '' }\n"
         "  $choices = $orvenzaLabValues[\"$command $before\"]\n"
         "  if ($null -eq $choices) {\n"
         "    $choices = $orvenzaLabWords[$command]\n"
         "    if ($command -ne '' -and $word -notlike '-*') {\n"
         "      $choices = @($choices | Where-Object { $_ -notlike '-*' })\n"
         "    }\n"
         "  }\n"
         "  # No choices: PowerShell completes file names.\n"
         "  $choices | Where-Object { $_ -like \"$word*\" }\n"
         "}\n";
}

}  // namespace orvenza
