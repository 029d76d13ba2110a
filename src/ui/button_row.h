#pragma once

namespace orvenza {

/// Position and size of a message dialog's button, in form units of 1/1440 inch.
struct ButtonPlace {
  int left = 0;
  int top = 980;
  int width = 1275;
  int height = 375;

  bool operator==(const ButtonPlace&) const = default;
};

/// The position of button `index` (from 1) in a row of `count` adjacent buttons, centred in a form
/// `formWidth` wide.
constexpr ButtonPlace PlaceButton(int index, int count, int formWidth) {
  ButtonPlace place;
  place.left = (formWidth - count * place.width) / 2 + (index - 1) * place.width;
  return place;
}

}  // namespace orvenza
