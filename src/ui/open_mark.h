#pragma once

namespace orvenza {

/// Marks a dialog as open until it returns, however it returns.
class [[nodiscard]] OpenMark {
 public:
  explicit OpenMark(bool& open) : open_(open) { open_ = true; }
  ~OpenMark() { open_ = false; }
  OpenMark(const OpenMark&) = delete;
  OpenMark& operator=(const OpenMark&) = delete;

 private:
  bool& open_;
};

}  // namespace orvenza
