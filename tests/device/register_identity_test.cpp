#include "device/register_identity.h"

#include <gtest/gtest.h>

#include "support/device_bench.h"

namespace orvenza::test {
namespace {

class IdentityTest : public DeviceBench {
 protected:
  void LearnFrom(const std::string& reply) {
    control.Reply(reply);
    EXPECT_EQ(queries.IdentityQuery(Asking::kAttended), reply);
  }

  const RegisterIdentity& identity = queries.Identity();
};

TEST_F(IdentityTest, ModelAndReleaseStandAtTheirPlaces) {
  LearnFrom("199900  MELDANO    2.02.00tail");
  EXPECT_EQ(identity.DeviceModel, "  MELDANO ");
  EXPECT_EQ(identity.DeviceRelease, "   2.02.00");
  EXPECT_EQ(identity.DeviceReleaseNumber, 20200);
  EXPECT_EQ(Activity(), Lines{"Dati Cash : 00  MELDANO    2.02.00tail"});
}

TEST_F(IdentityTest, TheOneModelIsDrivenAsTheOther) {
  LearnFrom("199900 40 ZAFRON   1.15.07");
  EXPECT_EQ(identity.DeviceModel, "  MELDANO ");
  EXPECT_EQ(identity.DeviceReleaseNumber, 11507);
  EXPECT_EQ(Activity(), Lines{"Dati Cash : 00 40 ZAFRON   1.15.07"});
}

TEST_F(IdentityTest, OtherModelsKeepTheirLabel) {
  for (const char* label : {" 41 ZAFRON", "40 ZAFRON ", "ABCDEFGHIJ"}) {
    LearnFrom("199900" + std::string(label) + "   1.00.00");
    EXPECT_EQ(identity.DeviceModel, label);
  }
}

TEST_F(IdentityTest, AShortReplyLeavesBlanksInTheLabel) {
  LearnFrom("199900ABC");
  EXPECT_EQ(identity.DeviceModel, "ABC       ");
  EXPECT_EQ(identity.DeviceRelease, "");
  EXPECT_EQ(identity.DeviceReleaseNumber, 0);
}

TEST_F(IdentityTest, AReplyWithoutDataIsLoggedWithoutData) {
  LearnFrom("1999");
  EXPECT_EQ(identity.DeviceModel, "          ");
  EXPECT_EQ(Activity(), Lines{"Dati Cash : "});
}

TEST_F(IdentityTest, AFailedQueryLeavesTenBlanks) {
  LearnFrom("199900  MELDANO    2.02.00");
  control.Reply("ERR08");
  EXPECT_EQ(queries.IdentityQuery(Asking::kQuiet), std::nullopt);
  EXPECT_EQ(identity.DeviceModel, "          ");
  EXPECT_EQ(identity.DeviceRelease, "");
  EXPECT_EQ(identity.DeviceReleaseNumber, 0);
}

TEST_F(IdentityTest, AQueryGivenUpLeavesTenBlanks) {
  LearnFrom("199900  MELDANO    2.02.00");
  control.Reply("ERR-1");
  Answer("Annulla", "Sì");
  EXPECT_EQ(queries.IdentityQuery(Asking::kAttended), std::nullopt);
  EXPECT_EQ(identity.DeviceModel, "          ");
  EXPECT_EQ(Activity().size(), 1U);
}

TEST_F(IdentityTest, IsUnknownAtFirst) {
  EXPECT_EQ(identity.DeviceModel, "          ");
  EXPECT_EQ(identity.DeviceReleaseNumber, 0);
}

TEST(ReleaseNumber, IsTheLastSevenCharactersWithoutTheirPoints) {
  struct {
    const char* release;
    double number;
  } const rows[] = {
      {"2.02.00", 20200},  {"   2.02.00", 20200}, {"xxx2.02.00", 20200},
      {"12.02.00", 20200}, {"2.02", 202},         {"2.02.00a", 200},
      {"1.15.0b", 1150},   {"release", 0},        {"", 0},
      {".......", 0},      {"9999999", 9999999},
  };
  for (const auto& row : rows) EXPECT_EQ(ReleaseNumber(row.release), row.number) << row.release;
}

}  // namespace
}  // namespace orvenza::test
