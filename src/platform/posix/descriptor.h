#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace orvenza {

/// Owner of an open file descriptor.
class [[nodiscard]] Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int value) : value_(value) {}
  Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Descriptor() {
    if (Valid()) ::close(value_);
  }

  bool Valid() const { return value_ >= 0; }
  int Get() const { return value_; }

  /// Closes now. False, with errno set, when the system reports only on closing that earlier writes were
  /// lost.
  [[nodiscard]] bool Close() { return ::close(std::exchange(value_, -1)) == 0 || errno == EINTR; }

  /// Gives up ownership.
  int Release() { return std::exchange(value_, -1); }

 private:
  int value_ = -1;
};

}  // namespace orvenza
