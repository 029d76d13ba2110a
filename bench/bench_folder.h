#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace orvenza {

/// A folder for one benchmark, removed with its content.
class BenchFolder {
 public:
  BenchFolder()
      : folder_(std::filesystem::temp_directory_path() / ("orvenza-bench-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(folder_);
  }
  ~BenchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;

  std::string Path() const { return folder_.string(); }

  void Write(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories((folder_ / name).parent_path());
    std::ofstream(folder_ / name, std::ios::binary) << content;
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace orvenza
