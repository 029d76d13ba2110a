#include "simulator/commands.h"

#include <gtest/gtest.h>

#include "simulator/command_fields.h"
#include "simulator/receipt.h"

namespace orvenza::test {
namespace {

CommandData DataOf(const std::string& text) {
  CommandFields fields(text);
  CommandData data = FindRegisterCommand(text.substr(0, 4))->read(fields);
  EXPECT_TRUE(fields.Complete()) << text;
  return data;
}

TEST(Commands, AreFoundByTheirWholeCode) {
  for (const char* code : {"1003", "1050", "4201"}) EXPECT_EQ(FindRegisterCommand(code)->code, code);
  for (const char* code : {"", "100", "1000", "10031", "9999", "BMP"})
    EXPECT_EQ(FindRegisterCommand(code), nullptr);
}

TEST(Commands, SayWhereTheyAreTaken) {
  const struct {
    CommandPlace place;
    bool inNeither;
    bool inReceipt;
    bool inDocument;
  } kPlaces[] = {
      {CommandPlace::kAnywhere, true, true, true},     {CommandPlace::kInReceipt, false, true, false},
      {CommandPlace::kInDocument, false, false, true}, {CommandPlace::kInEither, false, true, true},
      {CommandPlace::kInNeither, true, false, false},  {CommandPlace::kOutsideDocument, true, true, false},
  };
  for (const auto& row : kPlaces) {
    EXPECT_EQ(IsTaken(row.place, false, false), row.inNeither) << static_cast<int>(row.place);
    EXPECT_EQ(IsTaken(row.place, true, false), row.inReceipt) << static_cast<int>(row.place);
    EXPECT_EQ(IsTaken(row.place, false, true), row.inDocument) << static_cast<int>(row.place);
  }
}

TEST(Commands, ReadTheirDataByTheirLayout) {
  const CommandData item = DataOf("100501" + std::string(40, ' ') + "PANE            0001250100000045003 kg");
  EXPECT_EQ(item.text, "PANE             kg");
  EXPECT_EQ(item.quantity, 1250);
  EXPECT_EQ(item.amount, 450);
  EXPECT_EQ(DataOf("102101000000050").amount, -50);
  EXPECT_EQ(DataOf("1022011500").rate, -1500);
  EXPECT_EQ(DataOf("1023011500").rate, 1500);
  EXPECT_EQ(DataOf("1023011500").text, " 15,00%");
  EXPECT_EQ(DataOf("10670102ANNA").number, 2);
  EXPECT_EQ(DataOf("10680102ANNA").number, 102);
}

TEST(Commands, ChangeTheSumsOfAReceipt) {
  Receipt receipt;
  const auto change = [&](const std::string& text) {
    const RegisterCommand& command = *FindRegisterCommand(text.substr(0, 4));
    return ChangeSums(receipt, command.effect, AmountOf(command, DataOf(text), receipt));
  };
  const auto item = [](const std::string& code, const std::string& quantity) {
    return code + "01" + std::string(40, ' ') + "PANE            " + quantity + "100000010001";
  };
  EXPECT_EQ(change(item("1004", "0002000")), "");
  EXPECT_EQ(receipt.Total(), 200);
  EXPECT_EQ(change("1022011000"), "");
  EXPECT_EQ(receipt.Total(), 180);
  EXPECT_EQ(change("105001"), "");
  EXPECT_EQ(change("102101000000001"), "11") << "no item is open after a subtotal";
  EXPECT_EQ(change("1026015000"), "");
  EXPECT_EQ(receipt.Total(), 270);
  EXPECT_EQ(change(item("1015", "0001000")), "");
  EXPECT_EQ(receipt.Total(), 170);
  EXPECT_EQ(change("103601000000100"), "");
  EXPECT_EQ(receipt.Due(), 70);
  EXPECT_EQ(change("103601000000000"), "") << "a payment of nothing pays what is due";
  EXPECT_TRUE(receipt.Paid());
}

}  // namespace
}  // namespace orvenza::test
