#include "ui/menu.h"

#include "core/catalogue.h"

namespace orvenza {

std::array<std::string, 4> MenuCaptions() {
  return {LoadMessage(160), LoadMessage(161), LoadMessage(180), LoadMessage(181)};
}

}  // namespace orvenza
