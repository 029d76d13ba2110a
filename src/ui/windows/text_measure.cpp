#include "ui/windows/text_measure.h"

#include <string>

#include "ui/windows/gdi_objects.h"

namespace orvenza {

TextMeasure MeasureTextOf(HWND control, UINT format) {
  return [control, format](int widest) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    const MeasuringCanvas canvas(control, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    RECT box{0, 0, widest, 0};
    DrawTextW(canvas.Dc(), text.c_str(), static_cast<int>(text.size()), &box,
              DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | format);
    return Extent{box.right, box.bottom};
  };
}

int LineHeightOf(HWND window, HFONT font) {
  TEXTMETRICW metrics{};
  GetTextMetricsW(MeasuringCanvas(window, font).Dc(), &metrics);
  return metrics.tmHeight;
}

}  // namespace orvenza
