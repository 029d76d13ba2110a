#include "lab/doctor/diagnosis.h"

#include "core/version.h"
#include "lab/doctor/doctor_command.h"
#include "lab/shell/run_lab.h"
#include "lab/shell/shop_bench.h"

namespace orvenza::test {
namespace {

class Diagnosis : public ShopBench {
 protected:
  int Run(std::vector<std::string> words) {
    words.insert(words.begin(), "doctor");
    LabSurroundings lab = Lab();
    return RunLab(words, {DoctorCommand()}, lab);
  }
};

TEST_F(Diagnosis, IsATableOfWhatWasFound) {
  disk.Delete(At("data\\abort"));
  disk.Put(At("command.txt"), "QUIT");
  EXPECT_EQ(Run({}), 2);
  EXPECT_EQ(
      out.str(),
      "Orvenza in C:\\Orvenza, 2026-11-16 09:00\n"
      "\n"
      "ok       settings.ok           Orvenza.ini is of version 1.06 and used as it stands.\n"
      "ok       instance.none         No connector runs on this folder.\n"
      "error    command.quit          command.txt is there, which ends the connector right after its next\n"
      "                               start.\n"
      "                            -> Delete command.txt, and see why the host program wrote it.\n"
      "ok       log.ok                The logs can be written; no error of today.\n"
      "note     folder.missing        The abort folder C:\\Orvenza\\data\\abort\\ is missing; the connector\n"
      "                               makes it.\n"
      "ok       folder.ok             Can be written to: program folder, ticket folder, in-process folder,\n"
      "                               historic folder.\n"
      "ok       space.ok              There is 80.0 GB free for all folders.\n"
      "ok       historic.size         The historic folder holds 0 files of 0 bytes.\n"
      "ok       control.ok            The link control EcrLinkXControl1.EcrLinkX is registered:\n"
      "                               C:\\Link\\EcrLinkX.ocx.\n"
      "ok       port.ok               The serial port COM1 is there.\n"
      "\n"
      "1 error, 0 warnings, 1 note, 8 in order. Not ready.\n");
}

TEST_F(Diagnosis, HasAnExitCodeForItsWorstFinding) {
  EXPECT_EQ(Run({}), 0);
  EXPECT_TRUE(out.str().ends_with("0 errors, 0 warnings, 0 notes, 8 in order. Ready.\n"));
  Edit("ComPort=1", "ComPort=17");
  EXPECT_EQ(Run({}), 1);
  EXPECT_TRUE(
      out.str().ends_with("0 errors, 1 warning, 0 notes, 7 in order. Ready, but see the warnings.\n"));
  Edit("Version=1.06", "Version=9");
  EXPECT_EQ(Run({}), 2);
}

TEST_F(Diagnosis, IsOneJsonObjectOnRequest) {
  LabSurroundings lab = Lab();
  const Installation shop = LookAt(lab, {"C:\\Orvenza", "Orvenza"});
  WriteDiagnosisAsJson(out, shop, {{Severity::kWarning, "some.code", "A \"fact\".", "Do."}, {}});
  EXPECT_EQ(out.str(),
            "{\n"
            "  \"schema\": 1,\n"
            "  \"version\": \"" +
                std::string(kVersionText) +
                "\",\n"
                "  \"folder\": \"C:\\\\Orvenza\",\n"
                "  \"time\": \"2026-11-16T09:00:00\",\n"
                "  \"status\": 1,\n"
                "  \"error\": 0,\n"
                "  \"warning\": 1,\n"
                "  \"note\": 0,\n"
                "  \"ok\": 1,\n"
                "  \"findings\": [\n"
                "    {\"severity\": \"warning\", \"code\": \"some.code\", \"fact\": \"A \\\"fact\\\".\", "
                "\"remedy\": \"Do.\"},\n"
                "    {\"severity\": \"ok\", \"code\": \"\", \"fact\": \"\", \"remedy\": \"\"}\n"
                "  ]\n"
                "}\n");
}

TEST_F(Diagnosis, ShowsColoursOnATerminalOnly) {
  Run({});
  EXPECT_EQ(out.str().find('\x1b'), std::string::npos);
  console.colours = true;
  Run({});
  EXPECT_NE(out.str().find("\x1b[32mok\x1b[0m       settings.ok  "), std::string::npos);
}

TEST_F(Diagnosis, ReadsTheSettingsOfARenamedConnector) {
  disk.Put(At("Cassa.ini"), *disk.Content(At("Orvenza.ini")));
  EXPECT_EQ(Run({"--name", "Cassa"}), 0);
  EXPECT_NE(out.str().find("ok       settings.ok           Cassa.ini is of version"), std::string::npos);
}

TEST_F(Diagnosis, BreaksNoWord) {
  LabSurroundings lab = Lab();
  const std::string path(80, 'x');
  WriteDiagnosis(out, LookAt(lab, {"C:\\Orvenza", "Orvenza"}),
                 {{Severity::kNote, "a", "See " + path + " there."}}, false);
  const std::string column(31, ' ');
  EXPECT_NE(out.str().find("a" + std::string(21, ' ') + "See\n" + column + path + "\n" + column + "there.\n"),
            std::string::npos)
      << out.str();
}

TEST_F(Diagnosis, ShowsNoControlCharacter) {
  LabSurroundings lab = Lab();
  Installation shop = LookAt(lab, {"C:\\Orvenza", "Orvenza"});
  shop.paths.AppPath = "C:\\a\x1B[2Jb";
  WriteDiagnosis(out, shop, {{Severity::kNote, "a", "See c\nd.txt.", "Move \x1B[1me.txt."}}, false);
  EXPECT_TRUE(out.str().starts_with("Orvenza in C:\\a [2Jb, ")) << out.str();
  EXPECT_NE(out.str().find("See c d.txt.\n"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("-> Move  [1me.txt.\n"), std::string::npos) << out.str();
}

TEST_F(Diagnosis, RefusesAPathThatIsNoFolder) {
  EXPECT_EQ(Run({"--folder", "C:\\none"}), 2);
  EXPECT_EQ(err.str(), "orvenza-lab doctor: 'C:\\none' is not a folder\n");
  EXPECT_EQ(Run({"C:\\Orvenza"}), 2);
  EXPECT_EQ(out.str(), "");
}

TEST_F(Diagnosis, HasARemedyForWhateverIsNotInOrder) {
  Edit("Version=1.06", "Version=9");
  disk.Delete(At("data"));
  disk.Put(At("command.txt"), "QUIT");
  machine.readOnly = {At("")};
  machine.control = {};
  machine.ports.emplace();
  for (const Finding& finding : Find()) {
    EXPECT_EQ(finding.remedy.empty(), finding.severity <= Severity::kNote) << finding.code;
  }
}

}  // namespace
}  // namespace orvenza::test
