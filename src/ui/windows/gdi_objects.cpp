#include "ui/windows/gdi_objects.h"

namespace orvenza {
namespace {

constexpr const wchar_t* kLabelFace = L"Times New Roman";

/// Indexed by TextKind.
constexpr Face kFaces[] = {
    {kPlainFace, VARIABLE_PITCH | FF_SWISS, 13}, {kPlainFace, VARIABLE_PITCH | FF_SWISS, 10},
    {kPlainFace, VARIABLE_PITCH | FF_SWISS, 12}, {kLabelFace, VARIABLE_PITCH | FF_ROMAN, 18, FW_BOLD},
    {kLabelFace, VARIABLE_PITCH | FF_ROMAN, 16},
};

}  // namespace

Font MakeFont(const Face& face, int dpi) {
  return Font(CreateFontW(-MulDiv(face.points, dpi, 72), 0, 0, 0, face.weight, FALSE, FALSE,
                          face.struckOut ? TRUE : FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                          CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, face.family, face.name));
}

FormFonts::FormFonts(int dpi) {
  for (std::size_t kind = 0; kind < fonts_.size(); ++kind) fonts_[kind] = MakeFont(kFaces[kind], dpi);
}

HBRUSH FormBrush() {
  static const HBRUSH brush = CreateSolidBrush(kFormColour);
  return brush;
}

}  // namespace orvenza
