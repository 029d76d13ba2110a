// The check of the include lines on small trees, each with one violation.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "program/running_program.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

/// Names and contents of files.
using Tree = std::vector<std::pair<std::string, std::string>>;

/// The check's output for a tree, followed by a line with its exit code.
std::string Check(const Tree& files) {
  const TempFolder tree;
  for (const auto& [file, content] : files) tree.Write("src\\" + file, content);
  RunningProgram check({ORVENZA_INCLUDE_CHECK, tree.Path()});
  const int status = check.ExitStatus();
  return check.Shown() + "status " + std::to_string(status);
}

/// The same for a tree with one file.
std::string Check(const std::string& file, const std::string& content) { return Check({{file, content}}); }

std::string Including(const std::string& name) { return "#include \"" + name + "\"\n"; }

TEST(IncludeCheck, AcceptsWhatThePlanAllows) {
  const struct {
    const char* file;
    const char* content;
  } kAccepted[] = {
      {"tickets\\a.cpp", "#include \"tickets/a.h\"\n#include <string>\n#include \"device/device_link.h\"\n"},
      {"app\\terminal\\main.cpp", "#include <unistd.h>\n#include \"platform/posix/posix_files.h\"\n"},
      {"platform\\posix\\a.cpp", "#include <sys/stat.h>\n#ifdef __linux__\n#endif\n"},
      {"platform\\windows\\a.cpp", "#include <windows.h>\r\n#include \"platform/windows/handle.h\"\r\n"},
      {"app\\connector.cpp",
       "#include \"simulator/a.h\"\n#include \"tickets/a.h\"\n#include \"core/version.h\"\n"},
      {"platform\\posix\\a.cpp", "const auto now = std::chrono::steady_clock::now();\n"},
      {"platform\\windows\\a.h", "/// In the place of std::chrono::steady_clock.\n"},
      {"core\\a.cpp", "// #include <windows.h> is for others\n#if defined(NDEBUG)\n#endif\n"},
  };
  for (const auto& [file, content] : kAccepted) EXPECT_EQ(Check(file, content), "status 0") << file;
}

TEST(IncludeCheck, NamesEveryViolation) {
  const struct {
    const char* file;
    const char* content;
    const char* finding;
  } kRefused[] = {
      {"platform\\a.h", "#include \"core/text.h\"\n",
       "platform/a.h:1: platform must not include \"core/text.h\""},
      {"core\\a.h", "\n#include \"ui/menu.h\"\n", "core/a.h:2: core must not include \"ui/menu.h\""},
      {"ui\\a.h", "#include \"device/a.h\"\n", "ui/a.h:1: ui must not include \"device/a.h\""},
      {"device\\a.h", " #  include \"tickets/a.h\"\n",
       "device/a.h:1: device must not include \"tickets/a.h\""},
      {"tickets\\a.h", "#include \"simulator/a.h\"\n",
       "tickets/a.h:1: tickets must not include \"simulator/a.h\""},
      {"simulator\\a.h", "#include \"tickets/a.h\"\n",
       "simulator/a.h:1: simulator must not include \"tickets/a.h\""},
      {"tickets\\a.h", "#include \"app/a.h\"\n", "tickets/a.h:1: tickets must not include \"app/a.h\""},
      {"core\\a.cpp", "#include \"text.h\"\n", "core/a.cpp:1: \"text.h\" names no room"},
      {"core\\a.cpp", "#include <windows.h>\n", "core/a.cpp:1: <windows.h> belongs to one system"},
      {"platform\\a.cpp", "#include <sys/stat>\n", "platform/a.cpp:1: <sys/stat> belongs to one system"},
      {"app\\a.cpp", "#include \"platform/posix/a.h\"\n",
       "app/a.cpp:1: \"platform/posix/a.h\" belongs to one system"},
      {"device\\a.cpp", "#ifdef _WIN32\n#endif\n", "device/a.cpp:1: asks which system it is"},
      {"app\\a.cpp", "#if !defined(_WIN32)\n#endif\n", "app/a.cpp:1: asks which system it is"},
      {"platform\\windows\\a.cpp", "auto a = std::chrono::steady_clock::now();\n",
       "platform/windows/a.cpp:1: the steady clock may be the PC clock"},
      {"attic\\a.cpp", "", "attic/a.cpp:0: lies in no room of the house"},
  };
  for (const auto& [file, content, finding] : kRefused) {
    EXPECT_EQ(Check(file, content), std::string(finding) + "\nstatus 1");
  }
}

/// A folder of the lab that includes another.
using Use = std::pair<std::string, std::string>;

/// A tree with a file for each of `uses`.
Tree LabWith(const std::vector<Use>& uses) {
  Tree tree;
  for (const auto& [from, to] : uses) {
    tree.emplace_back("lab\\" + from + "\\" + to + ".cpp", Including("lab/" + to + "/a.h"));
  }
  return tree;
}

TEST(IncludeCheck, LetsAFolderOfTheLabIncludeThoseBelowIt) {
  Tree tree = LabWith({{"shell", "shell"},
                       {"settings", "shell"},
                       {"check", "settings"},
                       {"check", "page"},
                       {"paper", "page"},
                       {"preview", "check"},
                       {"preview", "paper"},
                       {"doctor", "shell"},
                       {"rehearsal", "settings"},
                       {"rehearsal", "paper"},
                       {"bundle", "doctor"},
                       {"table", "rehearsal"},
                       {"table", "page"},
                       {"terminal", "shell"}});
  for (const char* folder :
       {"shell", "settings", "check", "preview", "doctor", "rehearsal", "bundle", "table"}) {
    tree.emplace_back(std::string("lab\\") + folder + ".cpp",
                      Including(std::string("lab/") + folder + "/a.h"));
  }
  EXPECT_EQ(Check(tree), "status 0");
}

TEST(IncludeCheck, RefusesAnIncludeUpwardsOrSidewaysInTheLab) {
  const std::vector<Use> kRefused = {
      {"bundle", "check"},       {"bundle", "page"},       {"bundle", "rehearsal"}, {"bundle", "table"},
      {"check", "bundle"},       {"check", "doctor"},      {"check", "rehearsal"},  {"check", "table"},
      {"doctor", "bundle"},      {"doctor", "check"},      {"doctor", "rehearsal"}, {"page", "shell"},
      {"paper", "check"},        {"preview", "rehearsal"}, {"rehearsal", "check"},  {"rehearsal", "doctor"},
      {"rehearsal", "preview"},  {"rehearsal", "table"},   {"settings", "check"},   {"settings", "doctor"},
      {"settings", "rehearsal"}, {"shell", "settings"},    {"shell", "terminal"},   {"table", "bundle"},
      {"table", "check"},        {"table", "doctor"},      {"table", "terminal"},
  };
  std::string findings;
  for (const auto& [from, to] : kRefused) {
    findings +=
        "lab/" + from + "/" + to + ".cpp:1: lab/" + from + " must not include \"lab/" + to + "/a.h\"\n";
  }
  EXPECT_EQ(Check(LabWith(kRefused)), findings + "status 1");
}

TEST(IncludeCheck, KnowsTheFoldersOfTheLab) {
  EXPECT_EQ(Check("lab\\shell\\posix\\a.cpp", Including("lab/commands.h")),
            "lab/shell/posix/a.cpp:1: lab/shell must not include \"lab/commands.h\"\nstatus 1");
  EXPECT_EQ(Check("lab\\attic\\a.cpp", ""), "lab/attic/a.cpp:0: lies in no room of the house\nstatus 1");
}

TEST(IncludeCheck, RefusesACircleOfFiles) {
  EXPECT_EQ(Check({{"core\\a.h", Including("core/b.h")},
                   {"core\\b.h", "\n" + Including("core/c.h")},
                   {"core\\c.h", Including("core/a.h")}}),
            "core/c.h:1: closes a circle: core/a -> core/b -> core/c -> core/a\nstatus 1");
}

TEST(IncludeCheck, TakesAHeaderAndItsSourceForOne) {
  EXPECT_EQ(Check({{"core\\a.cpp", Including("core/a.h") + Including("core/b.h")},
                   {"core\\a.h", ""},
                   {"core\\b.cpp", Including("core/b.h") + Including("core/a.h")},
                   {"core\\b.h", ""}}),
            "core/b.cpp:2: closes a circle: core/a -> core/b -> core/a\nstatus 1");
}

TEST(IncludeCheck, NamesTheFilesOfACircleAlone) {
  EXPECT_EQ(Check({{"core\\a.cpp", Including("core/b.h")},
                   {"core\\b.h", Including("core/c.h")},
                   {"core\\c.h", Including("core/b.h") + Including("core/d.h")},
                   {"core\\d.h", ""}}),
            "core/c.h:1: closes a circle: core/b -> core/c -> core/b\nstatus 1");
}

TEST(IncludeCheck, NamesEveryCircle) {
  EXPECT_EQ(Check({{"core\\a.h", Including("core/b.h")},
                   {"core\\b.h", Including("core/a.h")},
                   {"ui\\a.h", Including("ui/b.h")},
                   {"ui\\b.h", Including("core/a.h") + Including("ui/a.h")}}),
            "core/b.h:1: closes a circle: core/a -> core/b -> core/a\n"
            "ui/b.h:2: closes a circle: ui/a -> ui/b -> ui/a\nstatus 1");
}

TEST(IncludeCheck, AcceptsTwoWaysToOneFile) {
  EXPECT_EQ(Check({{"core\\a.h", Including("core/b.h")},
                   {"core\\b.h", Including("core/d.h")},
                   {"core\\c.h", Including("core/d.h")},
                   {"core\\d.h", ""}}),
            "status 0");
}

TEST(IncludeCheck, FailsWhereThereIsNothingToCheck) {
  EXPECT_EQ(Check("notes.md", "#include <windows.h>\n"), "no sources to check\nstatus 1");
}

}  // namespace
}  // namespace orvenza::test
