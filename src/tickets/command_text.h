#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace orvenza {

/// A command text: code, values and fixed characters, followed by `tail`. "" if one of `parts` is empty: a
/// rejected value invalidates the whole line. Only the tail may be empty.
std::string Join(std::initializer_list<std::string_view> parts, std::string_view tail = {});

/// The value of a choice: `field`, or the `first` alternative if the field is empty.
inline std::string_view Chosen(std::string_view field, std::string_view first) {
  return field.empty() ? first : field;
}

}  // namespace orvenza
