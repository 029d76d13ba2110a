#include "lab/paper/paper_slip.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "simulator/paper_layout.h"

namespace orvenza {

static void PrintTo(const PaperRow& row, std::ostream* out) { *out << row.text; }

static void PrintTo(const PaperSlip& slip, std::ostream* out) {
  for (const PaperRow& row : slip.rows) *out << row.text << "\n";
  *out << (slip.cut ? "cut" : "open");
}

namespace {

using Kind = PaperRow::Kind;
using Slips = std::vector<PaperSlip>;

TEST(PaperSlip, ShowsALineOfTheRegisterInUtf8WithoutControlCharacters) {
  EXPECT_EQ(PrintedRow("Caff\xE8 \x80\x1B\x7F|"), (PaperRow{Kind::kPrinted, "Caffè €  |"}));
}

TEST(PaperSlip, EndsWhereACommandPrintsTheCut) {
  SlipRecorder recorder;
  recorder.Print("PANE");
  recorder.EndCommand();
  recorder.Print("SCONTRINO N. 1");
  recorder.Print(Divider());
  recorder.EndCommand();
  recorder.Print("LATTE");
  recorder.EndCommand();
  EXPECT_EQ(recorder.Take(), (Slips{{{{Kind::kPrinted, "PANE"}, {Kind::kPrinted, "SCONTRINO N. 1"}}, true},
                                    {{{Kind::kPrinted, "LATTE"}}, false}}));
}

TEST(PaperSlip, IsNotCutByATextThatLooksLikeTheCut) {
  SlipRecorder recorder;
  recorder.Print(Divider());
  recorder.EndCommand();
  recorder.Print("PANE");
  recorder.EndCommand();
  EXPECT_EQ(recorder.Take(), (Slips{{{{Kind::kPrinted, Divider()}, {Kind::kPrinted, "PANE"}}, false}}));
}

TEST(PaperSlip, BeginsAnewOnceItIsTaken) {
  SlipRecorder recorder;
  recorder.Add(Kind::kRemark, "one");
  EXPECT_EQ(recorder.Take(), (Slips{{{{Kind::kRemark, "one"}}, false}}));
  recorder.Add(Kind::kRemark, "two");
  EXPECT_EQ(recorder.Take(), (Slips{{{{Kind::kRemark, "two"}}, false}}));
  EXPECT_EQ(recorder.Take(), Slips{});
}

/// The rows of a remark, each ended by "|".
std::string Rows(const std::string& text) {
  SlipRecorder recorder;
  recorder.Add(Kind::kRemark, text);
  std::string rows;
  const Slips slips = recorder.Take();
  for (const PaperRow& row : slips.front().rows) rows += row.text + "|";
  return rows;
}

TEST(PaperSlip, WrapsARemarkAtItsBlanks) {
  EXPECT_EQ(Rows(">>> line 2 refused: ERR11 (Sequenza Errata)"),
            ">>> line 2 refused: ERR11 (Sequenza|    Errata)|");
  EXPECT_EQ(Rows("exactly forty characters fit in this row"), "exactly forty characters fit in this row|");
  EXPECT_EQ(Rows("exactly forty characters fit in this row but"),
            "exactly forty characters fit in this row|    but|");
  EXPECT_EQ(Rows(""), "|");
}

TEST(PaperSlip, BreaksAWordThatIsTooLong) {
  EXPECT_EQ(Rows(std::string(80, 'x')),
            std::string(40, 'x') + "|    " + std::string(36, 'x') + "|    " + std::string(4, 'x') + "|");
}

TEST(PaperSlip, CountsTheCharactersOfARemark) {
  std::string accents;
  for (int i = 0; i < 41; ++i) accents += "è";
  EXPECT_EQ(Rows(accents), accents.substr(0, 80) + "|    è|");
}

TEST(PaperSlip, HasNoControlCharactersInARemark) { EXPECT_EQ(Rows("a\nb\x1B[31m\xC2\x9F"), "a b [31m |"); }

}  // namespace
}  // namespace orvenza
