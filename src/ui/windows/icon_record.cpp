#include "ui/windows/icon_record.h"

#include "platform/windows/code_page.h"
#include "platform/windows/wide.h"
#include "ui/windows/names.h"
#include "ui/windows/window.h"

namespace orvenza {
namespace {

constexpr UINT kIconNumber = 1;

constexpr UINT kIconFields = NIF_MESSAGE | NIF_ICON | NIF_TIP;
static_assert(kIconFields == 7 && kIconMessage == WM_MOUSEMOVE);
static_assert(NOTIFYICONDATAA_V1_SIZE == 88, "the record of the icon is the one of the first shells");

}  // namespace

NOTIFYICONDATAA IconRecord(HWND owner) {
  NOTIFYICONDATAA record{};
  record.cbSize = NOTIFYICONDATAA_V1_SIZE;
  record.hWnd = owner;
  record.uID = kIconNumber;
  return record;
}

NOTIFYICONDATAA IconRecord(HWND owner, const std::string& tip, int size) {
  constexpr std::size_t kTipField = 64;
  NOTIFYICONDATAA record = IconRecord(owner);
  record.uFlags = kIconFields;
  record.uCallbackMessage = kIconMessage;
  record.hIcon = ProgramIcon(size);
  ToCodePage(ToWide(tip)).bytes.copy(record.szTip, kTipField - 1);
  return record;
}

}  // namespace orvenza
