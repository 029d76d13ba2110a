#include "ui/windows/utilities_form.h"

#include "ui/windows/dpi.h"
#include "ui/windows/names.h"

namespace orvenza {

using namespace control_id;

UtilitiesForm::UtilitiesForm(Desk& desk, const UtilitiesContent& content)
    : Form(desk, window_class::kOrvUti, content.caption) {
  int id = kCommand;
  for (const std::string& button : content.buttons) AddButton(button, ++id, TextKind::kControl);
  Show(kCommand + 1, false);
}

Extent UtilitiesForm::Arrange(int dpi) {
  const std::array<TextMeasure, 3> captions{MeasureOf(kCommand + 1), MeasureOf(kCommand + 2),
                                            MeasureOf(kCommand + 3)};
  const UtilitiesLayout layout = LayOutUtilities(captions, dpi, ScreenSize());
  int id = kCommand;
  for (const Box& button : layout.buttons) Place(++id, button);
  return layout.form;
}

}  // namespace orvenza
