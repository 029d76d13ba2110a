#include "core/settings.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/failure_of.h"
#include "support/settings_bench.h"

namespace orvenza::test {
namespace {

using std::string_literals::operator""s;

class SettingsTest : public SettingsBench {
 protected:
  const AppSettings& ReadCom(const std::string& lines) { return Read("[Com Settings]\r\n" + lines); }
  const AppSettings& ReadGeneral(const std::string& lines) { return Read("[General]\r\n" + lines); }
  const AppSettings& ReadDatabase(const std::string& lines) { return Read("[Database]\r\n" + lines); }
};

TEST_F(SettingsTest, TheDefaultFileHasEveryKeyInItsOrder) {
  file.WriteDefaultIni();
  EXPECT_EQ(Ini(),
            "[Version]\r\n"
            "Version=1.06\r\n"
            "[Database]\r\n"
            "TicketFiles=C:\\shop\\data\\*.txt\r\n"
            "HistoricTickets=C:\\shop\\storico\\\r\n"
            "='***** Command File Name = command.txt *****\r\n"
            "[Com Settings]\r\n"
            "ComPort=1\r\n"
            "Settings=19200,O,7,1\r\n"
            "FrameRetry=3\r\n"
            "TimeWaitForAck=10000\r\n"
            "TimeWaitForEtx=10000\r\n"
            "TxMessageRetry=5\r\n"
            "Ident=V\r\n"
            "TimeWaitForLONGEtx=50000\r\n"
            "[General]\r\n"
            "Pc Time Correction=\r\n"
            "Time Shift=60\r\n"
            "Separator (ascii,max 127)=127\r\n"
            "Single Quantity=0\r\n"
            "File Parser=0\r\n");
}

TEST_F(SettingsTest, TheDefaultFilesAreWrittenAtOneGo) {
  int writes = 0;
  files.Before("Write", [&](const std::string&) { ++writes; });
  file.WriteDefaultIni();
  file.WriteDefaultErrDesc();
  EXPECT_EQ(writes, 2);
}

TEST_F(SettingsTest, ADefaultFileThatCannotBeWrittenIsNotThere) {
  files.FailAlways("Write", "", error_number::kDiskFull);
  EXPECT_EQ(FailureOf([&] { file.WriteDefaultIni(); }), "61 Disk full ( C:\\shop\\Orvenza.ini )");
  EXPECT_EQ(FailureOf([&] { file.WriteDefaultErrDesc(); }), "61 Disk full ( C:\\shop\\ErrDesc.ini )");
  EXPECT_TRUE(memory.content.empty());
}

TEST_F(SettingsTest, AFileThatCannotBeReadChangesNothing) {
  Ini() = "[Version]\r\nVersion=1.05\r\n";
  const auto before = memory.content;
  for (const char* operation : {"Exists", "OpenForReading", "Read"}) {
    files.FailAlways(operation, "Orvenza.ini", error_number::kDeviceError);
    const std::string failure = "57 Device I/O error ( C:\\shop\\Orvenza.ini )";
    EXPECT_EQ(FailureOf([&] { (void)file.UpgradeIni(settings, [] {}); }), failure);
    EXPECT_EQ(FailureOf([&] { file.ReadIni(settings); }), failure);
    EXPECT_EQ(settings.LogPath, "");
    files.Heal();
  }
  EXPECT_EQ(memory.content, before);
}

TEST_F(SettingsTest, TheFileIsReadAtOneGo) {
  Ini() = "[Com Settings]\r\nComPort=3\r\n";
  int reads = 0;
  files.Before("OpenForReading", [&](const std::string&) { ++reads; });
  file.ReadIni(settings);
  EXPECT_EQ(reads, 1);
}

TEST_F(SettingsTest, TheDefaultFileReadsAsItSays) {
  file.WriteDefaultIni();
  file.ReadIni(settings);
  EXPECT_EQ(settings.TicketFilesSpec, "C:\\shop\\data\\*.txt");
  EXPECT_EQ(settings.HistoricFolder, "C:\\shop\\storico\\");
  EXPECT_EQ(settings.ComPortNumber, 1);
  EXPECT_EQ(settings.ComSettings, "19200,O,7,1");
  EXPECT_EQ(settings.TimeWaitForLONGEtx, 50000);
  EXPECT_EQ(settings.SeparatorChar, 127);
  EXPECT_EQ(Errors(), "");
}

TEST_F(SettingsTest, MissingKeysReadAsTheirDefaults) {
  Read("");
  EXPECT_EQ(settings.TicketFilesSpec, "C:\\shop\\data\\*.txt");
  EXPECT_EQ(settings.HistoricFolder, "C:\\shop\\data\\inproces\\");
  EXPECT_EQ(settings.ComSettings, "");
  EXPECT_EQ(settings.FrameRetry, 0);
  EXPECT_EQ(settings.TimeWaitForAck, 0);
  EXPECT_EQ(settings.TimeWaitForEtx, 0);
  EXPECT_EQ(settings.TxMessageRetry, 0);
  EXPECT_EQ(settings.Ident, 'V');
  EXPECT_EQ(settings.TimeWaitForLONGEtx, 0);
  EXPECT_EQ(settings.PcTimeCorrection, 0);
  EXPECT_EQ(settings.TimeShift, 0);
  EXPECT_EQ(settings.SeparatorChar, 127);
  EXPECT_FALSE(settings.SingleQuantity);
  EXPECT_FALSE(settings.FileParser);
}

TEST_F(SettingsTest, TheMissingPortAloneIsWrittenIntoTheFile) {
  Read("");
  EXPECT_EQ(settings.ComPortNumber, 1);
  EXPECT_EQ(Ini(), "[Com Settings]\r\nComPort=1\r\n");
  EXPECT_EQ(Errors(), "Numero Porta Errato ! Default 1 !\r\n");
}

TEST_F(SettingsTest, AFileOfOtherThingsReadsAsTheDefaults) {
  Read("PK\x03\x04\0\0=[]\n[[[\r=\n[Com Settings\nFrameRetry\n"s);
  EXPECT_EQ(settings.TicketMask, "*.txt");
  EXPECT_EQ(settings.FrameRetry, 0);
  EXPECT_EQ(settings.ComPortNumber, 1);
}

TEST_F(SettingsTest, TheLinkValuesAreReadFromTheirKeys) {
  ReadCom(
      "ComPort=3\nSettings=9600,E,8,2\nFrameRetry=4\nTimeWaitForAck=11\nTimeWaitForEtx=12\n"
      "TxMessageRetry=6\nIdent=x\nTimeWaitForLONGEtx=13\n");
  EXPECT_EQ(settings.ComPortNumber, 3);
  EXPECT_EQ(settings.ComSettings, "9600,E,8,2");
  EXPECT_EQ(settings.FrameRetry, 4);
  EXPECT_EQ(settings.TimeWaitForAck, 11);
  EXPECT_EQ(settings.TimeWaitForEtx, 12);
  EXPECT_EQ(settings.TxMessageRetry, 6);
  EXPECT_EQ(settings.Ident, 'x');
  EXPECT_EQ(settings.TimeWaitForLONGEtx, 13);
  EXPECT_EQ(Errors(), "");
}

TEST_F(SettingsTest, TheGeneralValuesAreReadFromTheirKeys) {
  ReadGeneral(
      "Pc Time Correction=30.5\nTime Shift=2.25\nSeparator (ascii,max 127)=59\nSingle Quantity=1\n"
      "File Parser=1\n");
  EXPECT_EQ(settings.PcTimeCorrection, 30.5);
  EXPECT_EQ(settings.TimeShift, 2.25);
  EXPECT_EQ(settings.SeparatorChar, ';');
  EXPECT_TRUE(settings.SingleQuantity);
  EXPECT_TRUE(settings.FileParser);
}

TEST_F(SettingsTest, NamesCompareWithoutRegardToLetterCase) {
  EXPECT_EQ(Read("[COM SETTINGS]\r\nframeretry=9\r\n").FrameRetry, 9);
}

TEST_F(SettingsTest, NumbersAreReadLeniently) {
  EXPECT_EQ(ReadCom("FrameRetry=12abc").FrameRetry, 12);
  EXPECT_EQ(ReadCom("FrameRetry=abc").FrameRetry, 0);
  EXPECT_EQ(ReadCom("FrameRetry=").FrameRetry, 0);
  EXPECT_EQ(ReadCom("TimeWaitForAck=99999999999").TimeWaitForAck, 2147483647);
  EXPECT_EQ(ReadCom("TxMessageRetry=-2").TxMessageRetry, -2);
  EXPECT_EQ(ReadGeneral("Pc Time Correction=never").PcTimeCorrection, 0);
}

TEST_F(SettingsTest, TheWorkFoldersLieInTheTicketFolder) {
  Read("[Database]\r\nTicketFiles=D:\\in\\*.txt\r\n");
  EXPECT_EQ(settings.InProcessFolder, "D:\\in\\inproces\\");
  EXPECT_EQ(settings.AbortFolder, "D:\\in\\abort\\");
}

TEST_F(SettingsTest, ThePathsLieInTheProgramFolder) {
  Read("");
  EXPECT_EQ(settings.CommandFilePath, "C:\\shop\\command.txt");
  EXPECT_EQ(settings.LogPath, "C:\\shop\\Log.txt");
  EXPECT_EQ(settings.ErrPath, "C:\\shop\\Err.txt");
}

TEST_F(SettingsTest, PortsFrom1To16AreKept) {
  for (const char* port : {"1", "16"}) {
    EXPECT_EQ(std::to_string(ReadCom(std::string("ComPort=") + port).ComPortNumber), port);
    EXPECT_EQ(Ini(), std::string("[Com Settings]\r\nComPort=") + port);
  }
  EXPECT_EQ(Errors(), "");
}

TEST_F(SettingsTest, EveryOtherPortBecomes1InTheFileToo) {
  for (const char* port : {"0", "17", "abc", "", "-1", "65537", "99999999999"}) {
    EXPECT_EQ(ReadCom(std::string("ComPort=") + port + "\r\n").ComPortNumber, 1) << port;
    EXPECT_EQ(Ini(), "[Com Settings]\r\nComPort=1\r\n") << port;
    EXPECT_EQ(Errors(), "Numero Porta Errato ! Default 1 !\r\n") << port;
    memory.content.erase("C:\\shop\\Err.txt");
  }
}

TEST_F(SettingsTest, AWrongPortIsUsedAs1AlsoWhereTheFileIsReadOnly) {
  files.FailAlways("Write", "", error_number::kPermissionDenied);
  EXPECT_EQ(ReadCom("ComPort=17").ComPortNumber, 1);
  EXPECT_EQ(Ini(), "[Com Settings]\r\nComPort=17");
  EXPECT_EQ(Errors(),
            "ReadIni - 70 - Permission denied ( C:\\shop\\Orvenza.ini )\r\n"
            "Numero Porta Errato ! Default 1 !\r\n");
}

TEST_F(SettingsTest, SeparatorsFrom0To127AreKept) {
  struct {
    const char* text;
    char separator;
  } const rows[] = {{"0", '\0'}, {"127", '\x7F'}, {"9", '\t'}, {"59", ';'}, {"", '\0'}, {"x", '\0'}};
  for (const auto& row : rows) {
    const std::string line = std::string("Separator (ascii,max 127)=") + row.text;
    EXPECT_EQ(Read("[Com Settings]\nComPort=1\n[General]\n" + line).SeparatorChar, row.separator) << row.text;
    EXPECT_EQ(Ini(), "[Com Settings]\nComPort=1\n[General]\n" + line);
  }
}

TEST_F(SettingsTest, EveryOtherSeparatorBecomes127InTheFileAndInSilence) {
  for (const char* text : {"128", "-1", "99999999999"}) {
    const std::string head = "[Com Settings]\r\nComPort=1\r\n[General]\r\nSeparator (ascii,max 127)=";
    EXPECT_EQ(Read(head + text + "\r\n").SeparatorChar, '\x7F') << text;
    EXPECT_EQ(Ini(), head + "127\r\n") << text;
  }
  EXPECT_EQ(Errors(), "");
}

TEST_F(SettingsTest, AWrongSeparatorIsUsedAs127AlsoWhereTheFileIsReadOnly) {
  const std::string ini = "[Com Settings]\r\nComPort=1\r\n[General]\r\nSeparator (ascii,max 127)=128\r\n";
  files.FailAlways("Write", "", error_number::kPermissionDenied);
  EXPECT_EQ(Read(ini).SeparatorChar, '\x7F');
  EXPECT_EQ(Ini(), ini);
  EXPECT_EQ(Errors(), "ReadIni - 70 - Permission denied ( C:\\shop\\Orvenza.ini )\r\n");
}

TEST_F(SettingsTest, TheIdentifierIsTheFirstCharacterThatIsNoBlank) {
  EXPECT_EQ(ReadCom("Ident=  xyz ").Ident, 'x');
  EXPECT_EQ(ReadCom("Ident=\"  xyz \"").Ident, 'x');
  EXPECT_EQ(ReadCom("Ident=Q").Ident, 'Q');
}

TEST_F(SettingsTest, AnAccentedIdentifierIsItsOneByteInWindows1252) {
  EXPECT_EQ(ReadCom("Ident=\xC3\x88").Ident, '\xC8') << "a file in UTF-8";
  EXPECT_EQ(ReadCom("Ident=\xC8").Ident, '\xC8') << "a file in Windows-1252";
  EXPECT_EQ(ReadCom("Ident=€").Ident, '\x80');
  EXPECT_EQ(ReadCom("Ident=Ω").Ident, '?');
}

TEST_F(SettingsTest, AnEmptyIdentifierIsV) {
  EXPECT_EQ(ReadCom("Ident=").Ident, 'V');
  EXPECT_EQ(ReadCom("Ident=\"  \"").Ident, 'V');
}

TEST_F(SettingsTest, AFlagIsOnForThe1Alone) {
  for (const char* text : {"1", " 1 ", "\" 1 \""}) {
    EXPECT_TRUE(ReadGeneral(std::string("Single Quantity=") + text).SingleQuantity) << text;
    EXPECT_TRUE(ReadGeneral(std::string("File Parser=") + text).FileParser) << text;
  }
  for (const char* text : {"0", "01", "yes", "true", "11", "1.0", ""}) {
    EXPECT_FALSE(ReadGeneral(std::string("Single Quantity=") + text).SingleQuantity) << text;
    EXPECT_FALSE(ReadGeneral(std::string("File Parser=") + text).FileParser) << text;
  }
}

TEST_F(SettingsTest, AskInDoubtIsOnForThe1AloneAndOtherValuesAreReported) {
  const std::string section =
      "[Com Settings]\r\nComPort=1\r\n[General]\r\nSeparator (ascii,max 127)=59\r\n[Safety]\r\n";
  for (const char* text : {"AskInDoubt=1", "askindoubt= 1 ", "AskInDoubt=\" 1 \""})
    EXPECT_TRUE(Read(section + text + "\r\n").AskInDoubt) << text;
  for (const char* text : {"", "AskInDoubt=", "AskInDoubt=0", "AskInDoubt= 0 "})
    EXPECT_FALSE(Read(section + text + "\r\n").AskInDoubt) << text;
  EXPECT_EQ(Errors(), "");
  for (const char* text : {"01", "yes", "11", "-1", "1.0"}) {
    memory.content.erase("C:\\shop\\Err.txt");
    EXPECT_FALSE(Read(section + "AskInDoubt=" + text + "\r\n").AskInDoubt) << text;
    EXPECT_EQ(Errors(),
              "Valore non valido nel file INI, ignorato : [Safety] AskInDoubt=" + std::string(text) + "\r\n");
  }
}

TEST_F(SettingsTest, TheTicketFilesAreSplitAtTheirLastBackslash) {
  struct {
    const char* text;
    const char* folder;
    const char* mask;
  } const rows[] = {
      {"D:\\shop\\in\\*.txt", "D:\\shop\\in\\", "*.txt"},
      {"*.tkt", "", "*.tkt"},
      {"D:\\in\\", "D:\\in\\", ""},
      {"\\\\server\\in\\t*.*", "\\\\server\\in\\", "t*.*"},
      {"", "", ""},
  };
  for (const auto& row : rows) {
    ReadDatabase(std::string("TicketFiles=") + row.text);
    EXPECT_EQ(settings.TicketFilesSpec, row.text);
    EXPECT_EQ(settings.TicketFolder, row.folder);
    EXPECT_EQ(settings.TicketMask, row.mask);
  }
}

TEST_F(SettingsTest, TheHistoricFolderEndsInABackslash) {
  EXPECT_EQ(ReadDatabase("HistoricTickets=C:\\arch").HistoricFolder, "C:\\arch\\");
  EXPECT_EQ(ReadDatabase("HistoricTickets=C:\\arch\\").HistoricFolder, "C:\\arch\\");
  EXPECT_EQ(ReadDatabase("HistoricTickets=").HistoricFolder, "");
}

TEST_F(SettingsTest, OnlyThe99FirstCharactersOfAValueAreSeen) {
  EXPECT_EQ(ReadCom("Settings=" + std::string(99, 'x')).ComSettings, std::string(99, 'x'));
  EXPECT_EQ(ReadCom("Settings=" + std::string(100, 'x')).ComSettings, std::string(99, 'x'));
  std::string accents;
  for (int i = 0; i < 98; ++i) accents += "è";
  EXPECT_EQ(ReadCom("Settings=" + accents + "yz").ComSettings, accents + "y");
}

TEST_F(SettingsTest, ValuesMayBeWindows1252OrUtf8) {
  EXPECT_EQ(ReadDatabase("TicketFiles=C:\\citt\xE0\\*.txt").TicketFolder, "C:\\città\\");
  EXPECT_EQ(ReadDatabase("TicketFiles=C:\\città\\*.txt").TicketFolder, "C:\\città\\");
}

TEST_F(SettingsTest, TheErrorDescriptionsAreTheCataloguesTexts) {
  file.WriteDefaultErrDesc();
  EXPECT_EQ(memory.content["C:\\shop\\ErrDesc.ini"],
            "[Error Description]\r\n"
            "110=Attenzione ! Carta Giornale Esaurita !\r\n"
            "111=Attenzione ! Carta Scontrino Esaurita !\r\n"
            "112=Ripristinare la carta e confermare\r\n"
            "113=&Ok\r\n"
            "114=Annullamento scontrino in corso\r\n"
            "115=Carta Giornale Esaurita !\r\n"
            "116=Carta Scontrino Esaurita !\r\n");
}

}  // namespace
}  // namespace orvenza::test
