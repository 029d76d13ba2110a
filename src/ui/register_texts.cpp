#include "ui/register_texts.h"

#include "core/own_texts.h"
#include "core/text.h"

namespace orvenza {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The position of the letter to press; npos if none is free.
std::size_t FreeLetter(const std::string& caption, const std::string& taken) {
  for (std::size_t i = 0; i < caption.size(); ++i) {
    const char letter = LowerAscii(caption[i]);
    if (letter >= 'a' && letter <= 'z' && taken.find(letter) == std::string::npos) return i;
  }
  return std::string::npos;
}

std::string Marked(const std::string& caption, std::size_t letter) {
  std::string marked;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (i == letter || caption[i] == '&') marked += '&';
    marked += caption[i];
  }
  return marked;
}

}  // namespace

std::vector<std::string> WithMnemonics(const std::vector<std::string>& captions, std::string_view taken) {
  std::string letters(taken);
  std::vector<std::string> marked;
  for (const std::string& caption : captions) {
    const std::size_t letter = FreeLetter(caption, letters);
    if (letter != std::string::npos) letters += LowerAscii(caption[letter]);
    marked.push_back(Marked(caption, letter));
  }
  return marked;
}

std::string FaultText(const RegisterPanel& panel) {
  const auto fault = panel.Fault();
  if (!fault) return own_text::kNoFaultActive;
  return std::string(own_text::kFaultChosen) + " " + panel.Faults()[fault->number] + ", " +
         (fault->once ? own_text::kNextCommand : own_text::kEveryCommand);
}

std::string SwitchText(const PanelSwitch& one) {
  return one.caption + ": " + (one.on ? own_text::kSwitchOn : own_text::kSwitchOff);
}

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (&line != &lines.front()) text += kLineBreak;
    text += line;
  }
  return text;
}

std::string WithLineBreaks(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\r') continue;
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

}  // namespace orvenza
