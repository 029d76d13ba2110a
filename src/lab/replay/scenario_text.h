#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace orvenza {

/// The content of a file, which may become known only later.
struct FileContent {
  bool known = false;
  std::vector<std::string> lines;
};
using ContentPointer = std::shared_ptr<FileContent>;

/// A scenario in the making. Lines keep the order in which they are added, within their parts.
class ScenarioText {
 public:
  void Comment(const std::string& text) { comments_.push_back(text); }
  /// A line before the start.
  void AddSetting(const std::string& line) { settings_.push_back(line); }
  void AddFile(const std::string& head, ContentPointer content) {
    files_.push_back({head, std::move(content)});
  }
  void AddState(const std::string& line) { files_.push_back({line, {}}); }
  /// Replaces a line that AddState added.
  void Replace(const std::string& line, const std::string& by);
  /// A line this long after the start.
  void AddEvent(std::chrono::milliseconds at, const std::string& line);
  void AddFileAt(std::chrono::milliseconds at, const std::string& head, ContentPointer content);
  void AddAnswer(const std::string& line) { answers_.push_back(line); }

  /// All lines. A comment stands above a file whose content has not become known; a line that no scenario can
  /// have is a comment itself.
  std::string Text() const;

 private:
  struct Line {
    std::string text;
    ContentPointer content;  ///< Null unless the line creates a file.
  };

  static std::string WithContent(const Line& line);

  std::vector<std::string> comments_;
  std::vector<std::string> settings_;
  std::vector<Line> files_;
  std::vector<Line> events_;
  std::vector<std::string> answers_;
};

/// "1500ms"; whole minutes and hours as such.
std::string TimeWords(std::chrono::milliseconds time);

}  // namespace orvenza
