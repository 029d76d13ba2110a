#pragma once

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "support/temp_folder.h"

namespace orvenza::test {

using Lines = std::vector<std::string>;

inline constexpr const char* kProgram = ORVENZA_PROGRAM;

/// A shop folder without a settings file, with a register script for a line without delays.
struct NewShop {
  NewShop() { folder.Write("register.script", "speed instant\n"); }

  Lines Command() const {
    return {kProgram, "--folder", folder.Path(), "--simulate", folder.Path() + "/register.script"};
  }

  /// Written elsewhere and renamed, like a host does.
  void Drop(const std::string& name, const std::string& content) const {
    folder.Write(name + ".tmp", content);
    std::filesystem::create_directories(folder.Native("data"));
    std::filesystem::rename(folder.Native(name + ".tmp"), folder.Native("data\\" + name));
  }

  void Quit() const {
    folder.Write("command.tmp", "QUIT\r\n");
    std::filesystem::rename(folder.Native("command.tmp"), folder.Native("command.txt"));
  }

  /// A log's messages without their stamps.
  Lines Journal(const std::string& name) const {
    Lines messages;
    std::istringstream in(folder.Read(name));
    for (std::string line; std::getline(in, line);) {
      std::erase(line, '\r');
      messages.push_back(line.substr(std::min(line.find(" - ") + 3, line.size())));
    }
    return messages;
  }

  TempFolder folder;
};

/// A shop with a settings file: ";" as separator, the ticket folder in this system's spelling.
struct Shop : NewShop {
  Shop() {
    folder.Write("Orvenza.ini", "[Version]\r\nVersion=1.06\r\n[Database]\r\nTicketFiles=" + folder.Path() +
                                    "/data/*.txt\r\nHistoricTickets=" + folder.Path() +
                                    "/storico\r\n[Com Settings]\r\nComPort=1\r\nSettings=19200,O,7,1\r\n"
                                    "TimeWaitForEtx=10000\r\nTimeWaitForLONGEtx=50000\r\n"
                                    "[General]\r\nSeparator (ascii,max 127)=59\r\n");
  }
};

}  // namespace orvenza::test
