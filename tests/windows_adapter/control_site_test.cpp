#include "device/windows/control_site.h"

#include <gtest/gtest.h>

#include <string>

namespace orvenza::test {
namespace {

/// An ambient property as a site returns it.
Variant Ambient(DISPID property) {
  const auto site = MakeCom<ControlSite>(nullptr);
  DISPPARAMS none{};
  Variant value;
  EXPECT_HRESULT_SUCCEEDED(site->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                        value.Get(), nullptr, nullptr));
  return value;
}

TEST(ControlSite, HasTheColoursOfTheSystem) {
  const struct {
    DISPID property;
    unsigned colour;
  } rows[] = {{DISPID_AMBIENT_BACKCOLOR, 0x8000000F}, {DISPID_AMBIENT_FORECOLOR, 0x80000012}};
  for (const auto& [property, colour] : rows) {
    Variant value = Ambient(property);
    EXPECT_EQ(value.Get()->vt, VT_I4) << property;
    EXPECT_EQ(static_cast<unsigned>(value.Get()->lVal), colour) << property;
  }
}

TEST(ControlSite, HasAFont) {
  Variant value = Ambient(DISPID_AMBIENT_FONT);
  ASSERT_EQ(value.Get()->vt, VT_DISPATCH);
  const auto font = ComPtr<IDispatch>::Share(value.Get()->pdispVal).As<IFont>();
  ASSERT_TRUE(font);
  Bstr name;
  font->get_Name(name.Put());
  EXPECT_EQ(name.View(), L"Tahoma");
  CY size{};
  font->get_Size(&size);
  EXPECT_EQ(size.int64, 82500);
}

TEST(ControlSite, HasPlainValuesForTheRest) {
  const struct {
    DISPID property;
    VARTYPE type;
    const wchar_t* value;
  } rows[] = {
      {DISPID_AMBIENT_SCALEUNITS, VT_BSTR, L"Pixel"},
      {DISPID_AMBIENT_TEXTALIGN, VT_I2, L"0"},
      {DISPID_AMBIENT_APPEARANCE, VT_I2, L"1"},
      {DISPID_AMBIENT_DISPLAYNAME, VT_BSTR, L"EcrLinkX1"},
  };
  for (const auto& row : rows) {
    Variant value = Ambient(row.property);
    EXPECT_EQ(value.Get()->vt, row.type) << row.property;
    value.ChangeTo(VT_BSTR);
    EXPECT_EQ(value.AsText(), row.value) << row.property;
  }
}

TEST(ControlSite, KnowsNoOtherProperties) {
  const auto site = MakeCom<ControlSite>(nullptr);
  DISPPARAMS none{};
  Variant value;
  EXPECT_EQ(site->Invoke(DISPID_AMBIENT_PALETTE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                         value.Get(), nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace orvenza::test
