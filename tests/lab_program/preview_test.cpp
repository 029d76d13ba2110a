// `orvenza-lab preview` and `rehearse --html` as programs: their arguments, files and exit codes.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "program/running_program.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

/// The program's output, followed by a line with its exit code.
std::string Lab(std::vector<std::string> words) {
  words.insert(words.begin(), ORVENZA_LAB);
  RunningProgram lab(words);
  lab.CloseInput();
  const int status = lab.ExitStatus();
  return lab.Shown() + "status " + std::to_string(status);
}

constexpr const char* kTicket = "1;Pane;1,000;150;1;;;1;;\r\n2;1;0;\r\n";

TEST(PreviewProgram, DrawsAReceipt) {
  const TempFolder folder;
  folder.Write("a.txt", kTicket);
  const std::string file = folder.Native("a.txt").string();
  const std::string paper =
      "+------------------------------------------+\n"
      "|             NEGOZIO DI PROVA             |\n"
      "|          REGISTRATORE SIMULATO           |\n"
      "|                                     EURO |\n"
      "| Pane                                1,50 |\n"
      "| TOTALE COMPLESSIVO                  1,50 |\n"
      "| CONTANTI                            1,50 |\n"
      "| 16/11/2026 09:00          SCONTRINO N. 1 |\n"
      "+------------------------------------------+\n";
  EXPECT_EQ(Lab({"preview", "--separator", "59", file}), file + "\n" + paper + "status 0");
}

TEST(PreviewProgram, WritesWhatTheStandardOutputWouldGet) {
  const TempFolder folder;
  folder.Write("a.txt", kTicket);
  const std::string file = folder.Native("a.txt").string();
  for (const char* format : {"text", "html", "svg"}) {
    const std::string page = folder.Native("page").string();
    EXPECT_EQ(Lab({"preview", "--separator", "59", file, "--format", format, "--output", page}), "status 0");
    EXPECT_EQ(Lab({"preview", "--separator", "59", file, "--format", format}),
              folder.Read("page") + "status 0");
  }
}

TEST(PreviewProgram, ReportsWhereItCannotWrite) {
  const TempFolder folder;
  folder.Write("a.txt", kTicket);
  const std::string file = folder.Native("a.txt").string();
  const std::string page = folder.Native("none/page.html").string();
  EXPECT_EQ(
      Lab({"preview", "--separator", "59", file, "--output", page}),
      "orvenza-lab preview: " + page + " cannot be written: its folder is missing or read-only\nstatus 2");
  EXPECT_EQ(Lab({"preview", "--separator", "59", file, "--output", folder.Path()}),
            "orvenza-lab preview: Path/File access error ( " + folder.Path() + " )\nstatus 2");
}

TEST(PreviewProgram, ReportsAFolderInThePlaceOfATicket) {
  const TempFolder folder;
  const std::string shown = Lab({"preview", folder.Path()});
  EXPECT_TRUE(shown.starts_with(folder.Path() + ": error: Path/File access error ( " + folder.Path() +
                                " ) [unreadable]\n" + folder.Path() + "\n+---"))
      << shown;
  EXPECT_TRUE(shown.ends_with("status 2")) << shown;
}

TEST(RehearsePageProgram, WritesAPage) {
  const TempFolder folder;
  folder.Write("a.scenario", "at 1s quit\n");
  const std::string scenario = folder.Native("a.scenario").string();
  const std::string shown = Lab({"rehearse", scenario, "--html", folder.Native("a.html").string()});
  EXPECT_TRUE(shown.ends_with("  end\nstatus 0")) << shown;
  EXPECT_NE(folder.Read("a.html").find("<title>Rehearsal of a.scenario</title>"), std::string::npos);
}

}  // namespace
}  // namespace orvenza::test
