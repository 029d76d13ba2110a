#include "ui/windows/choice_form.h"

#include <algorithm>

#include "ui/windows/dpi.h"
#include "ui/windows/names.h"

namespace orvenza {

using namespace control_id;

ChoiceForm::ChoiceForm(Desk& desk, const ChoiceContent& content)
    : Form(desk, window_class::kOrvInfo, content.caption),
      hiddenSelection_(content.frameVisible ? 0 : content.selected) {
  // A ticket line may contain "&", which is not a mnemonic there.
  constexpr DWORD kText = SS_CENTER | SS_NOPREFIX | SS_EDITCONTROL;
  AddControl(L"STATIC", content.heading, kText, kLabel1, TextKind::kHeading);
  AddControl(L"STATIC", content.text, kText, kLabel2, TextKind::kLabel);
  if (content.frameVisible) AddOptions(content);
  AddButton(content.button, kCommand + 1, TextKind::kControl);
  Show(Selected() != 0 && content.frameVisible ? kOption1 + Selected() : kCommand + 1, true);
}

void ChoiceForm::AddOptions(const ChoiceContent& content) {
  for (const std::string& option : content.options) {
    const bool first = ++options_ == 1;
    // Only the selected option is a tab stop: stopping at an option selects it.
    const bool stop = options_ == std::max(content.selected, 1);
    const DWORD style =
        BS_AUTORADIOBUTTON | BS_MULTILINE | (first ? WS_GROUP : 0U) | (stop ? WS_TABSTOP : 0U);
    AddControl(L"BUTTON", option, style, kOption1 + options_, TextKind::kControl);
    if (options_ == content.selected) SendMessageW(Control(kOption1 + options_), BM_SETCHECK, BST_CHECKED, 0);
  }
  AddControl(L"BUTTON", {}, BS_GROUPBOX | WS_GROUP, kFrame1, TextKind::kControl);
}

int ChoiceForm::Selected() const {
  for (int option = 1; option <= options_; ++option) {
    if (SendMessageW(Control(kOption1 + option), BM_GETCHECK, 0, 0) == BST_CHECKED) return option;
  }
  return hiddenSelection_;
}

Extent ChoiceForm::Arrange(int dpi) {
  ChoiceParts parts{MeasureOf(kLabel1, DT_NOPREFIX), MeasureOf(kLabel2, DT_NOPREFIX), {}};
  for (int option = 1; option <= options_; ++option) parts.options.push_back(MeasureOf(kOption1 + option));
  const ChoiceLayout layout = LayOutChoice(parts, dpi, ScreenSize());
  Place(kLabel1, layout.heading);
  Place(kLabel2, layout.text);
  Place(kFrame1, layout.frame);
  int id = kOption1;
  for (const Box& option : layout.options) Place(++id, option);
  Place(kCommand + 1, layout.button);
  return layout.form;
}

}  // namespace orvenza
