#include "lab/preview/preview_command.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "lab/check/file_check.h"
#include "lab/shell/help_page.h"
#include "lab/shell/lab_bench.h"
#include "lab/shell/run_lab.h"
#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"

namespace orvenza::test {
namespace {

using namespace std::string_literals;

constexpr const char* kSale = "1;Pane;1,000;150;1;;;1;;\n";
constexpr const char* kPaid = "2;1;200;\n";
constexpr const char* kEdge = "+------------------------------------------+\n";
constexpr const char* kOpenEdge = "+- - - - - - - - - - - - - - - - - - - - - +\n";
constexpr const char* kHead =
    "|             NEGOZIO DI PROVA             |\n"
    "|          REGISTRATORE SIMULATO           |\n"
    "|                                     EURO |\n";
constexpr const char* kBread = "| Pane                                1,50 |\n";

/// The end of a receipt over 1,50 that is paid with 2,00.
std::string Payment(int number) {
  return "| TOTALE COMPLESSIVO                  1,50 |\n"
         "| CONTANTI                            2,00 |\n"
         "| RESTO                               0,50 |\n"
         "| 16/11/2026 09:00          SCONTRINO N. " +
         std::to_string(number) + " |\n" + kEdge;
}

std::string Receipt(int number) { return std::string(kEdge) + kHead + kBread + Payment(number); }

/// The command on files in memory, with ";" as separator.
class PreviewCommandTest : public ::testing::Test {
 protected:
  int Preview(std::vector<std::string> words) {
    words.insert(words.begin(), {"preview", "--separator", ";"});
    return lab.Run(words);
  }

  void Ticket(const std::string& name, const std::string& content) { lab.files.content[name] = content; }

  LabBench lab;
};

TEST_F(PreviewCommandTest, DrawsTheReceiptOfAFile) {
  Ticket("a.txt", std::string(kSale) + kPaid);
  EXPECT_EQ(Preview({"a.txt"}), 0);
  EXPECT_EQ(lab.out.str(), "a.txt\n" + Receipt(1));
  EXPECT_EQ(lab.err.str(), "");
}

TEST_F(PreviewCommandTest, PutsARefusedLineInItsPlace) {
  Ticket("a.txt", std::string(kSale) + "99;x;\n" + kPaid);
  EXPECT_EQ(Preview({"a.txt"}), 1);
  EXPECT_EQ(lab.out.str(), "a.txt\n" + std::string(kEdge) + kHead + kBread +
                               "| >>> line 2 refused: there is no record   |\n"
                               "|     type '99'; the types are 0 to 9, 14, |\n"
                               "|     15, 17, 20 to 43                     |\n" +
                               Payment(1));
}

TEST_F(PreviewCommandTest, TellsTheFindingsOfACheckOnTheErrorOutput) {
  Ticket("a.txt", std::string(kSale) + "4;x;\n\n4;25;\n");
  Preview({"a.txt"});
  LabBench check;
  check.files.content = lab.files.content;
  check.Run({"check", "--separator", ";", "--quiet", "a.txt"});
  const std::string findings = check.out.str();
  EXPECT_EQ(lab.err.str() + "4 lines, 1 error, 1 warning\n", findings);
}

TEST_F(PreviewCommandTest, NamesEveryReasonWhyALineIsRefused) {
  Ticket("a.txt", "1;Pane;x;y;1;;;1;;\n");
  EXPECT_EQ(Preview({"a.txt"}), 1);
  EXPECT_EQ(lab.out.str(), "a.txt\n" + std::string(kEdge) +
                               "| >>> line 1 refused: 'x' holds other      |\n"
                               "|     characters than digits; accepted:    |\n"
                               "|     digits with one comma or point       |\n"
                               "|     before the decimals, such as 1,000   |\n"
                               "|     or 0,75; 'y' holds other characters  |\n"
                               "|     than digits; accepted: digits, an    |\n"
                               "|     amount in cents without any          |\n"
                               "|     separator                            |\n" +
                               kOpenEdge);
}

TEST_F(PreviewCommandTest, ShowsWhatTheRegisterRefuses) {
  Ticket("a.txt", std::string(kPaid) + kSale + kPaid + kPaid);
  EXPECT_EQ(Preview({"a.txt"}), 1);
  EXPECT_EQ(lab.out.str(), "a.txt\n" + std::string(kEdge) +
                               "| >>> line 1 refused: ERR11 (Sequenza      |\n"
                               "|     Errata)                              |\n" +
                               kHead + kBread + Payment(1) + kEdge +
                               "| >>> line 4 refused: ERR11 (Sequenza      |\n"
                               "|     Errata)                              |\n" +
                               kOpenEdge);
  EXPECT_TRUE(lab.err.str().starts_with(
      "a.txt:1: error: the simulated register answers ERR11 (Sequenza Errata) [refused]\n"
      "a.txt:1: warning: a payment, but nothing was sold before it"))
      << lab.err.str();
}

TEST_F(PreviewCommandTest, GoesOnWithOneRegisterFromFileToFile) {
  Ticket("a.txt", std::string(kSale) + kPaid + kSale + kPaid);
  Ticket("b.txt", "21;\n");
  EXPECT_EQ(Preview({"a.txt", "b.txt"}), 0);
  EXPECT_EQ(lab.out.str(), "a.txt\n" + Receipt(1) + Receipt(2) + "\nb.txt\n" + kEdge +
                               "|          CHIUSURA FISCALE N. 1           |\n"
                               "| SCONTRINI                              2 |\n"
                               "| TOTALE DEL GIORNO                   3,00 |\n"
                               "| 16/11/2026 09:00                         |\n" +
                               kEdge);
}

TEST_F(PreviewCommandTest, DrawsDocumentsAndVoidedReceipts) {
  Ticket("a.txt", "29;1;\n30;1;1;Buono;\n31;1;\n"s + kSale + "4;1;\n");
  EXPECT_EQ(Preview({"a.txt"}), 0);
  EXPECT_EQ(lab.out.str(), "a.txt\n" + std::string(kEdge) + kHead +
                               "|          DOCUMENTO NON FISCALE           |\n"
                               "| Buono                                    |\n"
                               "| 16/11/2026 09:00          FINE DOCUMENTO |\n" +
                               kEdge + kEdge + kHead + kBread +
                               "| ANNULLO                            -1,50 |\n"
                               "| 16/11/2026 09:00     SCONTRINO ANNULLATO |\n" +
                               kEdge);
}

TEST_F(PreviewCommandTest, MarksWhatIsLeftOpen) {
  Ticket("a.txt", kSale);
  Ticket("b.txt", "29;1;\n");
  Ticket("c.txt", std::string(kSale) + kPaid);
  EXPECT_EQ(Preview({"a.txt", "b.txt", "c.txt"}), 0);
  EXPECT_EQ(lab.out.str(), "a.txt\n" + std::string(kEdge) + kHead + kBread +
                               "| >>> receipt left open                    |\n" + kOpenEdge + "\nb.txt\n" +
                               kEdge + kHead +
                               "|          DOCUMENTO NON FISCALE           |\n"
                               "| >>> document left open                   |\n" +
                               kOpenEdge + "\nc.txt\n" + Receipt(1));
}

TEST_F(PreviewCommandTest, ForgetsTheFootOfAReceiptThatIsLeftOpen) {
  Ticket("a.txt", "25;;1;Grazie;1;\n"s + kSale);
  Ticket("b.txt", std::string(kSale) + kPaid);
  EXPECT_EQ(Preview({"a.txt", "b.txt"}), 0);
  EXPECT_TRUE(lab.out.str().ends_with("b.txt\n" + Receipt(1))) << lab.out.str();
}

constexpr const char* kPartOfAReceipt = "2;1;100;\n";

TEST_F(PreviewCommandTest, EndsATicketWhereTheParserSplitsTheFile) {
  lab.files.content["shop\\Orvenza.ini"] = "[General]\r\nSeparator (ascii,max 127)=59\r\nFile Parser=1\r\n";
  Ticket("a.txt", std::string(kSale) + kPartOfAReceipt + kSale + kPaid);
  EXPECT_EQ(lab.Run({"preview", "--folder", "shop", "a.txt"}), 0) << lab.err.str();
  EXPECT_EQ(lab.out.str(), "a.txt\n" + std::string(kEdge) + kHead + kBread +
                               "| TOTALE COMPLESSIVO                  1,50 |\n"
                               "| CONTANTI                            1,00 |\n"
                               "| DA PAGARE                           0,50 |\n"
                               "| >>> receipt left open                    |\n" +
                               kOpenEdge + Receipt(1));
}

TEST_F(PreviewCommandTest, SplitsNoFileWithoutTheParser) {
  Ticket("a.txt", std::string(kSale) + kPartOfAReceipt + kSale);
  EXPECT_EQ(Preview({"a.txt"}), 1);
  EXPECT_TRUE(
      lab.out.str().ends_with("| DA PAGARE                           0,50 |\n"
                              "| >>> line 3 refused: ERR11 (Sequenza      |\n"
                              "|     Errata)                              |\n"
                              "| >>> receipt left open                    |\n"s +
                              kOpenEdge))
      << lab.out.str();
}

/// A ticket of more items than a receipt takes, with this separator.
std::string LongTicket(char separator) {
  std::string sale = kSale;
  std::string ticket;
  for (int i = 0; i < 201; ++i) ticket += sale;
  ticket += "2;1;0;\n";
  std::replace(ticket.begin(), ticket.end(), ';', separator);
  return ticket;
}

TEST_F(PreviewCommandTest, DividesAReceiptThatIsTooLong) {
  Ticket("a.txt", LongTicket('\x7F'));
  EXPECT_EQ(lab.Run({"preview", "a.txt"}), 0);
  EXPECT_TRUE(lab.out.str().ends_with(std::string(kBread) +
                                      "| >>> the receipt is too long: it is       |\n"
                                      "|     divided here                         |\n"
                                      "| TOTALE COMPLESSIVO                300,00 |\n"
                                      "| CONTANTI                          300,00 |\n"
                                      "| 16/11/2026 09:00          SCONTRINO N. 1 |\n" +
                                      kEdge + kEdge + kHead + kBread +
                                      "| TOTALE COMPLESSIVO                  1,50 |\n"
                                      "| CONTANTI                            1,50 |\n"
                                      "| 16/11/2026 09:00          SCONTRINO N. 2 |\n" +
                                      kEdge))
      << lab.out.str();
}

TEST_F(PreviewCommandTest, DividesNoReceiptWithAnotherSeparator) {
  Ticket("a.txt", LongTicket(';'));
  EXPECT_EQ(Preview({"a.txt"}), 1);
  EXPECT_TRUE(lab.out.str().ends_with(std::string(kBread) +
                                      "| >>> line 201 refused: ERR23 (Chiudi      |\n"
                                      "|     Scontrino)                           |\n"
                                      "| TOTALE COMPLESSIVO                300,00 |\n"
                                      "| CONTANTI                          300,00 |\n"
                                      "| 16/11/2026 09:00          SCONTRINO N. 1 |\n"s +
                                      kEdge))
      << lab.out.str();
}

/// A bitmap of one row in the form of a logo.
std::string Logo() {
  std::string bytes(62, '\0');
  bytes.replace(0, 2, "BM");
  bytes[10] = 62;
  bytes[18] = '\xC0';
  bytes[19] = 1;
  bytes[22] = 1;
  bytes[28] = 1;
  return bytes + std::string(56, '\xFF');
}

TEST_F(PreviewCommandTest, HasAPlaceForALogo) {
  lab.files.content["C:\\loghi\\natale.bmp"] = Logo();
  Ticket("a.txt", "33;3;C:\\loghi\\natale.bmp;\n"s + kSale + kPaid);
  EXPECT_EQ(Preview({"a.txt"}), 0) << lab.err.str();
  EXPECT_EQ(lab.out.str(), "a.txt\n" + std::string(kEdge) + "| [logo 03: natale.bmp]                    |\n" +
                               kHead + kBread + Payment(1));
}

TEST_F(PreviewCommandTest, TakesHostileBytesAsText) {
  Ticket("<b>&.txt", "1;<i>\xE8\0\x1B[31m\"&;1,000;150;1;;;1;;\n2;1;200;\n"s);
  EXPECT_EQ(Preview({"--format", "html", "<b>&.txt"}), 0);
  const std::string html = lab.out.str();
  EXPECT_NE(html.find("<title>Preview of &lt;b&gt;&amp;.txt</title>"), std::string::npos) << html;
  EXPECT_NE(html.find("\n&lt;i&gt;   [31m&quot;&amp;                        1,50\n"), std::string::npos)
      << html;
  EXPECT_EQ(html.find("<b>"), std::string::npos);
  EXPECT_EQ(html.find("<i>"), std::string::npos);
  EXPECT_EQ(html.find_first_of("\0\x1B"s), std::string::npos);
}

TEST_F(PreviewCommandTest, SaysThatALineIsTooLong) {
  Ticket("a.txt", kSale + std::string(FileCheck::kLongestLine + 1, '1') + "\n" + kPaid);
  EXPECT_EQ(Preview({"a.txt"}), 1);
  EXPECT_EQ(lab.out.str(), "a.txt\n" + std::string(kEdge) + kHead + kBread +
                               "| >>> line 2 refused: the line is longer   |\n"
                               "|     than 65536 bytes and is not checked  |\n" +
                               Payment(1));
}

TEST_F(PreviewCommandTest, SaysThatNothingIsPrinted) {
  Ticket("a.txt", "");
  EXPECT_EQ(Preview({"a.txt"}), 0);
  EXPECT_EQ(lab.out.str(), "a.txt\nNothing is printed.\n");
  EXPECT_EQ(Preview({"--format", "svg", "a.txt"}), 0);
  EXPECT_NE(lab.out.str().find(">Nothing is printed.</text>"), std::string::npos);
  EXPECT_EQ(Preview({"--format", "html", "a.txt"}), 0);
  EXPECT_NE(lab.out.str().find("<p class=\"nothing\">Nothing is printed.</p>"), std::string::npos);
}

TEST_F(PreviewCommandTest, GoesOnAfterAFileThatCannotBeRead) {
  Ticket("b.txt", std::string(kSale) + kPaid);
  EXPECT_EQ(Preview({"a.txt", "b.txt"}), 2);
  EXPECT_EQ(lab.out.str(), "a.txt\n" + std::string(kEdge) +
                               "| >>> the file cannot be read: File not    |\n"
                               "|     found ( a.txt )                      |\n" +
                               kOpenEdge + "\nb.txt\n" + Receipt(1));
  EXPECT_EQ(lab.err.str(), "a.txt: error: File not found ( a.txt ) [unreadable]\n");
}

TEST_F(PreviewCommandTest, ReadsTheStandardInput) {
  lab.in.str(std::string(kSale) + kPaid);
  EXPECT_EQ(Preview({"-"}), 0);
  EXPECT_EQ(lab.out.str(), "-\n" + Receipt(1));
}

TEST_F(PreviewCommandTest, WritesAPage) {
  Ticket("a.txt", std::string(kSale) + kPaid);
  Ticket("b.txt", kSale);
  EXPECT_EQ(Preview({"a.txt", "b.txt", "--output", "p.HTML"}), 0);
  EXPECT_EQ(lab.out.str(), "");
  const std::string page = lab.files.content["p.HTML"];
  EXPECT_TRUE(page.ends_with(
      "<body>\n"
      "<h1>Preview of 2 files</h1>\n"
      "<p class=\"note\">As the simulated register prints it. The shop, the date and the receipt numbers are "
      "samples.</p>\n"
      "<main>\n"
      "<section>\n"
      "<h2>a.txt</h2>\n"
      "<div class=\"slips\">\n"
      "<div class=\"paper\"><pre class=\"slip\">\n"
      "            NEGOZIO DI PROVA\n"
      "         REGISTRATORE SIMULATO\n"
      "                                    EURO\n"
      "Pane                                1,50\n"
      "TOTALE COMPLESSIVO                  1,50\n"
      "CONTANTI                            2,00\n"
      "RESTO                               0,50\n"
      "16/11/2026 09:00          SCONTRINO N. 1\n"
      "</pre></div>\n"
      "</div>\n"
      "</section>\n"
      "<section>\n"
      "<h2>b.txt</h2>\n"
      "<div class=\"slips\">\n"
      "<div class=\"paper open\"><pre class=\"slip\">\n"
      "            NEGOZIO DI PROVA\n"
      "         REGISTRATORE SIMULATO\n"
      "                                    EURO\n"
      "Pane                                1,50\n"
      "<span class=\"remark\">&gt;&gt;&gt; receipt left open</span></pre></div>\n"
      "</div>\n"
      "</section>\n"
      "</main>\n"
      "</body>\n"
      "</html>\n"))
      << page;
}

TEST_F(PreviewCommandTest, WritesAPicture) {
  Ticket("C:\\cassa\\a.txt", "4;x;\n");
  EXPECT_EQ(Preview({"C:\\cassa\\a.txt", "--output", "p.svg"}), 1);
  const std::string picture = lab.files.content["p.svg"];
  EXPECT_TRUE(picture.starts_with(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 404 224\" width=\"404\" role=\"img\">\n"
      "<title>Preview of C:\\cassa\\a.txt</title>\n<style>\n"))
      << picture;
  EXPECT_TRUE(picture.ends_with(
      "</style>\n"
      "<rect class=\"ground\" width=\"100%\" height=\"100%\" />\n"
      "<text class=\"heading\" x=\"16\" y=\"28\">a.txt</text>\n"
      "<g transform=\"translate(16 36)\">\n"
      "<path class=\"slip open\" d=\"M0 0H372V124H0Z\" />\n"
      "<rect class=\"remark\" x=\"13\" y=\"26\" width=\"346\" height=\"18\" />\n"
      "<text class=\"remark\" x=\"26\" y=\"39\" textLength=\"280\">&gt;&gt;&gt; line 1 refused: &#39;x&#39; "
      "holds "
      "other</text>\n"
      "<rect class=\"remark\" x=\"13\" y=\"44\" width=\"346\" height=\"18\" />\n"
      "<text class=\"remark\" x=\"58\" y=\"57\" textLength=\"264\">characters than digits; accepted:</text>\n"
      "<rect class=\"remark\" x=\"13\" y=\"62\" width=\"346\" height=\"18\" />\n"
      "<text class=\"remark\" x=\"58\" y=\"75\" textLength=\"280\">digits, 0 to 20; others are sent "
      "as</text>\n"
      "<rect class=\"remark\" x=\"13\" y=\"80\" width=\"346\" height=\"18\" />\n"
      "<text class=\"remark\" x=\"58\" y=\"93\" textLength=\"16\">20</text>\n"
      "</g>\n"
      "<text class=\"note\" x=\"16\" y=\"188\">As the simulated register prints it.</text>\n"
      "<text class=\"note\" x=\"16\" y=\"208\">The shop, the date and the receipt numbers are "
      "samples.</text>\n"
      "</svg>\n"))
      << picture;
}

TEST_F(PreviewCommandTest, ShortensTheHeadingsOfAPicture) {
  Ticket(std::string(45, 'x'), "");
  Preview({"--format", "svg", std::string(45, 'x')});
  EXPECT_NE(lab.out.str().find(">" + std::string(44, 'x') + "...</text>"), std::string::npos);
}

TEST_F(PreviewCommandTest, PrefersTheFormatThatIsNamed) {
  Ticket("a.txt", std::string(kSale) + kPaid);
  EXPECT_EQ(Preview({"a.txt", "--format", "text", "--output", "p.html"}), 0);
  EXPECT_EQ(lab.files.content["p.html"], "a.txt\n" + Receipt(1));
}

TEST_F(PreviewCommandTest, RefusesAnUnknownFormat) {
  Ticket("a.txt", kSale);
  EXPECT_EQ(Preview({"a.txt", "--format", "htm"}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab preview: --format 'htm': expected text, html or svg; did you mean 'html'?\n"
            "See 'orvenza-lab preview --help'.\n");
}

TEST_F(PreviewCommandTest, WritesOverNoTicket) {
  Ticket("a.txt", kSale);
  EXPECT_EQ(Preview({"a.txt", "--output", "a.txt"}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab preview: 'a.txt' is read and would be overwritten\n"
            "See 'orvenza-lab preview --help'.\n");
  EXPECT_EQ(lab.files.content["a.txt"], kSale);
}

TEST_F(PreviewCommandTest, WantsFiles) {
  EXPECT_EQ(Preview({}), 2);
  EXPECT_EQ(lab.err.str(),
            "orvenza-lab preview: which files? '-' is standard input\nSee 'orvenza-lab preview --help'.\n");
}

TEST_F(PreviewCommandTest, GivesTheRemarksOfACheckOnTheCommandLine) {
  Ticket("a.txt", std::string(kSale) + kPaid);
  EXPECT_EQ(Preview({"a.txt", "--release", "2.02.00"}), 0);
  EXPECT_EQ(lab.err.str(), "orvenza-lab preview: --release has no effect without --model\n");
}

TEST(PreviewOutput, IsRefusedWhereItCannotBeWritten) {
  LabBench lab;
  VirtualDisk disk(lab.clock, "C:\\work");
  disk.Put("C:\\work\\a.txt", kSale);
  disk.Put("C:\\work\\p.html", "older");
  LabSurroundings around{disk.FileSeam(), disk.FolderSeam(), lab.clock, lab.clock,
                         lab.machine,     lab.console,       "home"};
  const auto preview = [&](const char* output) {
    return RunLab({"preview", "--separator", ";", "a.txt", "--output", output}, {PreviewCommand()}, around);
  };
  EXPECT_EQ(preview("missing\\p.html"), 2);
  disk.SetFull("C:", true);
  EXPECT_EQ(preview("p.html"), 2);
  EXPECT_EQ(lab.out.str(), "");
  EXPECT_EQ(disk.Content("C:\\work\\p.html"), "older");
  const std::string errors = lab.err.str();
  EXPECT_NE(errors.find("orvenza-lab preview: Disk full ( p.html )\n"), std::string::npos) << errors;
  EXPECT_NE(errors.find("orvenza-lab preview: Path not found ( missing\\p.html )\n"), std::string::npos)
      << errors;
}

TEST(PreviewOutput, HasAHelpPageForATerminal) {
  std::istringstream page(HelpPage(PreviewCommand()));
  for (std::string line; std::getline(page, line);) EXPECT_LE(line.size(), 80u) << line;
}

}  // namespace
}  // namespace orvenza::test
