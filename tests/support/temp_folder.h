#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace orvenza::test {

/// A folder for one test, removed with its content.
class TempFolder {
 public:
  TempFolder() {
    static std::atomic<int> count{0};
    const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
    folder_ = std::filesystem::temp_directory_path() /
              ("orvenza-test-" + std::to_string(stamp) + "-" + std::to_string(count++));
    std::filesystem::create_directories(folder_);
  }
  ~TempFolder() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_, ignored)) {
      if (!entry.is_symlink(ignored)) {
        std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all, ignored);
      }
    }
    std::filesystem::remove_all(folder_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  /// The folder in the program's spelling, without a trailing "\".
  std::string Path() const { return folder_.string(); }
  /// A path below the folder in the program's spelling; `relative` has "\" as separator.
  std::string Path(const std::string& relative) const { return Path() + "\\" + relative; }

  std::filesystem::path Native(std::string relative) const {
    std::replace(relative.begin(), relative.end(), '\\', '/');
    return folder_ / relative;
  }

  bool Has(const std::string& relative) const { return std::filesystem::exists(Native(relative)); }

  /// Content of a file; empty if it is missing.
  std::string Read(const std::string& relative) const {
    std::ifstream in(Native(relative), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  /// Writes a file, creating its folders.
  void Write(const std::string& relative, const std::string& content) const {
    std::filesystem::create_directories(Native(relative).parent_path());
    std::ofstream(Native(relative), std::ios::binary) << content;
  }

  /// Sets a file's modification time, in seconds since 1 January 1970 UTC.
  void SetModified(const std::string& relative, std::int64_t seconds) const {
    using namespace std::chrono;
    const auto system = system_clock::time_point(std::chrono::seconds(seconds));
    std::filesystem::last_write_time(Native(relative), file_clock::from_sys(system));
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace orvenza::test
