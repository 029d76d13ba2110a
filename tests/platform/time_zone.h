#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace orvenza::test {

/// Sets the time zone of the process for its lifetime.
class TimeZone {
 public:
  explicit TimeZone(const char* name) {
    if (const char* old = std::getenv("TZ")) old_ = old;
    ::setenv("TZ", name, 1);
    ::tzset();
  }
  ~TimeZone() {
    if (old_) {
      ::setenv("TZ", old_->c_str(), 1);
    } else {
      ::unsetenv("TZ");
    }
    ::tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;

 private:
  std::optional<std::string> old_;
};

}  // namespace orvenza::test
