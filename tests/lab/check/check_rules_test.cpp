#include "lab/check/check_rules.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "lab/shell/lab_bench.h"
#include "support/temp_folder.h"
#include "tickets/model_rules.h"

namespace orvenza::test {
namespace {

class CheckRulesTest : public ::testing::Test {
 protected:
  CheckRules Rules(const std::vector<std::string>& words) {
    return CheckRulesOf(ReadArguments(words, CheckRuleOptions()), lab.surroundings);
  }

  std::string Refusal(const std::vector<std::string>& words) {
    try {
      Rules(words);
      return "accepted";
    } catch (const std::runtime_error& refused) {
      return refused.what();
    }
  }

  void Settings(const std::string& general) {
    lab.files.content["shop\\Orvenza.ini"] = "[General]\r\n" + general + "\r\n";
  }

  LabBench lab;
};

TEST_F(CheckRulesTest, AreThoseOfANewInstallationWhereNothingIsSaid) {
  const CheckRules rules = Rules({});
  EXPECT_EQ(rules.settings.SeparatorChar, 127);
  EXPECT_FALSE(rules.settings.SingleQuantity);
  EXPECT_FALSE(rules.settings.FileParser);
  EXPECT_EQ(rules.identity.DeviceModel, "          ");
}

TEST_F(CheckRulesTest, TakeASeparatorAsCodeOrCharacter) {
  EXPECT_EQ(Rules({"--separator", "59"}).settings.SeparatorChar, ';');
  EXPECT_EQ(Rules({"--separator", ";"}).settings.SeparatorChar, ';');
  EXPECT_EQ(Rules({"--separator", "32"}).settings.SeparatorChar, ' ');
  EXPECT_EQ(Rules({"--separator", "127"}).settings.SeparatorChar, 127);
}

TEST_F(CheckRulesTest, RefuseASeparatorThatIsNeverFound) {
  for (const char* separator : {"9", "31", "128", "255", "0", "5", "\t", "\xE8"}) {
    EXPECT_EQ(
        Refusal({std::string("--separator=") + separator}),
        "the separator '" + std::string(separator) +
            "' is never found in a line: it must be a character code from 32 to 127, for only these stay "
            "as they are");
  }
}

TEST_F(CheckRulesTest, RefuseInvalidSeparators) {
  for (const char* separator : {"300", "-1", "59x", ";;"}) {
    EXPECT_EQ(
        Refusal({std::string("--separator=") + separator}),
        "--separator '" + std::string(separator) + "': expected a code from 32 to 127 or one character");
  }
}

TEST_F(CheckRulesTest, ComeFromTheSettingsOfAFolder) {
  Settings("Separator (ascii,max 127)=59\r\nSingle Quantity=1\r\nFile Parser=1");
  const CheckRules rules = Rules({"--folder", "shop"});
  EXPECT_EQ(rules.settings.SeparatorChar, ';');
  EXPECT_TRUE(rules.settings.SingleQuantity);
  EXPECT_TRUE(rules.settings.FileParser);
}

TEST_F(CheckRulesTest, ComeFromTheSettingsOfARenamedConnector) {
  lab.files.content["shop\\Cassa.ini"] = "[General]\r\nSeparator (ascii,max 127)=59\r\n";
  EXPECT_EQ(Rules({"--folder", "shop", "--name", "Cassa"}).settings.SeparatorChar, ';');
  const TempFolder other;
  EXPECT_EQ(Refusal({"--folder", other.Path(), "--name", "Banco"}),
            "there is no Banco.ini that can be read in the folder '" + other.Path() + "'");
}

TEST_F(CheckRulesTest, LetOptionsWinOverTheSettings) {
  Settings("Separator (ascii,max 127)=59");
  const CheckRules rules = Rules({"--folder", "shop", "--separator", "124", "--single-quantity"});
  EXPECT_EQ(rules.settings.SeparatorChar, '|');
  EXPECT_TRUE(rules.settings.SingleQuantity);
}

TEST_F(CheckRulesTest, LeaveTheSettingsFileAsItIs) {
  Settings("Separator (ascii,max 127)=300");  // would be repaired
  const std::string before = lab.files.content["shop\\Orvenza.ini"];
  EXPECT_EQ(Rules({"--folder", "shop"}).settings.SeparatorChar, 127);
  EXPECT_EQ(lab.files.content["shop\\Orvenza.ini"], before);
  EXPECT_EQ(lab.files.content.size(), 1U);
}

TEST_F(CheckRulesTest, RefuseSettingsThatCannotCount) {
  EXPECT_EQ(Refusal({"--folder", "shop"}), "'shop' is not a folder");
  Settings("Separator (ascii,max 127)=9");
  EXPECT_EQ(
      Refusal({"--folder", "shop"}),
      "the separator of the settings, 9, is never found in a line: it must be a character code from 32 to "
      "127, for only these stay as they are");
  EXPECT_EQ(Refusal({"--folder", "shop", "--separator", "59"}), "accepted");
}

TEST_F(CheckRulesTest, FindAModelByItsLabelWithoutItsBlanks) {
  const struct {
    const char* model;
    const char* label;
  } kModels[] = {
      {"TOVEST 8", "  TOVEST 8"},   {"tovest eth", "TOVEST ETH"}, {"315 KV", "  315 KV  "},
      {"  315 KV  ", "  315 KV  "}, {"QUARNIS A", "QUARNIS  A"},  {"MELDANO", "  MELDANO "},
      {"40 ZAFRON", "  MELDANO "},  {"ORVSIM", "ORVSIM    "},     {"", "          "},
  };
  for (const auto& [model, label] : kModels) EXPECT_EQ(IdentityOf(model, "").DeviceModel, label) << model;
}

TEST_F(CheckRulesTest, LetTheReleaseDecide) {
  EXPECT_EQ(RulesFor(Rules({"--model", "QUARNIS A", "--release", "2.02.00"}).identity).code17, "1082");
  EXPECT_EQ(RulesFor(Rules({"--model", "QUARNIS A", "--release", "2.01.99"}).identity).code17, "1068");
  EXPECT_EQ(RulesFor(Rules({"--model", "315 KV", "--release", "1.00"}).identity).code17, "1082");
  EXPECT_EQ(RulesFor(Rules({"--model", "QUARNIS A"}).identity).code17, "1068");
}

TEST_F(CheckRulesTest, ReportAModelWithoutRulesOfItsOwn) {
  EXPECT_EQ(UnknownModelNote("TOVEST ETG"),
            "no model 'TOVEST ETG' is known, so the rules for any other count; did you mean 'TOVEST ETH'?\n"
            "Known: TOVEST 8, TOVEST ETH, 315 KV, QUARNIS A, MELDANO, 40 ZAFRON");
  EXPECT_EQ(UnknownModelNote("quarnis  a"), "");
  EXPECT_EQ(UnknownModelNote("40 ZAFRON"), "");
  EXPECT_EQ(UnknownModelNote(""), "");
}

TEST_F(CheckRulesTest, RefuseALabelThatNoRegisterHas) {
  EXPECT_EQ(Refusal({"--model", "TOVEST EIGHT"}), "the model 'TOVEST EIGHT' has more than ten characters");
}

}  // namespace
}  // namespace orvenza::test
