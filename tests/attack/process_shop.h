#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "support/temp_folder.h"

namespace orvenza::test {

/// One attack on one start of the finished program.
struct ProcessAttack {
  int start = 0;         ///< 1: the first start ever, 2: the day after; 0: no attack.
  std::size_t call = 0;  ///< Number of the file call, from 1.
  int error = 0;         ///< The error of the call; 0: the process is killed.
};

/// The finished program at a till, started three times in real time: the first start ever; the day after,
/// with the rotation, a file of two receipts and "Configura"; and one more to see what is left. A killed
/// program is restarted at once.
class ProcessShop {
 public:
  explicit ProcessShop(const ProcessAttack& attack);

  void LiveThreeDays();

  /// Violated expectations, as sentences; empty when all is well.
  const std::vector<std::string>& Violations() const { return violations_; }

  /// Number of file calls in a start (1 or 2) without an attack.
  std::size_t CallsOf(int start) const;

  /// The attacked call and its number; empty if there was none.
  std::string Struck() const;

 private:
  enum class End { kQuit, kKilled, kRefused, kSilent };

  void Live(int start, const std::vector<std::string>& items);
  End RunOnce(int start, bool attacked, const std::vector<std::string>& items);
  std::string AnswerTo(const std::string& box, int start) const;
  void Drop(const std::string& name, const std::string& content) const;
  void Write(const std::string& path, const std::string& content) const;
  void Technician();
  void NoteKill();
  void Judge();
  void Violate(const std::string& what) { violations_.push_back(what); }
  int Printed(const std::string& item) const;
  std::vector<std::string> FilesWith(const std::string& item, const std::string& part) const;
  std::string ReportOf(int start) const { return beside_.Path() + "/calls" + std::to_string(start); }

  ProcessAttack attack_;
  TempFolder shop_;
  TempFolder
      beside_;  ///< Files outside the program's folder: the script, the paper, the report of the calls.
  std::vector<std::string> items_;
  std::map<std::string, bool> printedAtKill_;
  bool settingsOfTheShop_ = false;
  std::vector<std::string> violations_;
};

}  // namespace orvenza::test
