#pragma once

#include <cstdio>
#include <string>

namespace orvenza::test {

/// An item command: `code`, a `description` of at most 16 characters on one line, `quantity` in thousandths,
/// `price` in cents.
inline std::string ItemCommand(const std::string& code, std::string description, int quantity, int price) {
  char numbers[40];
  std::snprintf(numbers, sizeof numbers, "%07d1%09d01", quantity, price);
  description.resize(16, ' ');
  return code + "01" + std::string(40, ' ') + description + numbers;
}

}  // namespace orvenza::test
