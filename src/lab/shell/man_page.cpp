#include "lab/shell/man_page.h"

#include <array>
#include <sstream>
#include <string_view>
#include <utility>

#include "app/command_line.h"
#include "core/version.h"

namespace orvenza {
namespace {

/// Roff replaces these characters by others unless they are written as escapes.
constexpr std::array<std::pair<char, std::string_view>, 6> kEscapes = {{
    {'\\', "\\e"},
    {'-', "\\-"},
    {'\'', "\\(aq"},
    {'`', "\\(ga"},
    {'^', "\\(ha"},
    {'~', "\\(ti"},
}};

void AppendEscaped(std::string& text, char c) {
  for (const auto& [character, escape] : kEscapes) {
    if (c == character) {
      text += escape;
      return;
    }
  }
  text += c;
}

/// Escapes `text` so that roff shows it unchanged.
std::string Literal(const std::string& text) {
  std::string literal;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (!literal.empty()) literal += '\n';
    if (line.starts_with('.')) literal += "\\&";
    for (const char c : line) AppendEscaped(literal, c);
  }
  return literal;
}

std::string Heading(const std::string& title, const std::string& name, const std::string& summary) {
  return ".TH \"" + title + "\" 1 \"\" \"Orvenza " + kVersionText + "\" \"Orvenza\"\n.SH NAME\n" +
         Literal(name) + " \\- " + Literal(summary) + "\n";
}

std::string Section(const std::string& title) { return ".SH " + title + "\n"; }

/// Text whose line breaks and indentations are kept.
std::string AsTyped(const std::string& text) { return ".nf\n" + Literal(text) + "\n.fi\n"; }

std::string Term(const std::string& name, const std::string& text) {
  return ".TP\n.B " + Literal(name) + "\n" + Literal(text) + "\n";
}

/// Paragraphs are filled; one that is indented is kept as it is.
std::string Paragraphs(const std::string& text) {
  std::string page;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = text.find("\n\n", at);
    const std::string paragraph = text.substr(at, end - at);
    page += ".PP\n" + (paragraph.starts_with(' ') ? AsTyped(paragraph) : Literal(paragraph) + "\n");
    at = end == std::string::npos ? text.size() : end + 2;
  }
  return page;
}

std::string Options(const std::vector<Option>& options) {
  std::string page;
  for (const Option& option : options) {
    page += Term(option.value.empty() ? option.name : option.name + " " + option.value, option.help);
  }
  return page + Term("--help", "show the help page and exit");
}

/// The synopsis on one line, however the help page breaks it.
std::string OneLine(const std::string& text) {
  std::istringstream words(text);
  std::string line;
  for (std::string word; words >> word;) line += (line.empty() ? "" : " ") + word;
  return line;
}

}  // namespace

std::string ManPage(const std::vector<Command>& commands) {
  std::string page = Heading("ORVENZA-LAB", "orvenza-lab", "tools for integrators of Orvenza") +
                     Section("SYNOPSIS") + ".B orvenza\\-lab\nCOMMAND [OPTION...]\n" + Section("COMMANDS");
  for (const Command& command : commands) page += Term(command.name, command.summary);
  page += Term("help COMMAND", "describe a command; the same as COMMAND --help") +
          Term("completion bash|powershell", "write a script that completes command lines in that shell") +
          Term("man [COMMAND]", "write a man page") + Section("SEE ALSO");
  std::string others = ".BR Orvenza (1)";
  for (const Command& command : commands) {
    others += ",\n.BR orvenza\\-lab\\-" + Literal(command.name) + " (1)";
  }
  return page + others + "\n";
}

std::string ManPage(const Command& command) {
  const std::string name = "orvenza-lab-" + command.name;
  std::string title = name;
  for (char& c : title) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return Heading(title, name, command.summary) + Section("SYNOPSIS") + ".B orvenza\\-lab " +
         Literal(command.name) + "\n" + Literal(OneLine(command.synopsis)) + "\n" + Section("DESCRIPTION") +
         Paragraphs(command.description) + Section("OPTIONS") + Options(command.options) +
         Section("\"EXIT STATUS\"") + AsTyped(command.statuses) + Section("EXAMPLES") +
         AsTyped(command.examples) + Section("\"SEE ALSO\"") + ".BR orvenza\\-lab (1),\n.BR Orvenza (1)\n";
}

std::string ManPageOfConnector() {
  return Heading("ORVENZA", "Orvenza", "prints ticket files on a fiscal cash register") +
         Section("SYNOPSIS") + ".B Orvenza\n" + Literal("[--folder DIR] [--simulate [SCRIPT]]") + "\n" +
         Section("DESCRIPTION") +
         AsTyped(Usage("While it runs in a terminal, m and Enter open the menu, r and Enter the "
                       "simulated\nregister.")) +
         Section("\"SEE ALSO\"") + ".BR orvenza\\-lab (1)\n";
}

}  // namespace orvenza
