#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

#include "platform/windows/unique_handle.h"

namespace orvenza {

struct FontTraits {
  using Value = HFONT;
  static Value Empty() { return nullptr; }
  static void Close(Value value) { DeleteObject(value); }
};
using Font = Unique<FontTraits>;

struct IconTraits {
  using Value = HICON;
  static Value Empty() { return nullptr; }
  static void Close(Value value) { DestroyIcon(value); }
};
using Icon = Unique<IconTraits>;

struct MenuTraits {
  using Value = HMENU;
  static Value Empty() { return nullptr; }
  static void Close(Value value) { DestroyMenu(value); }
};
using Menu = Unique<MenuTraits>;

/// A typeface in one size and style.
struct Face {
  const wchar_t* name;
  BYTE family;  ///< With the pitch.
  int points;
  int weight = FW_NORMAL;
  bool struckOut = false;
};

/// The font at `dpi` pixels per inch. A typeface that the system lacks is replaced by one of its family.
Font MakeFont(const Face& face, int dpi);

inline constexpr const wchar_t* kPlainFace = L"Tahoma";

/// The purpose of a text in a form; each has its own font.
enum class TextKind {
  kMessage,  ///< In Orv_Msg; readable from a few steps away.
  kButton,   ///< In the narrow buttons of a row.
  kControl,  ///< Options, lists, their labels, large buttons.
  kHeading,  ///< Label1 of Orv_Info.
  kLabel,    ///< Label2 of Orv_Info.
};

/// The fonts of a form at `dpi` pixels per inch.
class FormFonts {
 public:
  explicit FormFonts(int dpi);

  HFONT Of(TextKind kind) const { return fonts_[static_cast<std::size_t>(kind)].Get(); }

 private:
  std::array<Font, 5> fonts_;
};

/// Measures the texts of `window` in one font.
class MeasuringCanvas {
 public:
  MeasuringCanvas(HWND window, HFONT font)
      : window_(window), dc_(GetDC(window)), before_(SelectObject(dc_, font)) {}
  ~MeasuringCanvas() {
    SelectObject(dc_, before_);
    ReleaseDC(window_, dc_);
  }
  MeasuringCanvas(const MeasuringCanvas&) = delete;
  MeasuringCanvas& operator=(const MeasuringCanvas&) = delete;

  HDC Dc() const { return dc_; }

 private:
  HWND window_;
  HDC dc_;
  HGDIOBJ before_;
};

/// The background of every form, red 150, green 187, blue 213.
inline constexpr COLORREF kFormColour = RGB(150, 187, 213);

/// The brush of that colour, shared by all forms for the program's lifetime.
HBRUSH FormBrush();

/// Text colour on that background, independent of the system's, which may be unreadable in high contrast
/// mode.
inline constexpr COLORREF kTextColour = RGB(0, 0, 0);

}  // namespace orvenza
