#include "ui/windows/shell.h"

#include "platform/windows/system_functions.h"
#include "ui/windows/icon_record.h"

namespace orvenza {
namespace {

bool Notify(DWORD operation, NOTIFYICONDATAA& record) { return Shell_NotifyIconA(operation, &record); }

std::optional<RECT> PlaceOfIcon(HWND owner) {
  using PlaceType = HRESULT(WINAPI*)(const NOTIFYICONIDENTIFIER*, RECT*);
  static const auto placeOf = FindFunction<PlaceType>(L"shell32.dll", "Shell_NotifyIconGetRect");
  if (placeOf == nullptr) return std::nullopt;
  NOTIFYICONIDENTIFIER icon{};
  icon.cbSize = sizeof icon;
  icon.hWnd = owner;
  icon.uID = IconRecord(owner).uID;
  RECT place{};
  if (FAILED(placeOf(&icon, &place)) || IsRectEmpty(&place)) return std::nullopt;
  return place;
}

}  // namespace

Shell SystemShell() { return {Notify, PlaceOfIcon}; }

}  // namespace orvenza
