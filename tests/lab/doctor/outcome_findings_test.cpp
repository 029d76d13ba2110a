#include "lab/doctor/outcome_findings.h"

#include "lab/shell/shop_bench.h"

namespace orvenza::test {
namespace {

class OutcomeFindings : public ShopBench {
 protected:
  void Name(const std::string& folder) {
    disk.Put(At("Orvenza.ini"), *disk.Content(At("Orvenza.ini")) + "[Host]\r\nOutcomes=" + folder + "\r\n");
  }
};

TEST_F(OutcomeFindings, SayNothingWithoutTheSetting) {
  EXPECT_EQ(Said(), "");
  EXPECT_EQ(InOrder().find("outcomes"), std::string::npos);
}

TEST_F(OutcomeFindings, CountTheFiles) {
  Name("C:\\Orvenza\\esiti");
  disk.Put(At("esiti\\0042.txt.ini"), "");
  EXPECT_EQ(Said(), "");
  EXPECT_NE(InOrder().find("ok outcomes.count: The outcomes folder C:\\Orvenza\\esiti\\ holds 1 file.\n"),
            std::string::npos)
      << InOrder();
  EXPECT_NE(InOrder().find("historic folder, outcomes folder.\n"), std::string::npos) << InOrder();
}

TEST_F(OutcomeFindings, WarnAboveTenThousandFiles) {
  Name("C:\\Orvenza\\esiti");
  for (int i = 1; i <= 10'000; ++i) disk.Put(At("esiti\\" + std::to_string(i) + ".txt.ini"), "");
  EXPECT_EQ(Said(), "");
  disk.Put(At("esiti\\10001.txt.ini"), "");
  EXPECT_EQ(Said(), "warning outcomes.count: The outcomes folder C:\\Orvenza\\esiti\\ holds 10001 files.\n");
  EXPECT_EQ(Remedy("outcomes.count"),
            "Let the host remove the outcomes that it has read; Orvenza never does.");
}

TEST_F(OutcomeFindings, WarnAboutAFolderThatIsRefused) {
  Name("c:\\orvenza\\data\\esiti");
  EXPECT_EQ(
      Said(),
      "warning outcomes.off: The outcomes folder c:\\orvenza\\data\\esiti\\ is searched for tickets, or is "
      "in the historic folder, or is the program folder, so it is not used: the host gets no outcomes.\n");
}

TEST_F(OutcomeFindings, WarnAboutAFolderThatCannotBeUsed) {
  Name("E:\\esiti");
  EXPECT_EQ(Said(),
            "warning folder.drive: The outcomes folder E:\\esiti\\ is on a drive that cannot be reached.\n");
  Edit("E:\\esiti", "C:\\Orvenza\\esiti");
  disk.MakeFolder(At("esiti"));
  machine.readOnly = {At("esiti\\")};
  EXPECT_EQ(Said(),
            "warning folder.readonly: The outcomes folder C:\\Orvenza\\esiti\\ cannot be written to.\n");
  machine.readOnly = {};
  machine.volumes = {{At("esiti\\"), "7"}};
  EXPECT_EQ(Said(), "");
}

}  // namespace
}  // namespace orvenza::test
