#pragma once

#include <streambuf>
#include <string>

namespace orvenza {

/// A stream buffer that writes UTF-8 to a console. Up to Windows 7 the console reports written characters
/// instead of bytes, so a standard stream would repeat the end of a text with accents.
class ConsoleBuffer final : public std::streambuf {
 public:
  /// `console` is a console output handle and outlives the object.
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
