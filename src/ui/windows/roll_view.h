#pragma once

#include <string>

#include "ui/register_panel.h"
#include "ui/roll_position.h"
#include "ui/windows/gdi_objects.h"
#include "ui/windows/window.h"

namespace orvenza {

/// The roll of the simulated register, newest line below. Scrolled by wheel, keys and scroll bar; draws only
/// the lines in view, and every pixel of them once. Its window text is what is in view.
class RollView final : public Window {
 public:
  /// `panel` outlives the view. Without a size until it is placed.
  RollView(HWND parent, int id, const RegisterPanel& panel, int dpi);
  ~RollView() override;
  RollView(const RollView&) = delete;
  RollView& operator=(const RollView&) = delete;

  void SetDpi(int dpi);

  /// To be called after the roll has changed.
  void Update();

  /// Width that shows a whole line, in pixels.
  int FullWidth() const;
  int LineHeight() const { return lineHeight_; }

  /// Scrolls as the mouse wheel message with this parameter asks for.
  void Turn(WPARAM wheel);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnKey(WPARAM key);
  void OnScrollBar(UINT request);
  void ScrollBy(std::ptrdiff_t lines);
  void Show();
  void Paint() const;
  void PaintLine(HDC dc, std::size_t row, const RECT& box) const;
  std::wstring VisibleText() const;

  const RegisterPanel& panel_;
  int dpi_;
  Font plain_;
  Font voided_;
  int lineHeight_ = 1;
  int charWidth_ = 1;
  RollPosition position_;
  int wheel_ = 0;  ///< Wheel movement that does not make a whole line yet.
};

}  // namespace orvenza
