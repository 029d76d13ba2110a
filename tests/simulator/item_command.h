#pragma once

#include <cstdio>
#include <string>

namespace orvenza::test {

/// An item command: `code`, one line of `description` (16 characters at most), `quantity` in thousandths,
/// `price` in cents.
inline std::string ItemCommand(const std::string& code, std::string description, int quantity, int price) {
  char numbers[40];
  std::snprintf(numbers, sizeof numbers, "%07d1%09d01", quantity, price);
  description.resize(16, ' ');
  return code + "01" + std::string(40, ' ') + description + numbers;
}

}  // namespace orvenza::test
