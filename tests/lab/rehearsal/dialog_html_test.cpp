#include "lab/rehearsal/dialog_html.h"

#include <gtest/gtest.h>

#include <string>

namespace orvenza::test {
namespace {

ShownDialog Choice(const std::string& answer) {
  return {DialogKind::kChoice,
          "Orvenza",
          "Attenzione ! Errore ECR :",
          "11-<Sequenza>\r\nErrata",
          MessageIcon::kNone,
          {"Stampato", "Ristampare"},
          {"&Ok"},
          answer,
          2};
}

TEST(DialogHtml, ShowsAChoiceAndWhatWasChosen) {
  EXPECT_EQ(
      DialogHtml(Choice("stampato")),
      "<div class=\"window\"><div class=\"caption\">Orvenza</div>"
      "<div class=\"content\"><div><p>Attenzione ! Errore ECR :</p><p>11-&lt;Sequenza&gt;\nErrata</p>"
      "<ul><li class=\"answered\">\xE2\x97\x8B Stampato</li><li>\xE2\x97\x89 Ristampare</li></ul></div></div>"
      "<div class=\"buttons\"><span><u>O</u>k</span></div>"
      "<div class=\"answer\">Answered: stampato</div></div>");
}

TEST(DialogHtml, ShowsAMessageWithItsIconAndButtons) {
  const ShownDialog dialog{
      DialogKind::kMessage, "Orvenza", "", "\r\nSei sicuro ?", MessageIcon::kQuestion, {},
      {"S\xC3\xAC", "No"},  "No"};
  EXPECT_EQ(DialogHtml(dialog),
            "<div class=\"window\"><div class=\"caption\">Orvenza</div>"
            "<div class=\"content\"><span class=\"icon\">?</span><div><p>Sei sicuro ?</p></div></div>"
            "<div class=\"buttons\"><span>Sì</span><span class=\"answered\">No</span></div>"
            "<div class=\"answer\">Answered: No</div></div>");
}

TEST(DialogHtml, HasNoContentWithoutATextAndOptions) {
  const ShownDialog dialog{DialogKind::kUtilities, "Utilita'", "",        "",
                           MessageIcon::kNone,     {},         {"&Esci"}, "close"};
  EXPECT_EQ(DialogHtml(dialog),
            "<div class=\"window\"><div class=\"caption\">Utilita&#39;</div>"
            "<div class=\"buttons\"><span><u>E</u>sci</span></div>"
            "<div class=\"answer\">Closed without an answer.</div></div>");
}

/// The icon of a message.
std::string IconOf(MessageIcon icon) {
  const std::string html = DialogHtml({DialogKind::kMessage, "", "", "x", icon, {}, {}, ""});
  const std::string before = "<div class=\"content\">";
  const std::size_t begin = html.find(before) + before.size();
  return html.substr(begin, html.find("<div><p>") - begin);
}

TEST(DialogHtml, ShowsTheIconOfAMessage) {
  EXPECT_EQ(IconOf(MessageIcon::kNone), "");
  EXPECT_EQ(IconOf(MessageIcon::kStop), "<span class=\"icon stop\">×</span>");
  EXPECT_EQ(IconOf(MessageIcon::kQuestion), "<span class=\"icon\">?</span>");
  EXPECT_EQ(IconOf(MessageIcon::kExclamation), "<span class=\"icon warn\">!</span>");
  EXPECT_EQ(IconOf(MessageIcon::kInformation), "<span class=\"icon\">i</span>");
}

TEST(DialogHtml, MarksTheLastAnswer) {
  const std::string html = DialogHtml(Choice("menu Info, Ristampare"));
  EXPECT_NE(html.find("<li class=\"answered\">\xE2\x97\x89 Ristampare</li>"), std::string::npos) << html;
  EXPECT_NE(html.find("Answered: menu Info, Ristampare"), std::string::npos) << html;
}

TEST(DialogHtml, SaysThatNobodyAnswered) {
  const std::string html = DialogHtml(Choice(""));
  EXPECT_EQ(html.find("answered\""), std::string::npos) << html;
  EXPECT_NE(html.find("<div class=\"answer\">Nobody answered.</div>"), std::string::npos) << html;
}

TEST(DialogRecord, AddsEachAnswerToItsDialog) {
  DialogRecord record;
  ShownDialog outer = Choice("");
  ShownDialog inner = Choice("");
  record.Note(outer, "");
  record.Note(inner, "");
  inner.answer = "Ok";
  record.Note(inner, "Ok");
  outer.answer = "Stampato";
  record.Note(outer, "Stampato");
  ASSERT_EQ(record.Dialogs().size(), 2u);
  EXPECT_EQ(record.Dialogs()[0].answer, "Stampato");
  EXPECT_EQ(record.Dialogs()[1].answer, "Ok");
}

}  // namespace
}  // namespace orvenza::test
