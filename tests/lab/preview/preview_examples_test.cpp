// The papers of the examples, which people compare with their own.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "lab/shell/lab_bench.h"

namespace orvenza::test {
namespace {

/// The content of a file of the sources, with the line feeds of the sources.
std::string Read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string content(std::istreambuf_iterator<char>(file), {});
  std::erase(content, '\r');
  return content;
}

/// The preview of an example.
std::string PreviewOf(const std::string& name) {
  LabBench lab;
  lab.files.content[name] = Read(ORVENZA_EXAMPLES "/" + name);
  lab.Run({"preview", "--separator", "59", name});
  return lab.out.str();
}

TEST(PreviewExamples, Bar) {
  EXPECT_EQ(PreviewOf("01-bar.txt"), R"(01-bar.txt
+------------------------------------------+
|             NEGOZIO DI PROVA             |
|          REGISTRATORE SIMULATO           |
|                                     EURO |
|   2 x 1,20                               |
| Caffe' espresso                     2,40 |
| Brioche alla crema                  1,50 |
| TOTALE COMPLESSIVO                  3,90 |
| CONTANTI                            5,00 |
| RESTO                               1,10 |
| 16/11/2026 09:00          SCONTRINO N. 1 |
+------------------------------------------+
)");
}

TEST(PreviewExamples, Groceries) {
  EXPECT_EQ(PreviewOf("02-alimentari.txt"), R"(02-alimentari.txt
+------------------------------------------+
|             NEGOZIO DI PROVA             |
|          REGISTRATORE SIMULATO           |
|                                     EURO |
|   0,750 x 4,80                           |
| Pane casereccio                     3,60 |
|   3 x 1,59                               |
| Latte intero 1 l                    4,77 |
|   0,180 x 32,90                          |
| Prosciutto crudo                    5,92 |
| SCONTO 10,00%                      -0,59 |
| Olio extravergine                  11,90 |
| SUBTOTALE                          25,60 |
| Sconto socio                       -1,60 |
| TOTALE COMPLESSIVO                 24,00 |
| CONTANTI                           30,00 |
| RESTO                               6,00 |
| 16/11/2026 09:00          SCONTRINO N. 1 |
+------------------------------------------+
)");
}

TEST(PreviewExamples, PaymentByCard) {
  EXPECT_EQ(PreviewOf("03-carta.txt"), R"(03-carta.txt
+------------------------------------------+
|             NEGOZIO DI PROVA             |
|          REGISTRATORE SIMULATO           |
|                                     EURO |
| Camicia lino bianca                39,90 |
|   3 x 4,50                               |
| Calze di cotone                    13,50 |
| SUBTOTALE                          53,40 |
| TOTALE COMPLESSIVO                 53,40 |
| Carta di credito                   53,40 |
| 16/11/2026 09:00          SCONTRINO N. 1 |
+------------------------------------------+
)");
}

TEST(PreviewExamples, Return) {
  EXPECT_EQ(PreviewOf("04-reso.txt"), R"(04-reso.txt
+------------------------------------------+
|             NEGOZIO DI PROVA             |
|          REGISTRATORE SIMULATO           |
|                                     EURO |
| Giacca impermeabile                89,00 |
| RESO                                     |
| Maglione di lana                  -45,00 |
| TOTALE COMPLESSIVO                 44,00 |
| CONTANTI                           44,00 |
| 16/11/2026 09:00          SCONTRINO N. 1 |
+------------------------------------------+
)");
}

TEST(PreviewExamples, InvalidLine) {
  EXPECT_EQ(PreviewOf("05-riga-errata.txt"), R"(05-riga-errata.txt
+------------------------------------------+
|             NEGOZIO DI PROVA             |
|          REGISTRATORE SIMULATO           |
|                                     EURO |
|   2 x 1,50                               |
| Penna a sfera                       3,00 |
| >>> line 2 refused: '1' has neither      |
|     comma nor point, so it counts        |
|     thousandths and needs three digits;  |
|     write 1,000 for 1                    |
| TOTALE COMPLESSIVO                  3,00 |
| CONTANTI                            6,00 |
| RESTO                               3,00 |
| 16/11/2026 09:00          SCONTRINO N. 1 |
+------------------------------------------+
)");
}

TEST(PreviewExamples, LongShopping) {
  EXPECT_EQ(PreviewOf("06-spesa-lunga.txt"), R"(06-spesa-lunga.txt
+------------------------------------------+
|             NEGOZIO DI PROVA             |
|          REGISTRATORE SIMULATO           |
|                                     EURO |
|   2 x 2,98                               |
| Acqua naturale 6x1,5                5,96 |
|   4 x 1,59                               |
| Latte intero 1 l                    6,36 |
|   6 x 0,65                               |
| Yogurt bianco                       3,90 |
| Burro 250 g                         2,79 |
|   2 x 2,19                               |
| Uova fresche 6 pz                   4,38 |
|   3 x 0,99                               |
| Farina 00 1 kg                      2,97 |
| Zucchero 1 kg                       1,35 |
|   5 x 0,89                               |
| Pasta spaghetti                     4,45 |
| Riso carnaroli 1 kg                 3,29 |
|   4 x 1,19                               |
| Passata di pomodoro                 4,76 |
|   2 x 4,49                               |
| Tonno in olio 3x80                  8,98 |
|   1,235 x 1,99                           |
| Mele Golden                         2,46 |
|   2,480 x 1,49                           |
| Arance da spremuta                  3,70 |
|   0,515 x 3,49                           |
| Pomodori ciliegini                  1,80 |
|   0,320 x 2,50                           |
| Insalata lattuga                    0,80 |
|   0,412 x 18,90                          |
| Parmigiano 24 mesi                  7,79 |
| Mozzarella 3x125 g                  3,29 |
| Buono sconto                       -0,50 |
|   0,648 x 10,99                          |
| Petto di pollo                      7,12 |
|   2 x 5,90                               |
| Vino rosso 0,75 l                  11,80 |
|   2 x 3,79                               |
| Caffe' macinato                     7,58 |
| Detersivo piatti                    1,99 |
| Carta casa 4 rotoli                 2,89 |
|   3 x 0,10                               |
| Sacchetto bio                       0,30 |
| SUBTOTALE                         100,21 |
| SCONTO 5,00%                       -5,01 |
| TOTALE COMPLESSIVO                 95,20 |
| CONTANTI                           50,00 |
| DA PAGARE                          45,20 |
| Buoni pasto                        45,20 |
| Tessera 1234 - Grazie!                   |
| 16/11/2026 09:00          SCONTRINO N. 1 |
+------------------------------------------+
)");
}

TEST(PreviewExamples, Accents) {
  EXPECT_EQ(PreviewOf("07-accenti.txt"), R"(07-accenti.txt
+------------------------------------------+
|             NEGOZIO DI PROVA             |
|          REGISTRATORE SIMULATO           |
|                                     EURO |
| T   alla pesca                      2,50 |
|   2 x 1,80                               |
| Bign   al caff                      3,60 |
| TOTALE COMPLESSIVO                  6,10 |
| CONTANTI                            6,10 |
|    stato un piacere                      |
| 16/11/2026 09:00          SCONTRINO N. 1 |
+------------------------------------------+
)");
}

TEST(PreviewExamples, StandInTheManual) {
  const std::string manual = Read(ORVENZA_EXAMPLES "/../docs/preview.md");
  EXPECT_NE(manual.find("\nexamples/" + PreviewOf("05-riga-errata.txt") + "```\n"), std::string::npos);
}

}  // namespace
}  // namespace orvenza::test
