#include "ui/windows/port_form.h"

#include "platform/windows/wide.h"
#include "ui/windows/dpi.h"
#include "ui/windows/names.h"

namespace orvenza {
namespace {

using namespace control_id;

constexpr int kLists = 5;

}  // namespace

PortForm::PortForm(Desk& desk, const PortContent& content)
    : Form(desk, window_class::kOrvConf, content.caption) {
  for (int list = 0; list < kLists; ++list) AddList(content, list);
  AddButton(content.button, kCommand + 1, TextKind::kControl);
  // After the lists in z-order: a frame paints over the controls before it.
  AddControl(L"BUTTON", content.caption, BS_GROUPBOX | WS_GROUP, kFrame1, TextKind::kControl);
  Show(kCombo + 1, false);
}

void PortForm::AddList(const PortContent& content, int list) {
  const auto index = static_cast<std::size_t>(list);
  AddControl(L"STATIC", content.labels[index], SS_LEFT | SS_CENTERIMAGE | SS_NOPREFIX, kLabel + list,
             TextKind::kControl);
  const HWND combo = AddControl(L"COMBOBOX", {}, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
                                kCombo + 1 + list, TextKind::kControl);
  for (const std::string& entry : content.entries[index]) {
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(entry).c_str()));
  }
  SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(content.selected[index]), 0);
}

std::array<int, 5> PortForm::Selected() const {
  std::array<int, 5> selected{};
  int id = kCombo;
  for (int& entry : selected) entry = static_cast<int>(SendMessageW(Control(++id), CB_GETCURSEL, 0, 0));
  return selected;
}

Extent PortForm::Arrange(int dpi) {
  PortParts parts{MeasureOf(kFrame1), {}};
  int id = kLabel;
  for (TextMeasure& label : parts.labels) label = MeasureOf(id++, DT_NOPREFIX);
  const PortLayout layout = LayOutPort(parts, dpi, ScreenSize());
  Place(kFrame1, layout.frame);
  for (int list = 0; list < kLists; ++list) {
    const auto index = static_cast<std::size_t>(list);
    Place(kLabel + list, layout.labels[index]);
    PlaceList(kCombo + 1 + list, layout.lists[index]);
  }
  Place(kCommand + 1, layout.button);
  return layout.form;
}

/// A list's window height is that of the open list; the font sets the height of the closed one.
void PortForm::PlaceList(int id, Box box) const {
  const HWND combo = Control(id);
  RECT closed{};
  GetWindowRect(combo, &closed);
  const int height = closed.bottom - closed.top;
  const auto entries = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
  const auto entryHeight = static_cast<int>(SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0));
  box.top += (box.height - height) / 2;
  box.height = height + (entries + 1) * entryHeight;
  Place(id, box);
}

}  // namespace orvenza
