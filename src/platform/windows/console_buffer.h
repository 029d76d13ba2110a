#pragma once

#include <streambuf>
#include <string>

namespace orvenza {

/// Where a stream of UTF-8 writes to a console. Through files, consoles up to Windows 7 count characters
/// instead of bytes, so that a standard stream writes the end of a text with accents twice.
class ConsoleBuffer final : public std::streambuf {
 public:
  /// `console` is a handle of a console's output and outlives the object.
  explicit ConsoleBuffer(void* console) : console_(console) {}
  ~ConsoleBuffer() override { sync(); }
  ConsoleBuffer(const ConsoleBuffer&) = delete;
  ConsoleBuffer& operator=(const ConsoleBuffer&) = delete;

 protected:
  int_type overflow(int_type character) override;
  int sync() override;

 private:
  void* console_;
  std::string pending_;
};

}  // namespace orvenza
