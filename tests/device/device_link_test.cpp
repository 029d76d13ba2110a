#include "device/device_link.h"

#include <gtest/gtest.h>

#include "support/device_bench.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* kPortClosed = "Apertura Porta non Riuscita ! ( COM1 )";

class OpenLinkTest : public DeviceBench {
 protected:
  OpenLinkTest() { control.open = false; }

  Lines Calls() const { return control.calls; }
};

TEST_F(OpenLinkTest, SetsThePropertiesInTheirOrderAndOpens) {
  link.OpenDeviceLink(777);
  EXPECT_EQ(Calls(), (Lines{"reset 1", "port number 1", "speed 19200", "parity 1", "data bits 7",
                            "stop bits 1", "frame retries 3", "acknowledgement wait 10001",
                            "end-of-text wait 777", "message retries 5", "identifier 86", "open 1"}));
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Shown(), Lines{});
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(OpenLinkTest, AnEmptyIdentifierIsTheCodeOfV) {
  files.content["C:\\shop\\Orvenza.ini"] = "[Com Settings]\nComPort=1\nSettings=19200,O,7,1\nIdent=\n";
  SettingsFile(profile, files, logs, {"C:\\shop", "Orvenza"}).ReadIni(settings);
  link.OpenDeviceLink(777);
  EXPECT_EQ(Calls().at(10), "identifier 86");
}

TEST_F(OpenLinkTest, AnIdentifierIsACodeAndNeverNegative) {
  settings.Ident = '\xE9';
  link.OpenDeviceLink(777);
  EXPECT_EQ(Calls().at(10), "identifier 233");
}

TEST_F(OpenLinkTest, AnUnknownOrMissingParityIsNone) {
  for (const char* text : {"19200,X,7,1", "19200,"}) {
    control.calls.clear();
    settings.ComSettings = text;
    link.OpenDeviceLink(777);
    EXPECT_EQ(Calls().at(3), "parity 0") << text;
  }
}

TEST_F(OpenLinkTest, AClosedPortIsTriedAgainAfterOneSecond) {
  control.refusedOpens = 1;
  Answer("Riprova");
  link.OpenDeviceLink(777);
  EXPECT_EQ(Errors(), Lines{kPortClosed});
  EXPECT_EQ(Shown(), Lines{RetryQuestion(kPortClosed, "Riprova")});
  EXPECT_EQ(Dialog(0).icon, MessageIcon::kInformation);
  ASSERT_EQ(Calls().size(), 25U);
  EXPECT_EQ(Calls().at(12), "open 0");
  EXPECT_EQ(Calls().at(13), "reset 1");
  EXPECT_EQ(Calls().at(21), "end-of-text wait 777");
  EXPECT_EQ(Elapsed(), 1000);
}

TEST_F(OpenLinkTest, TheAlarmRepeatsUntilThePortOpens) {
  control.refusedOpens = 20;
  for (int i = 0; i < 20; ++i) Answer("Riprova");
  link.OpenDeviceLink(777);
  EXPECT_EQ(Errors(), Lines(20, kPortClosed));
  EXPECT_EQ(Elapsed(), 20000);
}

TEST_F(OpenLinkTest, TheAlarmNamesThePortOfTheSettings) {
  control.refusedOpens = 1;
  settings.ComPortNumber = 16;
  Answer("close");
  link.OpenDeviceLink(777);
  EXPECT_EQ(Errors(), Lines{"Apertura Porta non Riuscita ! ( COM16 )"});
  EXPECT_TRUE(control.open);
}

TEST_F(OpenLinkTest, ConfiguredSettingsAreUsedForTheNextTry) {
  control.refusedOpens = 1;
  Answer("Configura", "COM3 9600 None 8 2");
  link.OpenDeviceLink(777);
  EXPECT_EQ(Dialog(1).kind, DialogKind::kPortSettings);
  EXPECT_EQ(Lines(control.calls.begin() + 13, control.calls.begin() + 19),
            (Lines{"reset 1", "port number 3", "speed 9600", "parity 0", "data bits 8", "stop bits 2"}));
  EXPECT_EQ(Errors(), Lines{kPortClosed});
  EXPECT_EQ(Elapsed(), 1000);
}

TEST_F(OpenLinkTest, AConfigurationGivenUpIsARetryAnyway) {
  control.refusedOpens = 1;
  Answer("Configura", "close");
  link.OpenDeviceLink(777);
  EXPECT_TRUE(control.open);
  EXPECT_EQ(Calls().at(14), "port number 1");
}

TEST_F(OpenLinkTest, GivingUpEndsTheProgramAtOnce) {
  control.refusedOpens = 1;
  Answer("Annulla", "Sì");
  try {
    link.OpenDeviceLink(777);
    FAIL() << "the program was to end";
  } catch (const ProgramEnd& end) {
    EXPECT_FALSE(end.unload);
  }
  EXPECT_EQ(Errors(), (Lines{kPortClosed, "Collegamento Annullato dall'Operatore"}));
  EXPECT_EQ(Shown(), (Lines{RetryQuestion(kPortClosed, "Annulla"), EndQuestion("Sì")}));
  EXPECT_EQ(Dialog(1).icon, MessageIcon::kStop);
  EXPECT_EQ(Calls().size(), 12U);
  EXPECT_EQ(Activity(), Lines{});
}

TEST_F(OpenLinkTest, AnyOtherAnswerToTheLastQuestionIsARetry) {
  for (const char* answer : {"No", "close"}) {
    control.refusedOpens = 1;
    Answer("Annulla", answer);
    link.OpenDeviceLink(777);
    EXPECT_TRUE(control.open) << answer;
  }
  EXPECT_EQ(Errors(), Lines(2, kPortClosed));
}

TEST_F(OpenLinkTest, SettingsWithoutACommaCountAsAClosedPort) {
  settings.ComSettings = "19200";
  Answer("Configura", "COM1 19200 Odd 7 1");
  link.OpenDeviceLink(777);
  EXPECT_EQ(Errors(),
            (Lines{"EcrLinkX1 - 5 - Invalid procedure call or argument ( Settings=19200 )", kPortClosed}));
  EXPECT_EQ(Calls().at(0), "open 0");
  EXPECT_EQ(Calls().at(3), "speed 19200");
}

TEST_F(OpenLinkTest, TheProgramCanEndWhileTheAlarmWaits) {
  control.refusedOpens = 9;
  person.Answer("Riprova", 1h);
  EndAfter(5s);
  EXPECT_THROW(link.OpenDeviceLink(777), ProgramEnd);
  EXPECT_EQ(Elapsed(), 5000);
}

TEST_F(OpenLinkTest, AnEndAskedForBetweenTwoTriesRaisesNoFurtherAlarm) {
  control.refusedOpens = 9;
  Answer("Riprova");
  EndAfter(500ms);
  EXPECT_THROW(link.OpenDeviceLink(777), ProgramEnd);
  EXPECT_EQ(Shown().size(), 1U);
}

TEST_F(OpenLinkTest, APropertyThatTheControlRefusesIsLoggedAndTheOthersAreSet) {
  for (int property = 1; property <= 10; ++property) {
    files.content.clear();
    control.calls.clear();
    faulty.FailNth("SetProperty", property, error_number::kDeviceError);
    link.OpenDeviceLink(777);
    EXPECT_EQ(Errors(), Lines{"EcrLinkX1 - 57 - Device I/O error"}) << property;
    EXPECT_EQ(Calls().size(), 11U) << property;
    EXPECT_EQ(Calls().back(), "open 1") << property;
  }
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(OpenLinkTest, AResetThatTheControlRefusesIsLoggedAndTheOpeningGoesOn) {
  faulty.FailNext("SetReset", error_number::kDeviceError);
  link.OpenDeviceLink(777);
  EXPECT_EQ(Errors(), Lines{"EcrLinkX1 - 57 - Device I/O error"});
  EXPECT_EQ(Calls().size(), 11U);
  EXPECT_EQ(Calls().back(), "open 1");
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(OpenLinkTest, APortThatReadsOpenIsOpenWhateverTheControlComplainedOf) {
  control.open = true;
  faulty.FailNext("SetPortOpen", error_number::kDeviceError);
  link.OpenDeviceLink(777);
  EXPECT_EQ(Errors(), Lines{"EcrLinkX1 - 57 - Device I/O error ( open )"});
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(OpenLinkTest, AControlThatFailsToOpenCountsAsAClosedPort) {
  faulty.FailNext("SetPortOpen", error_number::kDeviceError);
  Answer("Riprova");
  link.OpenDeviceLink(777);
  EXPECT_EQ(Errors(), (Lines{"EcrLinkX1 - 57 - Device I/O error ( open )", kPortClosed}));
}

TEST_F(OpenLinkTest, AControlThatCannotBeAskedCountsAsAClosedPort) {
  faulty.FailNext("PortOpen", error_number::kDeviceError);
  Answer("Riprova");
  link.OpenDeviceLink(777);
  EXPECT_EQ(Errors(), (Lines{"EcrLinkX1 - 57 - Device I/O error", kPortClosed}));
}

TEST_F(OpenLinkTest, AControlThatCannotBeCreatedIsAskedNoFurther) {
  faulty.FailNext("SetReset", error_number::kCannotCreateObject);
  Answer("Riprova");
  link.OpenDeviceLink(777);
  EXPECT_EQ(Errors(), (Lines{"EcrLinkX1 - 429 - Component can't create object", kPortClosed}));
  EXPECT_EQ(Calls().size(), 13U);
  EXPECT_EQ(Calls().at(0), "open 0");
  EXPECT_EQ(Calls().at(1), "reset 1");
}

TEST_F(OpenLinkTest, ReopeningClosesAndWaits100Milliseconds) {
  settings.TimeWaitForLONGEtx = 50000;
  link.ReopenForLongCommand();
  EXPECT_EQ(Calls().at(0), "open 0");
  EXPECT_EQ(Calls().at(1), "reset 1");
  EXPECT_EQ(Calls().at(9), "end-of-text wait 50000");
  EXPECT_TRUE(control.open);
  EXPECT_EQ(Elapsed(), 100);
}

TEST_F(OpenLinkTest, ReopeningRestoresTheOrdinaryWait) {
  link.OpenDeviceLink(50000);
  control.calls.clear();
  link.Reopen();
  EXPECT_EQ(Calls().at(9), "end-of-text wait 10002");
}

TEST_F(OpenLinkTest, ClosingThatFailsIsLoggedAndNoMore) {
  faulty.FailNext("SetPortOpen", error_number::kDeviceError);
  EXPECT_NO_THROW(link.ClosePort());
  EXPECT_EQ(Errors(), Lines{"EcrLinkX1 - 57 - Device I/O error ( close )"});
}

TEST_F(OpenLinkTest, ABounceClosesForOneSecondAndSetsNoProperty) {
  link.Bounce();
  EXPECT_EQ(Calls(), (Lines{"open 0", "open 1"}));
  EXPECT_EQ(Elapsed(), 1000);
}

TEST_F(OpenLinkTest, ABounceThatLeavesThePortClosedIsFollowedByTheAlarm) {
  link.OpenDeviceLink(50000);
  control.calls.clear();
  control.refusedOpens = 2;
  Answer("Riprova");
  link.Bounce();
  EXPECT_EQ(Errors(), Lines{kPortClosed});
  EXPECT_TRUE(control.open);
  EXPECT_EQ(Calls().at(10), "end-of-text wait 50000");
}

using ChangedSettingsTest = OpenLinkTest;

TEST_F(ChangedSettingsTest, AreAppliedBeforeTheNextCommandAndOnlyOnce) {
  link.OpenDeviceLink(50000);
  control.calls.clear();
  settings.ComPortNumber = 2;
  link.ReapplySettings();
  EXPECT_EQ(Calls(), Lines{});
  control.Always("2001", "2001");
  link.Exchange("200100");
  link.Exchange("200100");
  EXPECT_EQ(Calls().size(), 13U);
  EXPECT_EQ(Calls().at(0), "open 0");
  EXPECT_EQ(Calls().at(2), "port number 2");
  EXPECT_EQ(Calls().at(9), "end-of-text wait 50000");
  EXPECT_EQ(Elapsed(), 100);
}

TEST_F(ChangedSettingsTest, AreAppliedBetweenTwoCommandsToo) {
  link.OpenDeviceLink(777);
  link.ReapplySettings();
  link.ApplyChangedSettings();
  link.ApplyChangedSettings();
  EXPECT_EQ(Calls().size(), 12U + 13U);
}

TEST_F(ChangedSettingsTest, AreAppliedWhileTheRegisterIsAbsent) {
  control.presence = {false, false, false, true};
  control.Reply("2001");
  Answer("Ok", "Ok", "Ok");
  faulty.Before("DevicePresent", [&](const std::string&) {
    if (control.presenceReads == 1) link.ReapplySettings();
    if (control.presenceReads == 2) {
      EXPECT_EQ(Calls(), Lines{});
    }
  });
  link.Exchange("200100");
  EXPECT_EQ(Calls().size(), 13U);
  EXPECT_EQ(Sent(), Lines{"200100"});
}

TEST_F(ChangedSettingsTest, AreAppliedAlsoWhenTheyComeJustBeforeTheCommand) {
  clock.After(0ms, [&] { link.ReapplySettings(); });
  faulty.Before("Send", [&](const std::string&) { EXPECT_EQ(Calls().size(), 13U); });
  link.Exchange("200100");
  EXPECT_EQ(Calls().at(0), "open 0");
  EXPECT_EQ(Sent(), Lines{"200100"});
}

TEST_F(ChangedSettingsTest, StayWaitingWhileACommandIsUnderWay) {
  control.Reply("2001", 5s);
  clock.After(1s, [&] { link.ReapplySettings(); });
  link.Exchange("200100");
  EXPECT_EQ(Calls(), Lines{});
  EXPECT_EQ(Elapsed(), 5000);
}

TEST_F(ChangedSettingsTest, AControlThatFailsBetweenTwoCommandsIsReopened) {
  link.OpenDeviceLink(777);
  const std::size_t callsOfOpening = Calls().size();
  faulty.FailNext("DevicePresent", error_number::kDeviceError);
  control.presence = {false, false, true};
  control.Reply("2001");
  Answer("Ok", "Ok", "Ok");
  link.Exchange("200100");
  EXPECT_EQ(Calls().size(), callsOfOpening + 13U);
  EXPECT_EQ(Sent(), Lines{"200100"});
}

}  // namespace
}  // namespace orvenza::test
