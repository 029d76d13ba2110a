#pragma once

#include <array>

#include "ui/operator.h"
#include "ui/windows/form.h"

namespace orvenza {

/// The port dialog `Orv_Conf`; visible from construction. Its button is kCommand + 1.
class PortForm final : public Form {
 public:
  PortForm(Desk& desk, const PortContent& content);

  /// The index of each list's selected entry, from 0; -1 none.
  std::array<int, 5> Selected() const;

 private:
  Extent Arrange(int dpi) override;
  void AddList(const PortContent& content, int list);
  void PlaceList(int id, Box box) const;
};

}  // namespace orvenza
