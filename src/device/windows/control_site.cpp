#include "device/windows/control_site.h"

#include "device/windows/com_error.h"

namespace orvenza {
namespace {

/// A system colour, by its index, in the form that controls expect.
Variant SystemColour(int number) {
  return Variant::Integer(static_cast<int>(0x80000000U | static_cast<unsigned>(number)));
}

/// Empty when no font can be created.
Variant Font() {
  FONTDESC description{};
  description.cbSizeofstruct = sizeof description;
  description.lpstrName = const_cast<LPOLESTR>(L"Tahoma");
  description.cySize.int64 = 82500;  // points times 10000
  description.sWeight = FW_NORMAL;
  description.sCharset = DEFAULT_CHARSET;
  void* font = nullptr;
  if (FAILED(::OleCreateFontIndirect(&description, __uuidof(IFontDisp), &font))) return {};
  return Variant::Object(ComPtr<IDispatch>::Take(static_cast<IFontDisp*>(font)));
}

Variant AmbientProperty(DISPID member) {
  constexpr short kThreeDimensional = 1;
  switch (member) {
    case DISPID_AMBIENT_BACKCOLOR: return SystemColour(COLOR_BTNFACE);
    case DISPID_AMBIENT_FORECOLOR: return SystemColour(COLOR_BTNTEXT);
    case DISPID_AMBIENT_FONT: return Font();
    case DISPID_AMBIENT_SCALEUNITS: return Variant::Text(Bstr(L"Pixel"));
    case DISPID_AMBIENT_TEXTALIGN: return Variant::Short(0);  // numbers on the right, texts on the left
    case DISPID_AMBIENT_APPEARANCE: return Variant::Short(kThreeDimensional);
    case DISPID_AMBIENT_USERMODE: return Variant::Boolean(true);
    case DISPID_AMBIENT_UIDEAD:
    case DISPID_AMBIENT_SHOWGRABHANDLES:
    case DISPID_AMBIENT_SHOWHATCHING:
    case DISPID_AMBIENT_MESSAGEREFLECT:
    case DISPID_AMBIENT_SUPPORTSMNEMONICS:
    case DISPID_AMBIENT_DISPLAYASDEFAULT: return Variant::Boolean(false);
    case DISPID_AMBIENT_AUTOCLIP: return Variant::Boolean(true);
    case DISPID_AMBIENT_LOCALEID: return Variant::Integer(static_cast<int>(::GetUserDefaultLCID()));
    case DISPID_AMBIENT_DISPLAYNAME: return Variant::Text(Bstr(L"EcrLinkX1"));
    default: return {};
  }
}

/// Other programs that close every window they find must not destroy the control's.
LRESULT CALLBACK StayOpen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  return message == WM_CLOSE ? 0 : ::DefWindowProcW(window, message, wParam, lParam);
}

const wchar_t* WindowClass() {
  WNDCLASSW place{};
  place.lpfnWndProc = &StayOpen;
  place.hInstance = ::GetModuleHandleW(nullptr);
  place.lpszClassName = L"EcrLinkX1";
  ::RegisterClassW(&place);  // fails from the second time on
  return place.lpszClassName;
}

}  // namespace

HiddenWindow::HiddenWindow()
    : handle_(::CreateWindowExW(WS_EX_TOOLWINDOW, WindowClass(), L"Orvenza EcrLinkX1", WS_POPUP, 0, 0,
                                Place().right, Place().bottom, nullptr, nullptr, ::GetModuleHandleW(nullptr),
                                nullptr)) {
  if (handle_ == nullptr) CheckCreation(HRESULT_FROM_WIN32(::GetLastError()), "window");
}

void* ControlSite::Find(REFIID iid) {
  if (iid == __uuidof(IOleWindow)) return static_cast<IOleInPlaceSite*>(this);
  if (iid == __uuidof(IOleInPlaceUIWindow)) return static_cast<IOleInPlaceFrame*>(this);
  return ComObject::Find(iid);
}

HRESULT ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker == nullptr) return E_POINTER;
  *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT ControlSite::GetContainer(IOleContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = nullptr;
  return E_NOINTERFACE;
}

HRESULT ControlSite::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = window_;
  return S_OK;
}

HRESULT ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                      RECT* clip, OLEINPLACEFRAMEINFO* info) {
  if (frame == nullptr || document == nullptr || place == nullptr || clip == nullptr || info == nullptr) {
    return E_POINTER;
  }
  *frame = this;
  AddRef();
  *document = nullptr;
  *place = HiddenWindow::Place();
  *clip = HiddenWindow::Place();
  info->fMDIApp = FALSE;
  info->hwndFrame = window_;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT ControlSite::GetExtendedControl(IDispatch** control) {
  if (control == nullptr) return E_POINTER;
  *control = nullptr;
  return E_NOTIMPL;
}

HRESULT ControlSite::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ControlSite::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return E_NOTIMPL;
}

HRESULT ControlSite::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                            UINT*) {
  if ((flags & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
  if (result == nullptr) return E_POINTER;
  Variant value = AmbientProperty(member);
  if (value.Get()->vt == VT_EMPTY) return DISP_E_MEMBERNOTFOUND;
  std::swap(*result, *value.Get());
  // The previous content of the caller's VARIANT is undefined and must not be freed.
  ::VariantInit(value.Get());
  return S_OK;
}

}  // namespace orvenza
