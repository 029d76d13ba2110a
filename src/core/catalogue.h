#pragma once

#include <string>

namespace orvenza {

/// The connector's own text of message `id` (101 to 199 general texts, 501 to 531 the register's errors), in
/// UTF-8. Empty when the number has none. Never fails.
std::string LoadMessage(int id);

}  // namespace orvenza
