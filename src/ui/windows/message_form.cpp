#include "ui/windows/message_form.h"

#include <windows.h>
// These require windows.h.
#include <commctrl.h>
#include <mmsystem.h>

#include "platform/system_error.h"
#include "platform/windows/code_page.h"
#include "platform/windows/system_functions.h"
#include "platform/windows/wide.h"
#include "ui/windows/dpi.h"
#include "ui/windows/names.h"

namespace orvenza {
namespace {

void PlayDing(const std::string& programFolder, const SoundPlayer& play) {
  const std::string path = programFolder + "\\ding.wav";
  // If the file is missing, the system would play a default sound.
  if (GetFileAttributesW(ToWide(path).c_str()) == INVALID_FILE_ATTRIBUTES) return;
  try {
    play(CodePagePath(path).c_str(), SND_ASYNC);
  } catch (const SystemError&) {
    // The path cannot be expressed in the code page.
  }
}

/// The image's index: stop, question, exclamation, information.
int IndexOf(MessageIcon icon) { return static_cast<int>(icon) - static_cast<int>(MessageIcon::kStop); }

/// The resource identifier of the system's icon.
PCWSTR SystemIconOf(MessageIcon icon) {
  const auto nameOf = [](const void* number) { return static_cast<PCWSTR>(number); };
  switch (icon) {
    case MessageIcon::kStop: return nameOf(IDI_ERROR);
    case MessageIcon::kQuestion: return nameOf(IDI_QUESTION);
    case MessageIcon::kExclamation: return nameOf(IDI_WARNING);
    default: return nameOf(IDI_INFORMATION);
  }
}

/// Loads the icon sharp at `size` pixels if the system can, otherwise in a size to be stretched.
Icon LoadSystemIcon(PCWSTR name, int size) {
  using LoadType = HRESULT(WINAPI*)(HINSTANCE, PCWSTR, int, int, HICON*);
  static const auto load = FindFunction<LoadType>(L"comctl32.dll", "LoadIconWithScaleDown");
  HICON icon = nullptr;
  if (load == nullptr || FAILED(load(nullptr, name, size, size, &icon))) {
    icon = CopyIcon(LoadIconW(nullptr, name));
  }
  return Icon(icon);
}

/// The text is read-only, so it has no edit menu.
LRESULT CALLBACK WithoutMenu(HWND text, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  return message == WM_CONTEXTMENU ? 0 : DefSubclassProc(text, message, wParam, lParam);
}

}  // namespace

SoundPlayer SystemSound() {
  using PlayType = BOOL(WINAPI*)(PCSTR, UINT);
  const auto play = FindFunction<PlayType>(L"winmm.dll", "sndPlaySoundA");
  return [play](const char* path, UINT flags) { return play != nullptr && play(path, flags); };
}

MessageForm::MessageForm(Desk& desk, const MessageContent& content, const std::string& programFolder,
                         const SoundPlayer& play)
    : Form(desk, window_class::kOrvMsg, content.caption),
      centred_(content.centred),
      image_(content.icon),
      buttons_(static_cast<int>(content.buttons.size())) {
  int id = control_id::kCommand0;
  for (const std::string& button : content.buttons) AddButton(button, ++id);
  const DWORD alignment = centred_ ? ES_CENTER : ES_LEFT;
  const HWND text = AddControl(L"EDIT", content.text, ES_MULTILINE | ES_READONLY | alignment | WS_GROUP,
                               control_id::kText1, TextKind::kMessage);
  SetWindowSubclass(text, WithoutMenu, 0, 0);
  if (image_ != MessageIcon::kNone) {
    AddControl(L"STATIC", {}, SS_ICON | SS_REALSIZECONTROL | WS_GROUP, control_id::kImage + IndexOf(image_),
               TextKind::kMessage);
  }
  Show(control_id::kCommand0 + 1, true);
  PlayDing(programFolder, play);
}

Extent MessageForm::Arrange(int dpi) {
  const MessageParts parts{MeasureOfText(), centred_, image_ != MessageIcon::kNone, buttons_};
  const MessageLayout layout = LayOutMessage(parts, dpi, ScreenSize());
  Place(control_id::kText1, layout.text);
  int id = control_id::kCommand0;
  for (const Box& button : layout.buttons) Place(++id, button);
  if (parts.icon) ShowImage(layout.icon);
  return layout.form;
}

/// The text is only for reading: the focus moves to the first button.
LRESULT MessageForm::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool textEntered = message == WM_COMMAND && wParam == MAKEWPARAM(control_id::kText1, EN_SETFOCUS);
  if (textEntered && IsWindowEnabled(Handle())) SetFocus(Control(control_id::kCommand0 + 1));
  return Form::OnMessage(message, wParam, lParam);
}

/// The text box itself wraps the lines: any other calculation could lose one.
TextMeasure MessageForm::MeasureOfText() const {
  return [this](int width) {
    const HWND text = Control(control_id::kText1);
    SendMessageW(text, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    SetWindowPos(text, nullptr, 0, 0, width, ScreenSize().height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    const auto lines = static_cast<int>(SendMessageW(text, EM_GETLINECOUNT, 0, 0));
    return Extent{width, lines * LineHeight(TextKind::kMessage)};
  };
}

void MessageForm::ShowImage(const Box& box) {
  Icon icon = LoadSystemIcon(SystemIconOf(image_), box.width);
  const int id = control_id::kImage + IndexOf(image_);
  SendMessageW(Control(id), STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()), 0);
  Place(id, box);
  icon_ = std::move(icon);
}

}  // namespace orvenza
