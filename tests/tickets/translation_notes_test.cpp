#include <gtest/gtest.h>

#include <string>

#include "tickets/translation_world.h"

namespace orvenza::test {
namespace {

/// Shows each note as "field:kind" with the form's width or the note's text.
class TranslationNotesTest : public TranslationTest {
 protected:
  std::string NotesOf(std::string_view line) const {
    RecordFields fields;
    SplitRecord(line, ';', fields);
    TranslationNotes notes;
    translator.TranslateRecord(fields, &notes);
    return Shown(notes);
  }

  static std::string Shown(const TranslationNotes& notes) {
    std::string text;
    for (const FieldNote& note : notes) text += (text.empty() ? "" : ", ") + Shown(note);
    return text;
  }

 private:
  static std::string Shown(const FieldNote& note) {
    const std::string field = std::to_string(note.field);
    switch (note.kind) {
      case FieldNote::Kind::kFormatted: return field + " width " + std::to_string(note.form.width);
      case FieldNote::Kind::kReplaced: return field + " sent as " + std::string(note.text);
      case FieldNote::Kind::kRead: return field + " read";
      case FieldNote::Kind::kChoice: return field + " choice";
      case FieldNote::Kind::kUnknownType: return field + " unknown type";
      case FieldNote::Kind::kNoSuchChoice: return field + " not of " + std::string(note.text);
      case FieldNote::Kind::kLogoNumber: return field + " logo number";
      case FieldNote::Kind::kLogo: return field + " logo";
      case FieldNote::Kind::kNoLogo: return field + " no logo";
      case FieldNote::Kind::kEmptyLogo: return field + " empty logo";
    }
    return {};
  }
};

TEST_F(TranslationNotesTest, NameEveryValueInTheCommandsOrder) {
  EXPECT_EQ(NotesOf("2;1;5000;2;CONTANTI;"), "1 width 2, 3 width 1, 4 width 16, 2 width 9");
  EXPECT_EQ(NotesOf("43;1;0;100;250;3;TESTO;"),
            "1 width 2, 2 width 1, 3 width 4, 4 width 4, 5 width 2, 6 width 40");
  EXPECT_EQ(NotesOf("21;"), "");
}

TEST_F(TranslationNotesTest, NameWhatIsReadAsAnyTextButNotSent) {
  EXPECT_EQ(NotesOf("14;700;1;3;TESTO;x;"), "5 read, 2 width 2, 3 width 2, 4 width 16, 1 width 9");
  EXPECT_EQ(NotesOf("34;x;700;1;"), "1 read, 3 width 2, 2 width 9");
  EXPECT_EQ(NotesOf("35;x;700;1;"), "1 read, 3 width 2, 2 width 9");
}

TEST_F(TranslationNotesTest, NameWhatIsReadAsAChoice) {
  EXPECT_EQ(NotesOf("1;1;2;;50;TESTO;1;;-1;"),
            "8 choice, 1 choice, 6 choice, 2 width 2, 5 width 16, 4 width 9");
  EXPECT_EQ(NotesOf("6;;1;1500;"), "1 choice, 2 width 2, 3 width 4");
  EXPECT_EQ(NotesOf("7;1;1;500;TESTO;1;"), "5 choice, 1 choice, 2 width 2, 4 width 16, 3 width 9");
}

TEST_F(TranslationNotesTest, TakeAnyPathForALogoWhereNoFileIsLookedAt) {
  RecordFields fields;
  SplitRecord("33;1;C:\\none.bmp;", ';', fields);
  EXPECT_EQ(Shown(orvenza::NotesOf(fields)), "1 logo number, 2 logo");
}

TEST_F(TranslationNotesTest, CountAllOfAnItemsDescription) {
  EXPECT_EQ(NotesOf("1;Pane;1000;450;3;;;1;"),
            "8 choice, 2 width 7, 7 width 2, 1 width 20, 3 width 9, 4 width 2");
}

TEST_F(TranslationNotesTest, GoOnAfterARejectedValue) {
  EXPECT_EQ(NotesOf("15;x;y;"), "1 width 2, 2 width 9");
}

TEST_F(TranslationNotesTest, NoteWhatIsSentInstead) {
  EXPECT_EQ(NotesOf("23;Grazie;x;"), "2 sent as 01, 1 width 32");
  EXPECT_EQ(NotesOf("5;x;1;;;y;"), "4 choice, 2 width 2, 1 sent as 00, 5 sent as 000000000");
  EXPECT_EQ(NotesOf("30;1;4;Ciao;"), "2 width 1, 2 sent as 3, 1 width 2, 3 width 27");
}

TEST_F(TranslationNotesTest, NoteWhyARecordIsInvalid) {
  EXPECT_EQ(NotesOf("10;1;"), "0 unknown type");
  EXPECT_EQ(NotesOf("1;4;1;;;;;;-1;"), "8 choice, 1 choice, 6 choice, 1 not of 1, 2, 3");
  EXPECT_EQ(NotesOf("6;1;1;5;"), "1 choice, 1 not of 2, 3");
  EXPECT_EQ(NotesOf("7;2;1;5;"), "5 choice, 1 choice, 1 not of 1");
  EXPECT_EQ(NotesOf("8;1;1;"), "2 choice, 2 not of -1, 0");
  EXPECT_EQ(NotesOf("32;1;13;"), "2 choice, 2 not of 1 to 12");
  EXPECT_EQ(NotesOf("33;0;C:\\none.bmp;"), "1 logo number, 2 no logo");
}

}  // namespace
}  // namespace orvenza::test
