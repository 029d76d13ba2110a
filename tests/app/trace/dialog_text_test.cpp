#include "app/trace/dialog_text.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

TEST(DialogText, ShowsAMessageWithItsIconAndItsLinesSideBySide) {
  ShownDialog dialog;
  dialog.caption = "Orvenza - Attenzione !";
  dialog.text = "\r\nPrimo\r\nSecondo";
  dialog.icon = MessageIcon::kExclamation;
  dialog.buttons = {"Sì", "No"};
  EXPECT_EQ(DialogText(dialog), "Orvenza - Attenzione ! (exclamation): Primo / Secondo [Sì] [No]");
}

TEST(DialogText, NamesEachIcon) {
  const std::pair<MessageIcon, const char*> rows[] = {
      {MessageIcon::kNone, "A: B"},
      {MessageIcon::kStop, "A (stop): B"},
      {MessageIcon::kQuestion, "A (question): B"},
      {MessageIcon::kInformation, "A (information): B"},
  };
  for (const auto& [icon, text] : rows) {
    ShownDialog dialog;
    dialog.caption = "A";
    dialog.text = "B";
    dialog.icon = icon;
    EXPECT_EQ(DialogText(dialog), text);
  }
}

TEST(DialogText, MarksTheOptionSelectedAtFirst) {
  ShownDialog dialog;
  dialog.kind = DialogKind::kChoice;
  dialog.caption = "Orvenza";
  dialog.heading = "Errore :";
  dialog.text = "08";
  dialog.options = {"Continuare", "Ristampare"};
  dialog.selected = 2;
  dialog.buttons = {"&Ok"};
  EXPECT_EQ(DialogText(dialog), "Orvenza (choice): Errore : / 08 ( ) Continuare (*) Ristampare [&Ok]");
}

TEST(DialogText, ShowsTheOtherDialogsByTheirCaptions) {
  ShownDialog dialog;
  dialog.kind = DialogKind::kUtilities;
  dialog.caption = "Utilita'";
  dialog.buttons = {"&Esci"};
  EXPECT_EQ(DialogText(dialog), "Utilita' (utilities) [&Esci]");
  dialog.kind = DialogKind::kPortSettings;
  dialog.text = "COM1 19200";
  EXPECT_EQ(DialogText(dialog), "Utilita' (port): COM1 19200 [&Esci]");
}

}  // namespace
}  // namespace orvenza::test
