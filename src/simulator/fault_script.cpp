#include "simulator/fault_script.h"

#include <utility>

#include "core/text.h"
#include "simulator/script_line.h"

namespace orvenza {
namespace {

constexpr std::string_view kFirstWords =
    "\"on\", \"after\", \"next\", \"every\", \"no fault\", \"absent\", \"port-fails\", \"paper-out\", "
    "\"receipt-paper\", \"journal-paper\", \"power\", \"cable\", \"key\", \"receipt-open\", "
    "\"receipt-paid\", "
    "\"model\", \"release\", \"capacity\", \"roll\", \"clock\", \"speed\", \"pace\" or \"paper\"";
constexpr std::string_view kExchangeFaults =
    "\"reply\", \"silence\", \"link-error\", \"lose-reply\" or \"late\"";
constexpr std::string_view kCommandFaults =
    "\"reply\", \"silence\", \"link-error\", \"lose-reply\", \"late\", \"paper-out\", \"receipt-paper\", "
    "\"journal-paper\", \"power\", \"cable\", \"key\", \"absent\", \"port-fails\", \"receipt-open\" or "
    "\"receipt-paid\"";
constexpr std::string_view kTimedFaults =
    "\"next\", \"every\", \"no fault\", \"absent\", \"port-fails\", \"paper-out\", \"receipt-paper\", "
    "\"journal-paper\", \"power\", \"cable\", \"key\", \"receipt-open\" or \"receipt-paid\"";

constexpr int kMost = ScriptLine::kMost;

Paper ReadPaper(ScriptLine& line) {
  const auto word = line.Word();
  if (word == "journal") return Paper::kJournal;
  if (word == "receipt") return Paper::kReceipt;
  line.Refuse("\"journal\" or \"receipt\"");
}

/// Reads the position of a switch.
void ReadSwitch(FaultKind kind, std::string_view off, std::string_view on, ScriptLine& line, Fault& fault) {
  fault.kind = kind;
  fault.on = line.Skip(on);
  if (!fault.on && !line.Skip(off)) {
    line.Refuse("\"" + std::string(off) + "\" or \"" + std::string(on) + "\"");
  }
}

/// Reads the switches of the register. False if `word` is none of them.
bool ReadSwitch(std::string_view word, ScriptLine& line, Fault& fault) {
  if (word == "power") {
    ReadSwitch(FaultKind::kPower, "off", "on", line, fault);
  } else if (word == "cable") {
    ReadSwitch(FaultKind::kCable, "out", "in", line, fault);
  } else if (word == "key") {
    ReadSwitch(FaultKind::kKey, "off", "on", line, fault);
  } else if (word == "receipt-paper" || word == "journal-paper") {
    fault.paper = word == "receipt-paper" ? Paper::kReceipt : Paper::kJournal;
    ReadSwitch(FaultKind::kPaper, "out", "in", line, fault);
  } else {
    return false;
  }
  return true;
}

/// Reads the faults that are not tied to a command. False if `word` is none of them.
bool ReadStateFault(std::string_view word, ScriptLine& line, Fault& fault) {
  if (word == "absent") {
    fault.kind = FaultKind::kAbsent;
    fault.number = line.Number(1, kMost, "a number of reads, at least 1");
  } else if (word == "port-fails") {
    fault.kind = FaultKind::kPortFails;
    fault.number = line.Number(1, kMost, "a number of openings, at least 1");
  } else if (word == "paper-out") {
    fault.kind = FaultKind::kPaperOut;
    fault.paper = ReadPaper(line);
  } else if (word == "receipt-open") {
    fault.kind = FaultKind::kKeyedIn;
  } else if (word == "receipt-paid") {
    fault.kind = FaultKind::kPaidThere;
  } else if (!ReadSwitch(word, line, fault)) {
    return false;
  }
  line.End();
  return true;
}

/// Reads the faults of the exchange. False if `word` is none of them.
bool ReadExchangeFault(std::string_view word, ScriptLine& line, Fault& fault) {
  if (word == "reply") {
    fault.kind = FaultKind::kReply;
    fault.text = line.Text("the reply's text");
  } else if (word == "silence") {
    fault.kind = FaultKind::kSilence;
  } else if (word == "lose-reply") {
    fault.kind = FaultKind::kLoseReply;
  } else if (word == "link-error") {
    fault.kind = FaultKind::kLinkError;
    fault.number = line.Number(1, 3, "the link error's number, 1 to 3");
  } else if (word == "late") {
    fault.kind = FaultKind::kLate;
    fault.number = line.Number(1, kMost, "a number of milliseconds, at least 1");
  } else {
    return false;
  }
  line.End();
  return true;
}

void ReadCommandFault(ScriptLine& line, Fault& fault) {
  const auto word = line.Word();
  if (!ReadStateFault(word, line, fault) && !ReadExchangeFault(word, line, fault)) {
    line.Refuse(std::string(kCommandFaults));
  }
}

/// Reads the faults without a command. False if `word` is none of them.
bool ReadTimedFault(std::string_view word, ScriptLine& line, Fault& fault) {
  if (word == "next" || word == "every") {
    if (word == "every") fault.times = Fault::kAlways;
    if (!ReadExchangeFault(line.Word(), line, fault)) line.Refuse(std::string(kExchangeFaults));
    return true;
  }
  if (word != "no") return ReadStateFault(word, line, fault);
  fault.kind = FaultKind::kNone;
  if (!line.Skip("fault")) line.Refuse("\"fault\"");
  line.End();
  return true;
}

Fault ReadOn(ScriptLine& line) {
  Fault fault;
  fault.prefix = line.Word();
  if (fault.prefix.empty() || !OnlyDigits(fault.prefix)) {
    line.Refuse("the digits that the command begins with");
  }
  if (line.Next() == '#') {
    const std::string expected = "\"#\" and which one, at least 1";
    fault.first = static_cast<std::size_t>(line.NumberIn(line.Word().substr(1), 1, kMost, expected));
  }
  if (line.Next() == 'x') {
    const auto times = line.Word().substr(1);
    const std::string expected = "\"x\" and how many, at least 1, or \"x*\"";
    fault.times =
        times == "*" ? Fault::kAlways : static_cast<std::size_t>(line.NumberIn(times, 1, kMost, expected));
  }
  ReadCommandFault(line, fault);
  return fault;
}

Fault ReadAfter(ScriptLine& line) {
  Fault fault;
  fault.after = std::chrono::milliseconds(line.Number(0, kMost, "a number of milliseconds"));
  if (!ReadTimedFault(line.Word(), line, fault)) line.Refuse(std::string(kTimedFaults));
  return fault;
}

std::string ReadModel(ScriptLine& line) {
  const std::string expected = "the model label, 10 characters in double quotes";
  const std::string label = line.Text(expected);
  if (label.size() != kIdentityWidth) line.Refuse(expected);
  return label;
}

/// A shorter release is right-aligned in its field, where the program looks for its number.
std::string ReadRelease(ScriptLine& line) {
  const std::string expected = "the release, at most 10 characters in double quotes";
  const std::string release = line.Text(expected);
  if (release.size() > kIdentityWidth) line.Refuse(expected);
  return std::string(kIdentityWidth - release.size(), ' ') + release;
}

int ReadSpeed(ScriptLine& line) {
  if (line.Next() != 'i') return line.Number(1, kMost, "bits a second, or \"instant\"");
  if (line.Word() != "instant") line.Refuse("bits a second, or \"instant\"");
  return 0;
}

void ReadSetting(std::string_view word, ScriptLine& line, FaultScript& script) {
  RegisterProfile& profile = script.profile;
  if (word == "model") {
    profile.model = ReadModel(line);
  } else if (word == "release") {
    profile.release = ReadRelease(line);
  } else if (word == "capacity") {
    profile.receiptCapacity =
        static_cast<std::size_t>(line.Number(1, kMost, "a number of receipt entries, at least 1"));
  } else if (word == "roll") {
    profile.rollLines =
        static_cast<std::size_t>(line.Number(50, kMost, "a number of paper lines, at least 50"));
  } else if (word == "clock") {
    profile.clockAhead = std::chrono::seconds(line.Number(-86400, 86400, "seconds ahead, -86400 to 86400"));
  } else if (word == "speed") {
    script.speed = ReadSpeed(line);
  } else if (word == "pace") {
    script.pace = line.Number(1, 100, "how many times as fast, 1 to 100");
  } else if (word == "paper") {
    script.paperFile = line.Text("a file name");
  } else {
    line.Refuse(std::string(kFirstWords));
  }
  line.End();
}

void ReadLine(ScriptLine& line, FaultScript& script) {
  if (line.AtEnd() || line.Next() == '#') return;
  const std::string_view whole = line.Rest();
  const auto word = line.Word();
  if (word != "paper" && word != "pace") script.lines.emplace_back(whole);
  Fault fault;
  if (word == "on") {
    script.faults.push_back(ReadOn(line));
  } else if (word == "after") {
    script.faults.push_back(ReadAfter(line));
  } else if (ReadTimedFault(word, line, fault)) {
    script.faults.push_back(std::move(fault));
  } else {
    ReadSetting(word, line, script);
  }
}

}  // namespace

FaultScript ParseFaultScript(const std::string& name, std::string_view text) {
  FaultScript script;
  ScriptMistakes mistakes;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const auto end = text.find('\n');
    ScriptLine line(name, number, text.substr(0, end));
    mistakes.Try([&] { ReadLine(line, script); });
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  }
  mistakes.ThrowIfAny(name);
  return script;
}

}  // namespace orvenza
