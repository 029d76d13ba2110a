// The check of the include lines on small trees, each with one violation.

#include <gtest/gtest.h>

#include <string>

#include "program/running_program.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

/// The check's output for a tree with one file, followed by a line with its exit code.
std::string Check(const std::string& file, const std::string& content) {
  const TempFolder tree;
  tree.Write("src\\" + file, content);
  RunningProgram check({ORVENZA_INCLUDE_CHECK, tree.Path()});
  const int status = check.ExitStatus();
  return check.Shown() + "status " + std::to_string(status);
}

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

TEST(IncludeCheck, FailsWhereThereIsNothingToCheck) {
  EXPECT_EQ(Check("notes.md", "#include <windows.h>\n"), "no sources to check\nstatus 1");
}

}  // namespace
}  // namespace orvenza::test
