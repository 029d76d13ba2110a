#include "ui/terminal/answers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvenza {
namespace {

struct Case {
  std::vector<std::string> captions;
  const char* answer;
  int found;
};

const std::vector<std::string> kYesNo = {"Sì", "No"};
const std::vector<std::string> kConfigure = {"Riprova", "Annulla", "Configura"};
const std::vector<std::string> kUtilities = {"&Esci", "&Chiusura Fiscale",
                                             "Chiusura &Fiscale con Finanziario"};
const std::vector<std::string> kBits = {"7", "8"};
const std::vector<std::string> kOptions = {"Scontrino stampato, continuare", "Abortire la stampa"};

const Case kCaptionCases[] = {
    {kConfigure, "1", 1},
    {kConfigure, "3", 3},
    {kConfigure, " 2 ", 2},
    {kConfigure, "4", 0},
    {kConfigure, "0", 0},
    {kConfigure, "-1", 0},
    {kConfigure, "1a", 0},
    {kConfigure, "99999999999999", 0},
    {kConfigure, "configura", 3},
    {kConfigure, "ANNULLA", 2},
    {kConfigure, "Annull", 0},
    {kConfigure, "", 0},
    {kConfigure, "'", 0},
    {kYesNo, "sì", 1},
    {kYesNo, "SÌ", 1},
    {kYesNo, "si", 1},
    {kYesNo, "si'", 1},
    {kUtilities, "chiusura fiscale", 2},
    {kUtilities, "&Chiusura Fiscale", 2},
    {kUtilities, "Chiusura Fiscale con Finanziario", 3},
    {kBits, "1", 1},
    {kBits, "7", 1},
    {kBits, "8", 2},
    {kOptions, "s", 0},
    {kOptions, "a", 0},
};

TEST(FindCaption, TakesANumberOrAWholeCaption) {
  for (const Case& row : kCaptionCases)
    EXPECT_EQ(FindCaption(row.captions, row.answer), row.found) << row.answer;
}

const Case kButtonCases[] = {
    {kConfigure, "2", 2}, {kConfigure, "riprova", 1}, {kConfigure, "r", 1}, {kConfigure, "C", 3},
    {kConfigure, "q", 0}, {kConfigure, "", 0},        {kYesNo, "s", 1},     {kYesNo, "n", 2},
    {kUtilities, "e", 1}, {kUtilities, "c", 2},       {kUtilities, "f", 3}, {{"Annulla", "Apri"}, "a", 0},
    {{"&Ok"}, "o", 1},    {{"&Ok"}, "ok", 1},
};

TEST(FindButton, TakesALetterTooUnlessTwoButtonsHaveIt) {
  for (const Case& row : kButtonCases)
    EXPECT_EQ(FindButton(row.captions, row.answer), row.found) << row.answer;
}

TEST(FindCaptionByStart, TakesTheBeginningOfOneCaption) {
  const std::vector<std::string> captions{"Errore 01: Carta", "Errore 02: Carta", "Errore 02", "È fuori"};
  const Case cases[] = {{captions, "2", 2},         {captions, "errore 01", 1}, {captions, "errore", 0},
                        {captions, "ERRORE 02", 3}, {captions, "e'", 0},        {captions, "e' f", 4},
                        {captions, "", 0},          {captions, "rrore", 0}};
  for (const Case& row : cases)
    EXPECT_EQ(FindCaptionByStart(row.captions, row.answer), row.found) << row.answer;
}

TEST(Answers, KnowTheWordsForThePanel) {
  for (const char* word : {"r", "R", "reg", "Registratore"}) EXPECT_TRUE(AsksForPanel(word)) << word;
  for (const char* word : {"", "re", "riprova", "1"}) EXPECT_FALSE(AsksForPanel(word)) << word;
}

TEST(Answers, CompareAWordWithoutItsCase) {
  EXPECT_TRUE(IsWord("SEMPRE", "sempre"));
  EXPECT_FALSE(IsWord("sempre", "semp"));
}

TEST(Answers, KnowTheWordsForTheMenuAndForClosing) {
  for (const char* word : {"m", "M", "menu", "Menu", "menù"}) EXPECT_TRUE(AsksForMenu(word)) << word;
  for (const char* word : {"x", "X", "chiudi", "CHIUDI"}) EXPECT_TRUE(AsksToClose(word)) << word;
  for (const char* word : {"", "me", "xx", "1"}) {
    EXPECT_FALSE(AsksForMenu(word)) << word;
    EXPECT_FALSE(AsksToClose(word)) << word;
  }
}

TEST(PlainCaption, LosesTheMarkOfItsLetter) {
  EXPECT_EQ(PlainCaption("Chiusura &Fiscale"), "Chiusura Fiscale");
  EXPECT_EQ(PlainCaption("&Ok"), "Ok");
  EXPECT_EQ(PlainCaption("Ok"), "Ok");
}

}  // namespace
}  // namespace orvenza
