#include "standin/surroundings.h"

namespace orvenza::test {
namespace {

constexpr struct {
  DISPID property;
  VARTYPE type;
} kAmbients[] = {
    {DISPID_AMBIENT_BACKCOLOR, VT_I4},          {DISPID_AMBIENT_DISPLAYNAME, VT_BSTR},
    {DISPID_AMBIENT_FONT, VT_DISPATCH},         {DISPID_AMBIENT_FORECOLOR, VT_I4},
    {DISPID_AMBIENT_LOCALEID, VT_I4},           {DISPID_AMBIENT_MESSAGEREFLECT, VT_BOOL},
    {DISPID_AMBIENT_SCALEUNITS, VT_BSTR},       {DISPID_AMBIENT_TEXTALIGN, VT_I2},
    {DISPID_AMBIENT_USERMODE, VT_BOOL},         {DISPID_AMBIENT_UIDEAD, VT_BOOL},
    {DISPID_AMBIENT_SHOWGRABHANDLES, VT_BOOL},  {DISPID_AMBIENT_SHOWHATCHING, VT_BOOL},
    {DISPID_AMBIENT_DISPLAYASDEFAULT, VT_BOOL}, {DISPID_AMBIENT_SUPPORTSMNEMONICS, VT_BOOL},
    {DISPID_AMBIENT_AUTOCLIP, VT_BOOL},         {DISPID_AMBIENT_APPEARANCE, VT_I2},
};

}  // namespace

Variant Ambient(const ComPtr<IOleClientSite>& site, DISPID property) {
  const auto ambient = site.As<IDispatch>();
  DISPPARAMS none{};
  Variant value;
  if (!ambient || FAILED(ambient->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                         value.Get(), nullptr, nullptr))) {
    return {};
  }
  return value;
}

DISPID WrongAmbient(const ComPtr<IOleClientSite>& site) {
  for (const auto& [property, type] : kAmbients) {
    Variant value = Ambient(site, property);
    if (value.Get()->vt != type) return property;
    if (type == VT_DISPATCH && !ComPtr<IDispatch>::Share(value.Get()->pdispVal).As<IFont>()) return property;
  }
  return 0;
}

}  // namespace orvenza::test
