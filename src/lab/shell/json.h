#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string_view>
#include <vector>

namespace orvenza {

/// Writes one JSON value piece by piece. The outer levels have one entry per line, deeper ones stay on one
/// line, so that the output is readable and can be compared line by line. The caller keeps the grammar: a
/// key before each value of an object, every bracket closed.
class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& out, std::size_t brokenLevels = 2)
      : out_(out), brokenLevels_(brokenLevels) {}

  void BeginObject() { Open('{'); }
  void EndObject() { Close('}'); }
  void BeginArray() { Open('['); }
  void EndArray() { Close(']'); }

  void Key(std::string_view key);

  /// Valid UTF-8 is kept; other bytes are read as Windows-1252.
  void Text(std::string_view text);
  void Number(std::int64_t number);
  void Flag(bool flag);

  /// A key and its value.
  void Member(std::string_view key, std::string_view text);
  void NumberMember(std::string_view key, std::int64_t number);
  void FlagMember(std::string_view key, bool flag);

 private:
  void Open(char bracket);
  void Close(char bracket);
  void BeginValue();
  void BreakLine();
  void WriteQuoted(std::string_view text);

  std::ostream& out_;
  std::size_t brokenLevels_;
  std::vector<bool> filled_;  // per open bracket: whether it has an entry
  bool afterKey_ = false;
};

}  // namespace orvenza
