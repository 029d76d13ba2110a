#pragma once

#include <string>

#include "platform/system_error.h"

namespace orvenza::test {

/// Number and description of the SystemError that `action` throws, as "53 File not found ( path )".
template <typename Action>
std::string FailureOf(Action action) {
  try {
    action();
  } catch (const SystemError& error) {
    return std::to_string(error.Number()) + " " + error.Description();
  }
  return "no failure";
}

}  // namespace orvenza::test
