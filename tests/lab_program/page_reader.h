#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace orvenza::test {

using TextLines = std::vector<std::string>;

inline const std::filesystem::path kProject = ORVENZA_PROJECT;

inline std::string BytesOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

inline TextLines LinesOf(const std::string& text) {
  TextLines lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

inline std::string TextOf(const TextLines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

/// The blocks of a page that begin with "```text", without their fences.
inline std::vector<TextLines> BlocksOf(const std::filesystem::path& page) {
  std::vector<TextLines> blocks;
  bool inside = false;
  for (const std::string& line : LinesOf(BytesOf(page))) {
    if (line.starts_with("```")) {
      inside = line == "```text";
      if (inside) blocks.emplace_back();
    } else if (inside) {
      blocks.back().push_back(line);
    }
  }
  return blocks;
}

/// Whether a line of a page is a record, closed by ";".
inline bool IsRecord(const std::string& line) {
  const std::size_t end = line.find_first_not_of("0123456789");
  return end != 0 && end != std::string::npos && line[end] == ';' && line.ends_with(';');
}

/// The files of a folder with this ending, sorted.
inline std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder,
                                                  const std::string& ending) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ending) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace orvenza::test
