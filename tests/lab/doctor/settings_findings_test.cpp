#include "lab/doctor/settings_findings.h"

#include <algorithm>

#include "lab/shell/shop_bench.h"
#include "platform/utf16.h"

namespace orvenza::test {
namespace {

class SettingsFindings : public ShopBench {};

TEST_F(SettingsFindings, SayNothingAboutTheDefaults) {
  EXPECT_EQ(Said(), "");
  EXPECT_EQ(InOrder().substr(0, InOrder().find('\n')),
            "ok settings.ok: Orvenza.ini is of version 1.06 and used as it stands.");
}

TEST_F(SettingsFindings, TellWhereATraceIsWritten) {
  Edit("File Parser=0", "File Parser=0\r\n[Host]\r\nTrace=trace.txt");
  EXPECT_EQ(Said(), "note settings.trace: A trace is written to C:\\Orvenza\\trace.txt.\n");
}

TEST_F(SettingsFindings, ReportATraceAmongTheTickets) {
  Edit("File Parser=0", "File Parser=0\r\n[Host]\r\nTrace=data\\trace.txt");
  EXPECT_EQ(
      Said(),
      "warning settings.trace: [Host] Trace is \"data\\trace.txt\", where no trace may be written; there is "
      "none.\n");
}

TEST_F(SettingsFindings, ReportAFirstStart) {
  disk.Delete(At("Orvenza.ini"));
  EXPECT_EQ(
      Said(),
      "note settings.new: Orvenza.ini is missing; the next start writes it with the defaults and asks for "
      "the port.\n");
}

TEST_F(SettingsFindings, TellWhatAnUpgradeWrites) {
  Edit("Version=1.06", "Version=1.01");
  EXPECT_EQ(
      Said(),
      "note settings.upgrade: Orvenza.ini is of version 1.01; the next start writes Pc Time Correction=, "
      "Time Shift=60, Version=1.06 and tells the operator.\n");
}

TEST_F(SettingsFindings, ReportEachValueThatIsNotUsedAsItIs) {
  const struct {
    const char* from;
    const char* to;
    const char* said;
  } kCases[] = {
      {"ComPort=1", "ComPort=17",
       "warning settings.repaired: [Com Settings] ComPort is \"17\"; the next start writes 1 and uses "
       "that.\n"},
      {"ComPort=1", "",
       "warning settings.repaired: [Com Settings] ComPort is missing; the next start writes 1 and uses "
       "that.\n"},
      {"ComPort=1", "ComPort=01", ""},
      {"max 127)=127", "max 127)=128",
       "warning settings.repaired: [General] Separator (ascii,max 127) is \"128\"; the next start writes 127 "
       "and "
       "uses that.\n"},
      {"FrameRetry=3", "FrameRetry=3x",
       "warning settings.reads-as: [Com Settings] FrameRetry is \"3x\", which is read as \"3\".\n"},
      {"FrameRetry=3", "FrameRetry=3.7",
       "warning settings.reads-as: [Com Settings] FrameRetry is \"3.7\", which is read as \"3\".\n"},
      {"Time Shift=60", "Time Shift=60.0", ""},
      {"Time Shift=60", "Time Shift=60,5",
       "warning settings.reads-as: [General] Time Shift is \"60,5\", which is read as \"60\".\n"},
      {"Time Shift=60",
       "Time Shift=", "warning settings.reads-as: [General] Time Shift is \"\", which is read as \"0\".\n"},
      {"File Parser=0", "File Parser=yes",
       "warning settings.reads-as: [General] File Parser is \"yes\", which is read as \"0\".\n"},
      {"Ident=V", "Ident=VX",
       "warning settings.reads-as: [Com Settings] Ident is \"VX\", which is read as \"V\".\n"},
      {"Ident=V", "Ident=\xC3\xA8", ""},
      {"Ident=V", "", "note settings.default: [Com Settings] Ident is missing; \"V\" is used.\n"},
      {"Pc Time", "", "note settings.default: [General] Pc Time Correction is missing; \"0\" is used.\n"},
      {"TimeWaitForEtx", "",
       "warning settings.default: [Com Settings] TimeWaitForEtx is missing; \"0\" is used, where a new file "
       "has "
       "\"10000\".\n"},
  };
  const std::string before = *disk.Content(At("Orvenza.ini"));
  for (const auto& [from, to, said] : kCases) {
    disk.Put(At("Orvenza.ini"), before);
    Edit(from, to);
    EXPECT_EQ(Said(), said) << from << " -> " << to;
  }
}

TEST_F(SettingsFindings, ReportValuesThatCannotWork) {
  const struct {
    const char* from;
    const char* to;
    const char* said;
  } kCases[] = {
      {"max 127)=127", "max 127)=9",
       "error settings.separator: [General] Separator (ascii,max 127) is 9, a control character: no field of "
       "a "
       "ticket is ever found.\n"},
      {"max 127)=127", "max 127)=46",
       "warning settings.separator: [General] Separator (ascii,max 127) is 46, a character that values and "
       "texts "
       "hold themselves.\n"},
      {"max 127)=127", "max 127)=59", ""},
      {"19200,O,7,1", "19200",
       "error settings.serial: [Com Settings] Settings is \"19200\", with which the port cannot be "
       "opened.\n"},
      {"19200,O,7,1", "19200,O,5,1",
       "warning settings.serial: [Com Settings] Settings is \"19200,O,5,1\": speed, data bits or stop bits "
       "are none "
       "that the port dialog offers.\n"},
  };
  const std::string before = *disk.Content(At("Orvenza.ini"));
  for (const auto& [from, to, said] : kCases) {
    disk.Put(At("Orvenza.ini"), before);
    Edit(from, to);
    EXPECT_EQ(Said(), said) << from << " -> " << to;
  }
}

TEST_F(SettingsFindings, NoteThatTheOperatorIsNotAskedInDoubt) {
  const std::string note =
      "note settings.safety: [Safety] AskInDoubt is off: after a garbled reply, a lost status, paper-out or "
      "a "
      "power cut the connector decides by itself, and a receipt may be lost or printed twice. On, it asks "
      "the "
      "operator.\n";
  Edit("AskInDoubt=1", "AskInDoubt=0");
  EXPECT_EQ(Said(), note);
  EXPECT_EQ(Remedy("settings.safety"),
            "Write the line AskInDoubt=1 below [Safety], and show the operators what is asked "
            "(docs/manuale-operatore.md).");
  Edit("AskInDoubt=0", "");
  EXPECT_EQ(Said(), note);
  Edit("[Safety]", "");
  EXPECT_EQ(Said(), note);
  EXPECT_EQ(InOrder().substr(0, InOrder().find('\n')),
            "ok settings.ok: Orvenza.ini is of version 1.06 and used as it stands.");
}

TEST_F(SettingsFindings, ReportAnAskInDoubtThatIsNoFlag) {
  Edit("AskInDoubt=1", "AskInDoubt=yes");
  EXPECT_EQ(Said().substr(0, Said().find('\n')),
            "warning settings.reads-as: [Safety] AskInDoubt is \"yes\", which is read as \"0\".");
  Edit("AskInDoubt=yes", "AskInDoubt=01");
  EXPECT_EQ(Said().substr(0, Said().find('\n')),
            "warning settings.reads-as: [Safety] AskInDoubt is \"01\", which is read as \"0\".");
  Edit("AskInDoubt=01", "AskInDoubt= 1 ");
  EXPECT_EQ(Said(), "");
}

TEST_F(SettingsFindings, ReportTicketFilesWithoutFolderOrMask) {
  Edit("data\\*.txt", "data\\");
  EXPECT_EQ(Said(),
            "error settings.tickets: [Database] TicketFiles is \"C:\\Orvenza\\data\\\", which lacks the mask "
            "of the "
            "file names.\n");
  Edit("C:\\Orvenza\\data\\", "*.txt");
  EXPECT_EQ(Said(), "error settings.tickets: [Database] TicketFiles is \"*.txt\", which lacks the folder.\n");
}

TEST_F(SettingsFindings, ReportAMaskWithoutRoomForTheNumbersOfParts) {
  Edit("File Parser=0", "File Parser=1");
  Edit("*.txt", "t*_fin.txt");
  EXPECT_EQ(
      Said(),
      "warning settings.parser: [General] File Parser is on, but the mask \"t*_fin.txt\" has no room for "
      "the numbers of parts: a file of several receipts is printed as one.\n");
}

TEST_F(SettingsFindings, FindRoomInOtherMasksAndNeedNoneWithoutTheParser) {
  Edit("*.txt", "t?.txt");
  EXPECT_EQ(Said(), "");
  Edit("File Parser=0", "File Parser=1");
  std::string before = "t?.txt";
  for (const char* mask : {"*.txt", "t*.txt", "*_fin.txt", "?*.t?t", "*.*", "t*"}) {
    Edit("data\\" + before, std::string("data\\") + mask);
    EXPECT_EQ(Said(), "") << mask;
    before = mask;
  }
}

TEST_F(SettingsFindings, ReportAPathThatBeginsAtNoDrive) {
  Edit("C:\\Orvenza\\storico\\", "storico");
  EXPECT_EQ(
      Said().substr(0, Said().find('\n')),
      "warning settings.relative: [Database] HistoricTickets is \"storico\\\", which begins at no drive.");
}

TEST_F(SettingsFindings, ReportAValueThatIsCut) {
  Edit("19200,O,7,1", "19200,O,7,1" + std::string(88, 'x'));
  EXPECT_EQ(Said(), "");
  Edit("19200,O,7,1", "19200,O,7,1x");
  EXPECT_EQ(Said(), "warning settings.cut: [Com Settings] Settings is \"19200,O,7,1" + std::string(89, 'x') +
                        "\", of which only 99 characters are seen.\n");
}

TEST_F(SettingsFindings, NameTheKeyThatWasMeant) {
  Edit("FrameRetry=3", "FrameRetries=3");
  Edit("[General]", "[Generel]");
  Edit("TicketFiles=", "Time Shift=5\r\nTicketFiles=");
  const std::string said = Said();
  EXPECT_NE(
      said.find("warning settings.unknown: Line 4: \"Time Shift\" is no key of [Database]; it belongs in "
                "[General].\n"),
      std::string::npos);
  EXPECT_NE(
      said.find(
          "warning settings.unknown: Line 11: \"FrameRetries\" is no key of [Com Settings]; did you mean "
          "'FrameRetry'?\n"),
      std::string::npos);
  EXPECT_NE(said.find("warning settings.unknown: Line 17: section \"Generel\" is never read; did you mean "
                      "'General'?\n"),
            std::string::npos)
      << said;
}

TEST_F(SettingsFindings, ReportLinesThatAreNeverRead) {
  Edit("ComPort=1", "ComPort=1\r\nCOMPORT=2\r\nnonsense");
  disk.Put(At("Orvenza.ini"), "lost=1\r\n" + *disk.Content(At("Orvenza.ini")) + "[general]\r\nIdent=x\r\n");
  EXPECT_EQ(
      Said(),
      "warning settings.duplicate: Line 10: \"COMPORT\" is there already; this one is never read.\n"
      "warning settings.duplicate: Line 27: section \"general\" is there already; what follows is never "
      "read.\n"
      "warning settings.line: No section, and no key of one, stands in lines 1, 11.\n");
}

TEST_F(SettingsFindings, ReportFilesThatEndTheStart) {
  const struct {
    std::string content;
    const char* said;
  } kCases[] = {
      {"", "error settings.version: Orvenza.ini is of version \"\", which ends the start.\n"},
      {"[Version]\r\nVersion=2.00\r\n",
       "error settings.version: Orvenza.ini is of version \"2.00\", which ends the start.\n"},
      {"\x7f"
       "ELF\x02\n\x01\n",
       "error settings.version: Orvenza.ini is of version \"\", which ends the start.\n"
       "warning settings.line: No section, and no key of one, stands in lines 1, 2.\n"},
      {std::string("\0\0\0", 3),
       "error settings.version: Orvenza.ini is of version \"\", which ends the start.\n"
       "warning settings.encoding: The settings hold characters with the code 0, as a damaged file does.\n"
       "warning settings.line: No section, and no key of one, stands in line 1.\n"},
      {std::string("\xFF\xFE[\0V\0", 6),
       "error settings.version: Orvenza.ini is of version \"\", which ends the start.\n"
       "warning settings.unknown: Line 1: section \"V\" is never read.\n"},
      {std::string(1024 * 1024 + 1, ';'),
       "error settings.unreadable: Orvenza.ini cannot be read, or is too large for a settings file, which "
       "ends the "
       "start.\n"},
  };
  for (const auto& [content, expected] : kCases) {
    disk.Put(At("Orvenza.ini"), content);
    const std::string said = Said();
    EXPECT_EQ(said.substr(0, said.find("warning historic")), expected);
  }
}

TEST_F(SettingsFindings, HaveNothingAgainstAByteOrderMark) {
  const std::string plain = *disk.Content(At("Orvenza.ini"));
  disk.Put(At("Orvenza.ini"), "\xEF\xBB\xBF" + plain);
  EXPECT_EQ(Said(), "");
  disk.Put(At("Orvenza.ini"), "\xFF\xFE" + Utf16FromUtf8(plain, false));
  EXPECT_EQ(Said(), "");
}

TEST_F(SettingsFindings, ReportAFileThatCannotBeRead) {
  disk.Hold(At("Orvenza.ini"), FileHold::kWriting);
  EXPECT_EQ(Said(),
            "error settings.unreadable: Orvenza.ini cannot be read, or is too large for a settings file, "
            "which ends "
            "the start.\n");
}

TEST_F(SettingsFindings, AreAboutEveryKeyThatIsRead) {
  const SettingsReview review = ReviewSettings(disk.FileSeam(), clock, {"C:\\Orvenza", "Orvenza"});
  std::string unreviewed;
  for (const auto& standard : review.defaults) {
    const bool known = std::any_of(review.keys.begin(), review.keys.end(),
                                   [&](const ReviewedKey& key) { return key.key == standard.key; });
    if (!known) unreviewed += standard.section + "/" + standard.key + " ";
  }
  EXPECT_EQ(unreviewed, "Version/Version Database/ ");
}

TEST_F(SettingsFindings, LeaveTheFileAsItIs) {
  Edit("ComPort=1", "ComPort=17");
  Edit("Version=1.06", "Version=1.00");
  const std::string before = *disk.Content(At("Orvenza.ini"));
  Said();
  EXPECT_EQ(disk.Content(At("Orvenza.ini")), before);
  EXPECT_EQ(disk.Paths(), (std::vector<std::string>{At("ErrDesc.ini"), At("Orvenza.ini")}));
}

}  // namespace
}  // namespace orvenza::test
