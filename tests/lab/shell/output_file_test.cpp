#include "lab/shell/output_file.h"

#include <gtest/gtest.h>

#include "lab/shell/lab_bench.h"

namespace orvenza::test {
namespace {

/// A machine on which "./a" and "a" are the same file.
struct HereMachine : FakeMachine {
  std::string FullFolder(const std::string& folder) const override {
    return folder.starts_with("./") ? folder.substr(2) : folder;
  }
};

class OutputFile : public ::testing::Test {
 protected:
  /// Why an output is refused; "" if it is not.
  std::string Refusal(const std::string& path, const std::vector<std::string>& sources) {
    try {
      RequireOutput(path, sources, surroundings);
      return {};
    } catch (const std::runtime_error& refused) {
      return refused.what();
    }
  }

  std::string PageRefusal(const std::string& path) {
    try {
      RequirePage(path, surroundings);
      return {};
    } catch (const std::runtime_error& refused) {
      return refused.what();
    }
  }

  LabBench lab;
  HereMachine machine;
  LabSurroundings surroundings{lab.files, lab.folders, lab.clock, lab.clock, machine, lab.console, "home"};
};

TEST_F(OutputFile, IsNoFileThatIsRead) {
  EXPECT_EQ(Refusal("a.txt", {"b.txt"}), "");
  EXPECT_EQ(Refusal("./a.txt", {"b.txt", "A.TXT"}), "'./a.txt' is read and would be overwritten");
}

TEST_F(OutputFile, IsNotTheStandardOutput) {
  EXPECT_EQ(Refusal("-", {}), "'-' is not an output; name a file");
}

TEST_F(OutputFile, NeedsAFolderThatCanBeWrittenTo) {
  machine.readOnly = {".", "C:\\old\\"};
  EXPECT_EQ(Refusal("a.html", {}), "a.html cannot be written: its folder is missing or read-only");
  EXPECT_EQ(PageRefusal("C:\\old\\a.html"),
            "C:\\old\\a.html cannot be written: its folder is missing or read-only");
  EXPECT_EQ(Refusal("C:\\new\\a.html", {}), "");
}

TEST_F(OutputFile, ReplacesOnlyAPageByAPage) {
  lab.files.content["page.html"] = "<!DOCTYPE html>\nolder";
  lab.files.content["empty.html"] = "";
  lab.files.content["notes.txt"] = "My notes.";
  EXPECT_EQ(PageRefusal("page.html"), "");
  EXPECT_EQ(PageRefusal("empty.html"), "");
  EXPECT_EQ(PageRefusal("notes.txt"), "notes.txt exists and is no HTML page");
}

}  // namespace
}  // namespace orvenza::test
