#pragma once

#include <windows.h>

#include <utility>

namespace orvenza {

/// Owner of one system resource. `Traits` defines its type `Value`, its empty value `Empty()` and its release
/// function `Close(value)`.
template <typename Traits>
class [[nodiscard]] Unique {
 public:
  using Value = typename Traits::Value;

  Unique() = default;
  explicit Unique(Value value) : value_(value) {}
  Unique(Unique&& other) noexcept : value_(other.Release()) {}
  Unique& operator=(Unique&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Unique() { Reset(); }

  bool Valid() const { return value_ != Traits::Empty(); }
  Value Get() const { return value_; }

  /// Gives up ownership.
  Value Release() { return std::exchange(value_, Traits::Empty()); }

  /// Releases the resource now.
  void Reset() {
    if (Valid()) Traits::Close(Release());
  }

 private:
  Value value_ = Traits::Empty();
};

struct FileHandleTraits {
  using Value = HANDLE;
  static Value Empty() { return INVALID_HANDLE_VALUE; }
  static void Close(Value value) { ::CloseHandle(value); }
};
using FileHandle = Unique<FileHandleTraits>;

struct FindHandleTraits {
  using Value = HANDLE;
  static Value Empty() { return INVALID_HANDLE_VALUE; }
  static void Close(Value value) { ::FindClose(value); }
};
using FindHandle = Unique<FindHandleTraits>;

/// For functions that return null on failure.
struct ObjectHandleTraits {
  using Value = HANDLE;
  static Value Empty() { return nullptr; }
  static void Close(Value value) { ::CloseHandle(value); }
};
using ObjectHandle = Unique<ObjectHandleTraits>;

}  // namespace orvenza
