#include "core/catalogue.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>

namespace orvenza {
namespace {

struct Row {
  int id;
  const char* text;
};

constexpr Row kRows[] = {
    {101, "Default INI !"},
    {102, "Start"},
    {103, "End"},
    {104, "Quit Command !"},
    {105, "Start Scontrino"},
    {106, "End Scontrino"},
    {107, "Carta Esaurita !"},
    {108, "Programma già in esecuzione !"},
    {109, "Default DEP INI !"},
    {110, "Attenzione ! Carta Giornale Esaurita !"},
    {111, "Attenzione ! Carta Scontrino Esaurita !"},
    {112, "Ripristinare la carta e confermare"},
    {113, "&Ok"},
    {114, "Annullamento scontrino in corso"},
    {115, "Carta Giornale Esaurita !"},
    {116, "Carta Scontrino Esaurita !"},
    {117, "ECR Error :"},
    {118, "Attenzione ! Errore ECR :"},
    {119, "Ristampare lo scontrino ( annullare automaticamente )"},
    {120, "Abortire la stampa dello scontrino"},
    {121, "Ignorare l'errore e continuare"},
    {122, "Ripresa da Fine Carta, annullo Totale"},
    {123, "Annullo Totale e Ristampa Scontrino"},
    {124, "Riga non valida :"},
    {125, "Default ASCII PL Character Set"},
    {126, "Nessuna riposta dal Dispositivo !"},
    {127, "Abort stampa scontrino."},
    {128, "Errore Comunicazione :"},
    {141, "Risposta Operatore :"},
    {142, "Attenzione, Errori di Comunicazione !"},
    {143, "Nessuna risposta dal Dispositivo !"},
    {144, "Errore di risposta dal Dispositivo !"},
    {145, "Scontrino stampato, continuare"},
    {146, "Versione File INI Errata !"},
    {147, "Applicazione Terminata."},
    {149, "Riga scontrino non valida !"},
    {150, "Dispositivo Spento o Non Collegato !"},
    {151, "Collegamento Annullato dall'Operatore"},
    {152, "Richiesta di Fine Collegamento"},
    {153, "Chiudendo l'applicazione non sara' più possibile stampare gli scontrini"},
    {154, "Sei sicuro ?"},
    {155, "Drive non disponibile :"},
    {156, "Applicazione terminata dall'Operatore"},
    {157, "Impossibile inviare ALL VOID !"},
    {158, "Impossibile leggere stato Cash !"},
    {159, "Numero Porta Errato ! Default 1 !"},
    {160, "Esci"},
    {161, "Utilita'"},
    {162, "&Esci"},
    {163, "&Chiusura Fiscale"},
    {164, "Richiesta di Chiusura Fiscale"},
    {165, "Confermi la Richiesta di Chiusura Fiscale ?"},
    {166, "Attenzione, ci sono ancora scontrini da stampare !"},
    {167, "Chiusura &Fiscale con Finanziario"},
    {168, "Apertura Porta non Riuscita !"},
    {169, "Attenzione !"},
    {170, "Impossibile annullare lo scontrino in corso !"},
    {171, "Si desidera chiudere automaticamente lo scontrino ?"},
    {172, "Invio Annullo in corso... Attendere"},
    {173, "Controllare chiave Cash !"},
    {174, "Configurazione Parametri Porta COM"},
    {175, "Porta COM"},
    {176, "Velocita'"},
    {177, "Parita'"},
    {178, "Data Bit"},
    {179, "Stop Bit"},
    {180, "Info"},
    {181, "Configura"},
    {182, "Si vuole eseguire la configurazione della Porta COM ?"},
    {183, "Impossibile Inviare Riavvio da Fine Carta !"},
    {184, "Controllare alimentazione Cash !"},
    {185, "Il file INI contiene un percorso errato :"},
    {186, "Il programma sarà terminato."},
    {187, "Riprova"},
    {188, "Annulla"},
    {189, "Termina"},
    {190, "Ok"},
    {191, "Sì"},
    {192, "No"},
    {193, "Ignora"},
    {194, "Tentativo di rinominare cartella scontrini storici :"},
    {195, "Errore creazione cartella storico scontrini"},
    {196, "Aggiornamento del file INI effettuato con successo !"},
    {197, "File BMP non valido !"},
    {198, "Scontrino diviso perchè troppo lungo !"},
    {199, "Dati Cash :"},
    {501, "01-Carta Giornale"},
    {502, "02-Carta Scontrino"},
    {503, "03-Connettore Giornale"},
    {504, "04-Connettore Scontrino"},
    {505, "05-Temperatura Giornale"},
    {506, "06-Temperatura Scontrino"},
    {507, "07-Errore Slip Printer"},
    {508, "08-Tasto Errato"},
    {509, "09-Data Inferiore"},
    {510, "10-Data Errata"},
    {511, "11-Sequenza Errata"},
    {512, "12-Dati Inesistenti"},
    {513, "13-Valore Errato"},
    {514, "14-Progr. Matricola"},
    {515, "15-Gia' Esistente"},
    {516, "16-Non Previsto"},
    {517, "17-Impossibile Ora"},
    {518, "18-Non Possibile"},
    {519, "19-Scritta Invalida"},
    {520, "20-Supera Valore"},
    {521, "21-Supera Limite"},
    {522, "22-Non Programmato"},
    {523, "23-Chiudi Scontrino"},
    {524, "24-Chiudi Pagamento"},
    {525, "25-Manca Operatore"},
    {526, "26-Cassa Inferiore"},
    {527, "27-Oltre Programmazione"},
    {528, "28-PC Non Connesso"},
    {529, "29-Manca Modulo Slip Printer"},
    {530, "30-Checksum Errato Codice Fiscale"},
    {531, "31-Dati Inesistenti PC"},
};

TEST(Catalogue, HoldsEveryTextLetterForLetter) {
  for (const Row& row : kRows) EXPECT_EQ(LoadMessage(MessageId{row.id}), row.text) << row.id;
}

TEST(Catalogue, HasNoTextUnderAnyOtherNumber) {
  std::set<int> numbers;
  for (const Row& row : kRows) numbers.insert(row.id);
  ASSERT_EQ(numbers.size(), std::size(kRows)) << "a number stands twice";
  for (int id = -1; id <= 2000; ++id) {
    if (numbers.contains(id)) continue;
    EXPECT_EQ(LoadMessage(MessageId{id}), "") << id;
  }
}

TEST(Catalogue, HasNoTextBesideItsRanges) {
  for (const int id : {0, 100, 129, 140, 148, 200, 500, 532, -101})
    EXPECT_EQ(LoadMessage(MessageId{id}), "") << id;
}

TEST(Catalogue, HoldsAccentedLettersInUtf8) {
  EXPECT_EQ(LoadMessage(MessageId::kYes), "S\xC3\xAC");
  EXPECT_EQ(LoadMessage(MessageId::kAlreadyRunning), "Programma gi\xC3\xA0 in esecuzione !");
  EXPECT_EQ(LoadMessage(MessageId::kReceiptSplit), "Scontrino diviso perch\xC3\xA8 troppo lungo !");
}

TEST(Catalogue, KeepsTheButtonCaptionApartFromThePlainOk) {
  EXPECT_EQ(LoadMessage(MessageId::kOkButton), "&Ok");
  EXPECT_EQ(LoadMessage(MessageId::kOk), "Ok");
}

}  // namespace
}  // namespace orvenza
