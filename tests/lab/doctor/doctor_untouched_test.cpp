// Examining an installation on a real disk changes nothing, except the times of the folders in which the
// doctor creates and removes a file.

#include <gtest/gtest.h>

#include <set>

#include "lab/doctor/doctor_command.h"
#include "lab/shell/run_lab.h"
#include "lab/shell/system_machine.h"
#include "simulator/virtual_clock.h"
#include "support/faulty_files.h"
#include "support/system_seams.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

namespace fs = std::filesystem;

/// Every file with its time and content, every folder, and the times of folders other than ticket folders.
std::set<std::string> Everything(const TempFolder& folder) {
  std::set<std::string> all;
  const auto add = [&](const fs::path& path) {
    const bool isFile = fs::is_regular_file(path);
    const bool isTried = !isFile && (path.filename() == "data" || path.filename() == "inproces");
    const auto time = isTried ? 0 : fs::last_write_time(path).time_since_epoch().count();
    std::ifstream in(path, std::ios::binary);
    all.insert(path.string() + " " + std::to_string(time) + " " +
               (isFile ? std::string(std::istreambuf_iterator<char>(in), {}) : "folder"));
  };
  add(folder.Path());
  for (const auto& entry : fs::recursive_directory_iterator(folder.Native(""))) add(entry.path());
  return all;
}

TEST(Doctor, LeavesTheInstallationAsItIs) {
  const TempFolder folder;
  folder.Write("Orvenza.ini", "[Version]\r\nVersion=1.00\r\n[Com Settings]\r\nComPort=99\r\n");
  folder.Write("Log.txt", std::string(300'000, 'x'));
  folder.Write("command.txt", "QUIT");
  folder.Write("data\\inproces\\1.txt", "4;5;");
  const std::set<std::string> before = Everything(folder);

  SystemFiles disk;
  FaultyFiles files(disk);
  bool tried = false;
  files.Before("Write",
               [&](const std::string& path) { tried = tried || path.find("inproces") != std::string::npos; });
  SystemFolders folders;
  VirtualClock clock;
  SystemMachine machine;
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  Console console{in, out, err};
  LabSurroundings lab{files, folders, clock, clock, machine, console, folder.Path()};
  EXPECT_EQ(RunLab({"doctor"}, {DoctorCommand()}, lab), 2);
  EXPECT_NE(out.str().find("settings.repaired"), std::string::npos);
  EXPECT_EQ(Everything(folder), before);
  EXPECT_TRUE(tried) << "a file was made there";
  EXPECT_FALSE(machine.IsServed(folder.Path()));
}

}  // namespace
}  // namespace orvenza::test
