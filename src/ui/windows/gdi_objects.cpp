#include "ui/windows/gdi_objects.h"

namespace orvenza {
namespace {

constexpr const wchar_t* kPlainFace = L"Tahoma";
constexpr const wchar_t* kLabelFace = L"Times New Roman";

struct Face {
  const wchar_t* name;
  BYTE family;
  int points;
  int weight;
};

/// Indexed by TextKind.
constexpr Face kFaces[] = {
    {kPlainFace, FF_SWISS, 13, FW_NORMAL}, {kPlainFace, FF_SWISS, 10, FW_NORMAL},
    {kPlainFace, FF_SWISS, 12, FW_NORMAL}, {kLabelFace, FF_ROMAN, 18, FW_BOLD},
    {kLabelFace, FF_ROMAN, 16, FW_NORMAL},
};

Font MakeFont(const Face& face, int dpi) {
  return Font(CreateFontW(-MulDiv(face.points, dpi, 72), 0, 0, 0, face.weight, FALSE, FALSE, FALSE,
                          DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                          static_cast<DWORD>(VARIABLE_PITCH) | face.family, face.name));
}

}  // namespace

FormFonts::FormFonts(int dpi) {
  for (std::size_t kind = 0; kind < fonts_.size(); ++kind) fonts_[kind] = MakeFont(kFaces[kind], dpi);
}

HBRUSH FormBrush() {
  static const HBRUSH brush = CreateSolidBrush(kFormColour);
  return brush;
}

}  // namespace orvenza
