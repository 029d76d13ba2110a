#include "ui/menu.h"

#include "core/catalogue.h"

namespace orvenza {

std::array<std::string, 4> MenuCaptions() {
  return {LoadMessage(MessageId::kExit), LoadMessage(MessageId::kUtilities), LoadMessage(MessageId::kInfo),
          LoadMessage(MessageId::kConfigure)};
}

}  // namespace orvenza
