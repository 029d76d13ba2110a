#include "ui/windows/roll_view.h"

#include <algorithm>

#include "platform/windows/wide.h"
#include "ui/layout.h"
#include "ui/windows/names.h"

namespace orvenza {
namespace {

constexpr int kPoints = 10;
constexpr int kCharacters = 40;  ///< Length of a whole line.

// Around the lines, in form units.
constexpr int kSide = 120;
constexpr int kEdge = 60;

constexpr COLORREF kPaperColour = RGB(255, 254, 246);
constexpr COLORREF kVoidedColour = RGB(176, 32, 32);

Font RollFont(int dpi, bool struckOut) {
  return MakeFont({L"Consolas", FIXED_PITCH | FF_MODERN, kPoints, FW_NORMAL, struckOut}, dpi);
}

/// Fills `box` with the background colour.
void Fill(HDC dc, const RECT& box) { ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &box, L"", 0, nullptr); }

}  // namespace

RollView::RollView(HWND parent, int id, const RegisterPanel& panel, int dpi) : panel_(panel), dpi_(dpi) {
  Create(window_class::kOrvRoll, {}, WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | WS_TABSTOP, 0, parent,
         id);
  SetDpi(dpi);
}

RollView::~RollView() { Destroy(); }

void RollView::SetDpi(int dpi) {
  dpi_ = dpi;
  plain_ = RollFont(dpi, false);
  voided_ = RollFont(dpi, true);
  TEXTMETRICW metrics{};
  GetTextMetricsW(MeasuringCanvas(Handle(), plain_.Get()).Dc(), &metrics);
  lineHeight_ = metrics.tmHeight;
  charWidth_ = metrics.tmAveCharWidth;
  Update();
}

int RollView::FullWidth() const {
  const int borders = 2 * GetSystemMetrics(SM_CXBORDER);
  return kCharacters * charWidth_ + 2 * Pixels(kSide, dpi_) + GetSystemMetrics(SM_CXVSCROLL) + borders;
}

void RollView::Update() {
  RECT client{};
  GetClientRect(Handle(), &client);
  const int rows = (client.bottom - 2 * Pixels(kEdge, dpi_)) / lineHeight_;
  position_.Follow(panel_.LinesPrinted(), panel_.Roll().size(), static_cast<std::size_t>(std::max(rows, 1)));
  Show();
}

void RollView::ScrollBy(std::ptrdiff_t lines) {
  position_.ScrollBy(lines);
  Show();
}

/// Shows the lines and the scroll bar at the current position.
void RollView::Show() {
  SCROLLINFO bar{};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  bar.nMax = static_cast<int>(position_.Kept()) - 1;
  bar.nPage = static_cast<UINT>(position_.Rows());
  bar.nPos = static_cast<int>(position_.First());
  SetScrollInfo(Handle(), SB_VERT, &bar, TRUE);
  InvalidateRect(Handle(), nullptr, FALSE);
}

LRESULT RollView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT: Paint(); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_SIZE: Update(); return 0;
    case WM_VSCROLL: OnScrollBar(LOWORD(wParam)); return 0;
    case WM_MOUSEWHEEL: Turn(wParam); return 0;
    case WM_KEYDOWN: return OnKey(wParam) ? 0 : Window::OnMessage(message, wParam, lParam);
    case WM_GETDLGCODE: return DLGC_WANTARROWS;
    case WM_LBUTTONDOWN: SetFocus(Handle()); return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: InvalidateRect(Handle(), nullptr, FALSE); return 0;
    case WM_GETTEXTLENGTH: return static_cast<LRESULT>(VisibleText().size());
    case WM_GETTEXT: {
      if (wParam == 0) return 0;
      const std::wstring text = VisibleText().substr(0, wParam - 1);
      *std::copy(text.begin(), text.end(), reinterpret_cast<wchar_t*>(lParam)) = L'\0';
      return static_cast<LRESULT>(text.size());
    }
    default: return Window::OnMessage(message, wParam, lParam);
  }
}

bool RollView::OnKey(WPARAM key) {
  const auto page = static_cast<std::ptrdiff_t>(position_.Rows());
  const auto all = static_cast<std::ptrdiff_t>(position_.Kept());
  switch (key) {
    case VK_UP: ScrollBy(-1); return true;
    case VK_DOWN: ScrollBy(1); return true;
    case VK_PRIOR: ScrollBy(-page); return true;
    case VK_NEXT: ScrollBy(page); return true;
    case VK_HOME: ScrollBy(-all); return true;
    case VK_END: ScrollBy(all); return true;
    default: return false;
  }
}

void RollView::OnScrollBar(UINT request) {
  const auto page = static_cast<std::ptrdiff_t>(position_.Rows());
  const auto all = static_cast<std::ptrdiff_t>(position_.Kept());
  SCROLLINFO bar{};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_TRACKPOS;
  switch (request) {
    case SB_LINEUP: return ScrollBy(-1);
    case SB_LINEDOWN: return ScrollBy(1);
    case SB_PAGEUP: return ScrollBy(-page);
    case SB_PAGEDOWN: return ScrollBy(page);
    case SB_TOP: return ScrollBy(-all);
    case SB_BOTTOM: return ScrollBy(all);
    case SB_THUMBTRACK:
      GetScrollInfo(Handle(), SB_VERT, &bar);
      return ScrollBy(bar.nTrackPos - static_cast<std::ptrdiff_t>(position_.First()));
    default: return;
  }
}

void RollView::Turn(WPARAM wheel) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const int perNotch = static_cast<int>(std::min<std::size_t>(lines, position_.Rows()));
  wheel_ += GET_WHEEL_DELTA_WPARAM(wheel) * perNotch;
  ScrollBy(-(wheel_ / WHEEL_DELTA));
  wheel_ %= WHEEL_DELTA;
}

void RollView::Paint() const {
  PAINTSTRUCT paint{};
  const HDC dc = BeginPaint(Handle(), &paint);
  RECT client{};
  GetClientRect(Handle(), &client);
  const HGDIOBJ before = SelectObject(dc, plain_.Get());
  SetBkColor(dc, kPaperColour);
  RECT box{0, 0, client.right, Pixels(kEdge, dpi_)};
  Fill(dc, box);
  for (std::size_t row = 0; row < position_.Rows(); ++row) {
    box.top = box.bottom;
    box.bottom += lineHeight_;
    PaintLine(dc, row, box);
  }
  box = {0, box.bottom, client.right, std::max(client.bottom, box.bottom)};
  Fill(dc, box);
  SelectObject(dc, before);
  SetTextColor(dc, kTextColour);
  if (GetFocus() == Handle()) DrawFocusRect(dc, &client);
  EndPaint(Handle(), &paint);
}

/// Text and background of the line in the given row of the view; only background below the last line. Leading
/// blanks are not struck out.
void RollView::PaintLine(HDC dc, std::size_t row, const RECT& box) const {
  const std::size_t line = position_.First() + row;
  if (line >= panel_.Roll().size()) return Fill(dc, box);
  const RollLine& printed = panel_.Roll()[line];
  const std::wstring text = ToWide(printed.text);
  const std::size_t blanks = std::min(text.find_first_not_of(L' '), text.size());
  const int left = Pixels(kSide, dpi_) + static_cast<int>(blanks) * charWidth_;
  SelectObject(dc, (printed.voided ? voided_ : plain_).Get());
  SetTextColor(dc, printed.voided ? kVoidedColour : kTextColour);
  ExtTextOutW(dc, left, box.top, ETO_OPAQUE | ETO_CLIPPED, &box, text.c_str() + blanks,
              static_cast<UINT>(text.size() - blanks), nullptr);
}

std::wstring RollView::VisibleText() const {
  std::wstring text;
  const std::size_t end = std::min(position_.First() + position_.Rows(), panel_.Roll().size());
  for (std::size_t line = position_.First(); line < end; ++line)
    text += ToWide(panel_.Roll()[line].text) + L"\r\n";
  return text;
}

}  // namespace orvenza
