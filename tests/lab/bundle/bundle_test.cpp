#include "lab/bundle/bundle_command.h"
#include "lab/bundle/support_bundle.h"
#include "lab/bundle/zip_reader.h"
#include "lab/shell/run_lab.h"
#include "lab/shell/shop_bench.h"
#include "tickets/text_mask.h"

namespace orvenza::test {
namespace {

class Bundle : public ShopBench {
 protected:
  Bundle() { Edit("max 127)=127", "max 127)=59"); }

  int Run(std::vector<std::string> words = {"--output", "C:\\out.zip"}) {
    words.insert(words.begin(), "bundle");
    LabSurroundings lab = Lab();
    return RunLab(words, {BundleCommand()}, lab);
  }

  ZipReader Archive() { return ZipReader(disk.Content("C:\\out.zip").value()); }

  std::string InArchive(const std::string& name) { return Archive().entries.at(name).bytes; }
};

TEST_F(Bundle, HoldsWhatSupportNeeds) {
  disk.Put(At("Log.txt"), "16/11/2026 08:00:00 - Start Rel. 1.0.0\r\n");
  disk.Put(At("Log.Bak"), "older");
  disk.Put(At("data\\1.txt"), "23;Anna;1;");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(Archive().names,
            "contents.txt\ndoctor.txt\ndoctor.json\nversions.txt\nfolders.txt\nsettings/Orvenza.ini\n"
            "settings/ErrDesc.ini\nlogs/Log.txt\nlogs/Log.Bak\ntickets/waiting/1.txt\n");
  EXPECT_EQ(InArchive("settings/Orvenza.ini"), *disk.Content(At("Orvenza.ini")));
  EXPECT_EQ(InArchive("logs/Log.Bak"), "older");
  EXPECT_NE(InArchive("doctor.txt").find("tickets.waiting"), std::string::npos);
  EXPECT_NE(InArchive("doctor.json").find("\"tickets.waiting\""), std::string::npos);
  EXPECT_NE(InArchive("versions.txt").find("system      A system 1.2\n"), std::string::npos);
}

TEST_F(Bundle, HoldsTheTraceWithItsOlderCopies) {
  Edit("File Parser=0", "File Parser=0\r\n[Host]\r\nTrace=t\\spur.log");
  disk.Put(At("t\\spur.log"), "new");
  disk.Put(At("t\\spur.1.log"), "older");
  disk.Put(At("t\\spur.5.log"), "no trace");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(InArchive("logs/spur.log"), "new");
  EXPECT_EQ(InArchive("logs/spur.1.log"), "older");
  EXPECT_FALSE(Archive().entries.contains("logs/spur.5.log"));
  EXPECT_NE(out.str().find("\nlogs/spur.log         3 bytes     texts masked\n"), std::string::npos)
      << out.str();
}

TEST_F(Bundle, SaysThatThereIsNoTraceYet) {
  Edit("File Parser=0", "File Parser=0\r\n[Host]\r\nTrace=spur.log");
  EXPECT_EQ(Run(), 0);
  EXPECT_NE(out.str().find("\nlogs/spur.log         missing     does not exist\n"), std::string::npos)
      << out.str();
}

TEST_F(Bundle, SaysWhatIsInIt) {
  disk.Put(At("Err.txt"), "x - Riga non valida : 4;Anna\r\n");
  EXPECT_EQ(Run(), 0);
  const std::string shown = out.str();
  EXPECT_EQ(shown.substr(0, shown.find("by orvenza-lab")), "Orvenza in C:\\Orvenza, 2026-11-16 09:00, ");
  EXPECT_NE(shown.find("\nTexts of tickets are masked; amounts, quantities and numbers are not.\n\n"),
            std::string::npos);
  EXPECT_NE(shown.find("\nlogs/Log.txt          missing     does not exist\n"), std::string::npos) << shown;
  EXPECT_NE(shown.find("\nlogs/Err.txt          30 bytes    texts of quoted ticket lines masked\n"),
            std::string::npos);
  EXPECT_TRUE(shown.starts_with(InArchive("contents.txt") + "\nWritten: C:\\out.zip, "));
}

TEST_F(Bundle, ShowsNoControlCharacterOfAName) {
  disk.Put(At("data\\a\x1B[2J\nb.txt"), "4;5;");
  EXPECT_EQ(Run(), 0);
  EXPECT_NE(out.str().find("\ntickets/waiting/a [2J b.txt  4 bytes     texts masked\n"), std::string::npos)
      << out.str();
}

TEST_F(Bundle, ListsTheFolders) {
  disk.Put(At("storico\\2.txt"), "4;5;", kYesterday);
  disk.Delete(At("data"));
  EXPECT_EQ(Run(), 0);
  const std::string listing = InArchive("folders.txt");
  EXPECT_NE(listing.find("C:\\Orvenza\\storico\\\n2026-11-15T08:00:00"), std::string::npos) << listing;
  EXPECT_NE(listing.find("             4  2.txt\n"), std::string::npos);
  EXPECT_NE(listing.find("C:\\Orvenza\\data\\\nPath not found"), std::string::npos);
}

TEST_F(Bundle, CutsALongLogAtALine) {
  const std::string quotation = "x - Riga non valida : 4;Anna\r\n";
  std::string log = quotation + quotation + "y\r\n";
  // The cut is inside the mark of the second quotation.
  log.append(2'000'000 - (quotation.size() - 10) - 3, 'z');
  disk.Put(At("Err.txt"), log);
  EXPECT_EQ(Run(), 0);
  const std::string kept = InArchive("logs/Err.txt");
  EXPECT_EQ(kept.substr(0, 5), "y\r\nzz");
  EXPECT_EQ(kept.size(), 2'000'000 - (quotation.size() - 10));
  disk.Put(At("Err.txt"), std::string(2'000'001, 'z'));
  EXPECT_EQ(Run({"--output", "C:\\out2.zip"}), 0);
  EXPECT_EQ(ZipReader(disk.Content("C:\\out2.zip").value()).entries.at("logs/Err.txt").bytes, "");
}

TEST_F(Bundle, MasksTheTextsOfTickets) {
  disk.Put(At("storico\\1.txt"), "1;Pane 2 kg;1000;450;3;;;1;;\r\n2;1;500;\r\n");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(InArchive("tickets/historic/1.txt"), "1;Xxxx 9 xx;1000;450;3;;;1;;\r\n2;1;500;\r\n");
}

TEST_F(Bundle, LeavesTheTextsOfTicketsOnRequest) {
  disk.Put(At("storico\\1.txt"), "23;Anna;1;");
  disk.Put(At("Err.txt"), "x - Riga non valida : 4;Anna\r\n");
  EXPECT_EQ(Run({"--output", "C:\\out.zip", "--with-descriptions"}), 0);
  EXPECT_EQ(InArchive("tickets/historic/1.txt"), "23;Anna;1;");
  EXPECT_EQ(InArchive("logs/Err.txt"), "x - Riga non valida : 4;Anna\r\n");
  EXPECT_NE(out.str().find("\nTexts of tickets are in it as they are.\n"), std::string::npos);
}

TEST_F(Bundle, MasksLinesThatALogQuotes) {
  const struct {
    const char* log;
    const char* masked;
    bool changed;
  } kCases[] = {
      {"a - Riga non valida : 2;1;50 EURO;CARTA 12;Anna\r\nb - ECR Error : Anna\r\n",
       "a - Riga non valida : 2;1;99 XXXX;XXXXX 99;Xxxx\r\nb - ECR Error : Anna\r\n", true},
      {"WrErr : Disk full 61 ( a - Riga non valida : 9 Anna )",
       "WrErr : Disk full 61 ( a - Riga non valida : 9 Xxxx )", true},
      {"a - File BMP non valido ! ( Anna 12 )\r\nb - Riga non valida : 33;1;Anna\r\nc - Anna",
       "a - File BMP non valido ! ( Xxxx 99 )\r\nb - Riga non valida : 33;1;Xxxx\r\nc - Anna", true},
      {"b - Riga non valida : 9 Anna\r\na - File BMP non valido ! ( Anna )\r\n",
       "b - Riga non valida : 9 Xxxx\r\na - File BMP non valido ! ( Xxxx )\r\n", true},
      {"a - Riga non valida : ", "a - Riga non valida : ", false},
      {"a - Start\r\n", "a - Start\r\n", false},
      {"", "", false},
  };
  for (const auto& [log, expected, changed] : kCases) {
    bool masked = false;
    EXPECT_EQ(MaskLog(log, ';', masked), expected);
    EXPECT_EQ(masked, changed) << log;
  }
}

TEST_F(Bundle, TakesTheTenLatestTickets) {
  for (int i = 1; i <= 9; ++i) {
    disk.Put(At("storico\\" + std::to_string(i) + ".txt"), "4;5;", LocalTime{2026, 11, 15, 10, i, 0});
  }
  disk.Put(At("storico_20261114\\7.txt"), "4;5;", LocalTime{2026, 11, 14, 10, 0, 0});
  disk.Put(At("data\\abort\\a.txt.abort.txt"), "4;5;", LocalTime{2026, 11, 15, 10, 30, 0});
  disk.Put(At("data\\inproces\\b.txt"), "4;5;", LocalTime{2026, 11, 15, 10, 31, 0});
  disk.Put(At("data\\c.tmp"), "4;5;");
  EXPECT_EQ(Run(), 0);
  const std::string names = Archive().names;
  EXPECT_EQ(names.substr(names.find("tickets")),
            "tickets/inproces/b.txt\ntickets/abort/a.txt.abort.txt\ntickets/historic/9.txt\n"
            "tickets/historic/8.txt\ntickets/historic/7.txt\ntickets/historic/6.txt\ntickets/historic/5.txt\n"
            "tickets/historic/4.txt\ntickets/historic/3.txt\ntickets/historic/2.txt\n");
}

TEST_F(Bundle, LooksAtTheLatestEarlierDayToo) {
  disk.Put(At("storico_20261114\\7.txt"), "4;5;", LocalTime{2026, 11, 14, 10, 0, 0});
  disk.Put(At("storico_20261115\\8.txt"), "4;5;", kYesterday);
  disk.Put(At("storico_vecchio\\9.txt"), "4;5;", kYesterday);
  EXPECT_EQ(Run(), 0);
  const std::string names = Archive().names;
  EXPECT_EQ(names.substr(names.find("tickets")), "tickets/earlier/8.txt\n");
}

TEST_F(Bundle, ListsWhatCannotBeReadAsMissing) {
  disk.Put(At("Log.txt"), "x");
  disk.Hold(At("Log.txt"), FileHold::kWriting);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(Archive().entries.count("logs/Log.txt"), 0u);
  EXPECT_NE(InArchive("contents.txt").find("logs/Log.txt          missing     Permission denied ( "),
            std::string::npos)
      << InArchive("contents.txt");
}

TEST_F(Bundle, CutsWhatIsTooLong) {
  disk.Put(At("Log.txt"), "first" + std::string(2'600'000, 'x') + "\r\nlast" + std::string(1'900'000, 'x'));
  disk.Put(At("storico\\1.txt"), "23;" + std::string(1'000'000, 'x'));
  EXPECT_EQ(Run(), 0);
  // Not EXPECT_EQ, which would take too long to show a difference of such texts.
  EXPECT_TRUE(InArchive("logs/Log.txt") == "last" + std::string(1'900'000, 'x'));
  EXPECT_EQ(InArchive("tickets/historic/1.txt").size(), 1'000'000u);
  EXPECT_NE(out.str().find("1.9 MB      the last 1.9 MB of 4.5 MB\n"), std::string::npos);
  EXPECT_NE(out.str().find("1.0 MB      texts masked; the first 1.0 MB of 1.0 MB\n"), std::string::npos);
}

TEST_F(Bundle, IsNamedAfterItsMoment) {
  EXPECT_EQ(Run({}), 0);
  EXPECT_NE(disk.Content("orvenza-support-20261116-090000.zip"), std::nullopt);
}

TEST_F(Bundle, ReplacesNothing) {
  disk.Put("C:\\out.zip", "precious");
  EXPECT_EQ(Run(), 2);
  EXPECT_EQ(err.str(), "orvenza-lab bundle: C:\\out.zip exists already\n");
  EXPECT_EQ(disk.Content("C:\\out.zip"), "precious");
}

TEST_F(Bundle, IsNoFolder) {
  disk.MakeFolder("C:\\out.zip");
  EXPECT_EQ(Run(), 2);
  EXPECT_EQ(err.str(), "orvenza-lab bundle: C:\\out.zip exists already\n");
}

TEST_F(Bundle, ListsNoFolderWithoutAName) {
  Edit("C:\\Orvenza\\storico\\", " ");
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(InArchive("folders.txt").ends_with("\n\nC:\\Orvenza\\data\\abort\\\n"))
      << InArchive("folders.txt");
}

TEST_F(Bundle, IsWrittenWholeOrNotAtAll) {
  disk.SetFull("C:", true);
  const auto before = disk.Paths();
  EXPECT_EQ(Run(), 2);
  EXPECT_EQ(disk.Paths(), before);
  EXPECT_EQ(err.str().substr(0, 29), "orvenza-lab bundle: Disk full");
}

TEST_F(Bundle, IsTheSameForTheSameShop) {
  disk.Put(At("data\\1.txt"), "23;Anna;1;");
  EXPECT_EQ(Run(), 0);
  const std::string first = *disk.Content("C:\\out.zip");
  disk.Delete("C:\\out.zip");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(disk.Content("C:\\out.zip"), first);
}

TEST_F(Bundle, IsMadeOfABrokenInstallationToo) {
  disk.Hold(At("Orvenza.ini"), FileHold::kWriting);
  disk.Delete(At("data"));
  EXPECT_EQ(Run(), 0);
  EXPECT_NE(InArchive("doctor.txt").find("settings.unreadable"), std::string::npos);
}

}  // namespace
}  // namespace orvenza::test
