#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "platform/system_error.h"

namespace orvenza::test {

/// Files in memory, keyed by their path as given.
class MemoryFiles : public Files {
 public:
  std::map<std::string, std::string> content;

  bool Exists(const std::string& path) const override { return content.count(path) > 0; }
  std::uintmax_t Size(const std::string& path) const override { return Find(path).size(); }
  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override {
    return std::make_unique<TextBytes>(Find(path));
  }
  void Append(const std::string& path, std::string_view text) override { content[path] += text; }
  void Write(const std::string& path, std::string_view text) override { content[path] = text; }
  void Move(const std::string& from, const std::string& to) override {
    Copy(from, to);
    content.erase(from);
  }
  void Copy(const std::string& from, const std::string& to) override { content[to] = Find(from); }
  void Remove(const std::string& path) override {
    Find(path);
    content.erase(path);
  }
  void ClearAttributes(const std::string& path) override { Find(path); }
  void CopyModified(const std::string& from, const std::string& to) override {
    Find(from);
    Find(to);
  }

 private:
  const std::string& Find(const std::string& path) const {
    const auto found = content.find(path);
    if (found == content.end()) throw SystemError(error_number::kFileNotFound, path);
    return found->second;
  }
};

}  // namespace orvenza::test
