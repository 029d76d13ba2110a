#include "ui/terminal/answers.h"

#include <charconv>

#include "core/text.h"

namespace orvenza {
namespace {

struct Accent {
  std::string_view letter;
  char plain;
};

/// The accented letters of Italian, which some keyboards lack.
constexpr Accent kAccents[] = {
    {"à", 'A'}, {"è", 'E'}, {"é", 'E'}, {"ì", 'I'}, {"ò", 'O'}, {"ù", 'U'},
    {"À", 'A'}, {"È", 'E'}, {"É", 'E'}, {"Ì", 'I'}, {"Ò", 'O'}, {"Ù", 'U'},
};

/// The form of `text` in which answers and captions are compared.
std::string Fold(std::string_view text) {
  std::string folded;
  while (!text.empty()) {
    std::size_t length = 1;
    char c = text[0];
    for (const Accent& accent : kAccents) {
      if (!text.starts_with(accent.letter)) continue;
      length = accent.letter.size();
      c = accent.plain;
    }
    if (c != '&' && c != '\'') folded += c;
    text.remove_prefix(length);
  }
  return ToUpperAscii(Trim(folded));
}

int NumberOf(std::string_view answer) {
  int number = 0;
  const auto [end, error] = std::from_chars(answer.data(), answer.data() + answer.size(), number);
  return error == std::errc() && end == answer.data() + answer.size() ? number : 0;
}

std::string LetterOf(std::string_view caption) {
  const std::size_t mark = caption.find('&');
  return Fold(mark == std::string_view::npos ? caption : caption.substr(mark)).substr(0, 1);
}

}  // namespace

std::string PlainCaption(std::string_view caption) {
  std::string plain(caption);
  std::erase(plain, '&');
  return plain;
}

int FindCaption(std::span<const std::string> captions, std::string_view answer) {
  const int count = static_cast<int>(captions.size());
  const int number = NumberOf(Trim(answer));
  if (number >= 1 && number <= count) return number;
  const std::string wanted = Fold(answer);
  for (int i = 1; i <= count; ++i) {
    if (Fold(captions[static_cast<std::size_t>(i - 1)]) == wanted) return i;
  }
  return 0;
}

int FindButton(std::span<const std::string> captions, std::string_view answer) {
  if (const int found = FindCaption(captions, answer); found != 0) return found;
  const std::string wanted = Fold(answer);
  int found = 0;
  for (std::size_t i = 0; i < captions.size(); ++i) {
    if (LetterOf(captions[i]) != wanted) continue;
    if (found != 0) return 0;
    found = static_cast<int>(i) + 1;
  }
  return found;
}

int FindCaptionByStart(std::span<const std::string> captions, std::string_view answer) {
  if (const int found = FindCaption(captions, answer); found != 0) return found;
  const std::string wanted = Fold(answer);
  int found = 0;
  for (std::size_t i = 0; i < captions.size() && !wanted.empty(); ++i) {
    if (!Fold(captions[i]).starts_with(wanted)) continue;
    if (found != 0) return 0;
    found = static_cast<int>(i) + 1;
  }
  return found;
}

bool IsWord(std::string_view answer, std::string_view word) { return Fold(answer) == Fold(word); }

bool AsksForPanel(std::string_view answer) {
  const std::string word = Fold(answer);
  return word == "R" || word == "REG" || word == "REGISTRATORE";
}

bool AsksForMenu(std::string_view answer) {
  const std::string word = Fold(answer);
  return word == "M" || word == "MENU";
}

bool AsksToClose(std::string_view answer) {
  const std::string word = Fold(answer);
  return word == "X" || word == "CHIUDI";
}

}  // namespace orvenza
