#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "support/shop.h"

namespace orvenza::test {
namespace {

using Lines = Shop::Lines;

constexpr const char* kPrinted = "Scontrino stampato, continuare";
constexpr const char* kAgain = "Ristampare lo scontrino ( annullare automaticamente )";
constexpr const char* kGiveUp = "Abortire la stampa dello scontrino";
constexpr const char* kOk = "Ok";
constexpr const char* kYes = "Sì";

const Lines kReceipt{"1;PANE;1,000;150;1;;;1;;", "1;LATTE;2,000;129;1;;;1;;", "2;1;1000;"};
const Lines kWithDrawer{"1;PANE;1,000;150;1;;;1;;", "1;LATTE;2,000;129;1;;;1;;", "2;1;1000;", "26;"};
const Lines kClosure{"21;;;;;;;;;"};
const Lines kWrongValue{"1;PANE;1,000;150;1;;;1;;", "1;UOVA;1;100;1;;;1;;", "2;1;1000;"};
const Lines kWrongLine{"1;PANE;1,000;150;1;;;1;;", "PAGA", "2;1;1000;"};

/// One ticket, what goes wrong, what the operator answers, and "Receipt Reason" of its outcome.
struct Row {
  const char* name;
  Lines ticket;
  const char* script;
  Lines answers;
  const char* said;
  Lines answersInDoubt;     ///< With AskInDoubt=1; "same" stands for the same answers.
  const char* saidInDoubt;  ///< Null for the same.
};

const Lines kSame{"same"};

std::vector<Row> Rows() {
  return {
      {"WellPrinted", kReceipt, "", {}, "yes printed", kSame, nullptr},
      {"StatusNotRead",
       kReceipt,
       "on 3217 #2 x10 reply ##",
       {},
       "doubtful status-unknown",
       {"Riprova"},
       "yes printed"},
      {"ItemUnansweredPrintedAgain", kReceipt, "on 1004 lose-reply", {kAgain}, "yes printed", kSame, nullptr},
      {"ItemUnansweredGivenUp",
       kReceipt,
       "on 1004 silence",
       {kGiveUp},
       "no operator-gave-up",
       kSame,
       nullptr},
      {"ItemUnansweredSaidToBePrinted",
       kReceipt,
       "on 1004 silence",
       {kPrinted},
       "no operator-printed",
       kSame,
       nullptr},
      {"ItemRefusedPrintedAgain", kReceipt, "on 1004 reply ERR16", {kAgain}, "yes printed", kSame, nullptr},
      {"ItemOutOfSequence", kReceipt, "on 1004 reply ERR11", {}, "no refused", {kAgain}, "yes printed"},
      {"ItemGarbled", kReceipt, "on 1004 reply ##", {}, "doubtful no-answer", {kAgain}, "yes printed"},
      {"ItemWithLinkError2",
       kReceipt,
       "on 1004 link-error 2",
       {},
       "doubtful no-answer",
       {kAgain},
       "yes printed"},
      {"PaperOutAtAnItem", kReceipt, "on 1004 paper-out receipt", {kOk}, "yes printed", kSame, nullptr},
      {"PaperOutAtThePayment",
       kReceipt,
       "on 1036 paper-out receipt",
       {kOk},
       "doubtful paper-out",
       {kOk, kPrinted},
       "doubtful operator-printed"},
      {"PaymentUnansweredPrintedAgain",
       kReceipt,
       "on 1036 lose-reply",
       {kAgain},
       "doubtful printed-again",
       kSame,
       nullptr},
      {"PaymentUnansweredSaidToBePrinted",
       kReceipt,
       "on 1036 lose-reply",
       {kPrinted},
       "doubtful operator-printed",
       kSame,
       nullptr},
      {"PaymentUnansweredGivenUp",
       kReceipt,
       "on 1036 silence",
       {kGiveUp},
       "doubtful operator-gave-up",
       kSame,
       nullptr},
      {"PaymentWithLinkError2",
       kReceipt,
       "on 1036 link-error 2",
       {},
       "doubtful no-answer",
       {kAgain},
       "doubtful printed-again"},
      {"PaymentGarbled",
       kReceipt,
       "on 1036 reply ##",
       {},
       "doubtful no-answer",
       {kGiveUp},
       "doubtful operator-gave-up"},
      {"PaymentRefusedPrintedAgain",
       kReceipt,
       "on 1036 reply ERR16",
       {kAgain},
       "yes printed",
       kSame,
       nullptr},
      {"PaymentRefusedGivenUp",
       kReceipt,
       "on 1036 reply ERR16",
       {kGiveUp},
       "no operator-gave-up",
       kSame,
       nullptr},
      {"PaymentOutOfSequence",
       kReceipt,
       "on 1036 reply ERR11",
       {},
       "no refused",
       {kGiveUp},
       "no operator-gave-up"},
      {"DrawerUnansweredPrintedAgain",
       kWithDrawer,
       "on 1047 silence",
       {kAgain},
       "doubtful printed-again",
       kSame,
       "yes printed"},
      {"ItemRefusedReceiptClosed",
       kReceipt,
       "on 1004 reply ERR16\non 1028 reply ERR11",
       {kAgain, kYes},
       "doubtful closed-automatically",
       kSame,
       nullptr},
      {"ClosureRefused", kClosure, "on 3001 reply ERR16", {}, "no refused", {kGiveUp}, "no operator-gave-up"},
      {"ClosureUnanswered",
       kClosure,
       "on 3001 silence",
       {},
       "doubtful no-answer",
       {kGiveUp},
       "doubtful operator-gave-up"},
      {"LineLeftOut",
       kWrongValue,
       "",
       {"close"},
       "doubtful invalid-line",
       {"close", kGiveUp},
       "no operator-gave-up"},
      {"LineThatIsNoCommand", kWrongLine, "", {kGiveUp}, "no operator-gave-up", kSame, nullptr},
  };
}

class OutcomeTable : public testing::TestWithParam<Row> {
 protected:
  static std::string Play(const Row& row, bool askInDoubt) {
    Shop shop(row.script);
    shop.Configure("Host", "Outcomes", shop.folder.Path("esiti"));
    if (askInDoubt) shop.Configure("Safety", "AskInDoubt", "1");
    const bool same = !askInDoubt || row.answersInDoubt == kSame;
    for (const std::string& answer : same ? row.answers : row.answersInDoubt) shop.Answer(answer);
    shop.Drop("0042.txt", row.ticket);
    shop.Run(std::chrono::minutes(10));
    const std::string text = shop.folder.Read("esiti\\0042.txt.ini");
    const auto value = [&](const std::string& key) {
      const std::size_t start = text.find("\r\n" + key + "=") + key.size() + 3;
      return text.substr(start, text.find("\r\n", start) - start);
    };
    return value("Receipt") + " " + value("Reason");
  }
};

TEST_P(OutcomeTable, HoldsForTheContract) { EXPECT_EQ(Play(GetParam(), false), GetParam().said); }

TEST_P(OutcomeTable, HoldsWhereTheOperatorIsAsked) {
  const Row& row = GetParam();
  EXPECT_EQ(Play(row, true), row.saidInDoubt == nullptr ? row.said : row.saidInDoubt);
}

INSTANTIATE_TEST_SUITE_P(Rows, OutcomeTable, testing::ValuesIn(Rows()),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace orvenza::test
