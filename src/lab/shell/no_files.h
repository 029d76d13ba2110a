#pragma once

#include "platform/files.h"
#include "platform/system_error.h"

namespace orvenza {

/// An empty file system that silently discards all writes: for logs that must stay silent, and for dry runs.
class NoFiles : public Files {
 public:
  bool Exists(const std::string&) const override { return false; }
  std::uintmax_t Size(const std::string& path) const override { Refuse(path); }
  std::unique_ptr<ByteReader> OpenForReading(const std::string& path) const override { Refuse(path); }
  void Append(const std::string&, std::string_view) override {}
  void Write(const std::string& path, std::string_view) override { Refuse(path); }
  void Copy(const std::string& from, const std::string&) override { Refuse(from); }
  void Move(const std::string&, const std::string&) override {}
  void Remove(const std::string& path) override { Refuse(path); }
  void ClearAttributes(const std::string& path) override { Refuse(path); }
  void CopyModified(const std::string& from, const std::string&) override { Refuse(from); }

 private:
  [[noreturn]] static void Refuse(const std::string& path) {
    throw SystemError(error_number::kFileNotFound, path);
  }
};

}  // namespace orvenza
