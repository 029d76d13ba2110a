#include "device/error_texts.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/ini_profile_file.h"
#include "platform/system_error.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

class ErrorTextsTest : public ::testing::Test {
 protected:
  void ErrDesc(const std::string& content) { files.content["C:\\shop\\ErrDesc.ini"] = content; }

  MemoryFiles files;
  IniProfileFile profile{files};
  ErrorTexts texts{profile, "C:\\shop\\ErrDesc.ini"};
};

TEST_F(ErrorTextsTest, TheTableHasTheTextsOf31Codes) {
  texts.LoadEcrErrorTable();
  const char* const rows[] = {"01-Carta Giornale",
                              "02-Carta Scontrino",
                              "03-Connettore Giornale",
                              "04-Connettore Scontrino",
                              "05-Temperatura Giornale",
                              "06-Temperatura Scontrino",
                              "07-Errore Slip Printer",
                              "08-Tasto Errato",
                              "09-Data Inferiore",
                              "10-Data Errata",
                              "11-Sequenza Errata",
                              "12-Dati Inesistenti",
                              "13-Valore Errato",
                              "14-Progr. Matricola",
                              "15-Gia' Esistente",
                              "16-Non Previsto",
                              "17-Impossibile Ora",
                              "18-Non Possibile",
                              "19-Scritta Invalida",
                              "20-Supera Valore",
                              "21-Supera Limite",
                              "22-Non Programmato",
                              "23-Chiudi Scontrino",
                              "24-Chiudi Pagamento",
                              "25-Manca Operatore",
                              "26-Cassa Inferiore",
                              "27-Oltre Programmazione",
                              "28-PC Non Connesso",
                              "29-Manca Modulo Slip Printer",
                              "30-Checksum Errato Codice Fiscale",
                              "31-Dati Inesistenti PC"};
  int code = 0;
  for (const char* text : rows) EXPECT_EQ(texts.EcrErrorText(++code), text);
  EXPECT_EQ(code, 31);
}

TEST_F(ErrorTextsTest, TheOtherCodesUpTo50AreEmpty) {
  texts.LoadEcrErrorTable();
  EXPECT_EQ(texts.EcrErrorText(0), "");
  for (int code = 32; code <= 50; ++code) EXPECT_EQ(texts.EcrErrorText(code), "");
}

TEST_F(ErrorTextsTest, ACodeOutsideTheTableIsAnErrorOfTheProgram) {
  for (const int code : {51, 99, -1}) {
    try {
      texts.EcrErrorText(code);
      ADD_FAILURE() << code;
    } catch (const SystemError& failure) {
      EXPECT_EQ(failure.Number(), 9);
      EXPECT_EQ(failure.Description(),
                "Subscript out of range ( EcrErrorText " + std::to_string(code) + " )");
    }
  }
}

TEST_F(ErrorTextsTest, WithoutTheFileTheCatalogueSpeaks) {
  EXPECT_EQ(texts.ErrorDescription(MessageId::kJournalPaperOutWarning), "");
  EXPECT_EQ(texts.MessageText(MessageId::kJournalPaperOutWarning), "Attenzione ! Carta Giornale Esaurita !");
  EXPECT_EQ(texts.MessageText(MessageId::kDeviceOff), "Dispositivo Spento o Non Collegato !");
  EXPECT_EQ(texts.MessageText(MessageId{500}), "");
}

TEST_F(ErrorTextsTest, AKeyOfTheFileReplacesItsMessage) {
  ErrDesc("[Error Description]\r\n110=Cambiare rotolo\r\n113=&Fatto\r\n");
  EXPECT_EQ(texts.ErrorDescription(MessageId::kJournalPaperOutWarning), "Cambiare rotolo");
  EXPECT_EQ(texts.MessageText(MessageId::kJournalPaperOutWarning), "Cambiare rotolo");
  EXPECT_EQ(texts.MessageText(MessageId::kOkButton), "&Fatto");
  EXPECT_EQ(texts.MessageText(MessageId::kReceiptPaperOutWarning), "Attenzione ! Carta Scontrino Esaurita !");
}

TEST_F(ErrorTextsTest, AMissingSectionOrAnEmptyKeyReplacesNothing) {
  for (const char* content : {"", "[Errors]\r\n115=x\r\n", "[Error Description]\r\n115=\r\n",
                              "[Error Description]\r\n0115=x\r\n"}) {
    ErrDesc(content);
    EXPECT_EQ(texts.MessageText(MessageId::kJournalPaperOut), "Carta Giornale Esaurita !") << content;
  }
}

TEST_F(ErrorTextsTest, AReplacementIsCutAt99Characters) {
  ErrDesc("[Error Description]\r\n112=" + std::string(120, 'a') + "\r\n");
  EXPECT_EQ(texts.MessageText(MessageId::kReplacePaper), std::string(99, 'a'));
}

TEST_F(ErrorTextsTest, AReplacementMayBeWindows1252) {
  ErrDesc("[Error Description]\r\n112=Carta gi\xE0 finita\r\n");
  EXPECT_EQ(texts.MessageText(MessageId::kReplacePaper), "Carta già finita");
}

TEST_F(ErrorTextsTest, TheTableIsNeverReplaced) {
  ErrDesc("[Error Description]\r\n508=Altro\r\n8=Altro\r\n08=Altro\r\n");
  texts.LoadEcrErrorTable();
  EXPECT_EQ(texts.EcrErrorText(8), "08-Tasto Errato");
}

TEST_F(ErrorTextsTest, AFileThatCannotBeReadLeavesTheCataloguesText) {
  ErrDesc("[Error Description]\r\n110=Carta !\r\n");
  FaultyFiles faulty(files);
  IniProfileFile unreadable(faulty);
  const ErrorTexts fallen(unreadable, "C:\\shop\\ErrDesc.ini");
  EXPECT_EQ(fallen.MessageText(MessageId::kJournalPaperOutWarning), "Carta !");
  for (const char* operation : {"Exists", "OpenForReading", "Read"}) {
    faulty.FailNext(operation, error_number::kDeviceError);
    EXPECT_EQ(fallen.MessageText(MessageId::kJournalPaperOutWarning),
              "Attenzione ! Carta Giornale Esaurita !")
        << operation;
  }
}

}  // namespace
}  // namespace orvenza::test
