#include "device/windows/link_control.h"

#include "device/windows/com_error.h"
#include "device/windows/link_text.h"
#include "platform/system_error.h"
#include "platform/windows/wide.h"

namespace orvenza {
namespace {

static_assert(sizeof(void*) == 4, "the link control is a 32-bit library, and no 64-bit program can host it");

/// A member's own report of its failure.
struct Exception {
  EXCEPINFO info{};

  Exception() = default;
  ~Exception() {
    ::SysFreeString(info.bstrSource);
    ::SysFreeString(info.bstrDescription);
    ::SysFreeString(info.bstrHelpFile);
  }
  Exception(const Exception&) = delete;
  Exception& operator=(const Exception&) = delete;

  void Complete() {
    if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
  }

  /// Always a failure, even if the member reports a success code.
  HRESULT Number() const {
    if (FAILED(info.scode)) return info.scode;
    return info.wCode != 0 ? MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, info.wCode) : DISP_E_EXCEPTION;
  }

  std::wstring_view Description() const {
    return {info.bstrDescription == nullptr ? L"" : info.bstrDescription,
            ::SysStringLen(info.bstrDescription)};
  }
};

bool IsNumber(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_UI4:
    case VT_R4:
    case VT_R8: return true;
    default: return false;
  }
}

}  // namespace

LinkControl::LinkControl(const char* name) : site_(MakeCom<ControlSite>(window_.Handle())) {
  CLSID clsid{};
  CheckCreation(::CLSIDFromProgID(ToWide(name).c_str(), &clsid), name);
  void* created = nullptr;
  CheckCreation(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown), &created), name);
  control_ = ComPtr<IUnknown>::Take(static_cast<IUnknown*>(created));
  members_ = control_.As<IDispatch>();
  if (!members_) CheckCreation(E_NOINTERFACE, "members");
  if (FAILED(members_->GetTypeInfo(0, LOCALE_USER_DEFAULT, types_.Put()))) types_.Reset();
  sited_.Place(control_, clsid, site_.Get());
  events_.Connect(control_, FindSourceInterface(control_, clsid));
  sited_.Activate(site_.Get(), window_.Handle());
}

void LinkControl::Call(DISPID member) {
  DISPPARAMS none{};
  Invoke(member, DISPATCH_METHOD, none, nullptr);
}

bool LinkControl::GetBoolean(DISPID member) { return Get(member, VT_BOOL).AsBoolean(); }

std::string LinkControl::GetText(DISPID member) { return LinkBytesOf(Get(member, VT_BSTR).AsText()); }

void LinkControl::PutBoolean(DISPID member, bool value) { Put(member, Variant::Boolean(value)); }

void LinkControl::PutInteger(DISPID member, int value) {
  Variant number = Variant::Integer(value);
  // A value that cannot be converted is passed unchanged; the control may reject it.
  if (const VARTYPE declared = TypeOfProperty(types_, member); IsNumber(declared)) number.ChangeTo(declared);
  Put(member, std::move(number));
}

void LinkControl::PutText(DISPID member, std::string_view bytes) {
  Put(member, Variant::Text(Bstr(WideOfLink(bytes))));
}

Variant LinkControl::Get(DISPID member, VARTYPE type) {
  DISPPARAMS none{};
  Variant value;
  Invoke(member, DISPATCH_PROPERTYGET, none, value.Get());
  Check(member, value.ChangeTo(type));
  return value;
}

void LinkControl::Put(DISPID member, Variant value) {
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS one{value.Get(), &named, 1, 1};
  Invoke(member, DISPATCH_PROPERTYPUT, one, nullptr);
}

void LinkControl::Invoke(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result) {
  Exception exception;
  UINT wrongArgument = 0;
  const HRESULT done = members_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                                        &exception.info, &wrongArgument);
  if (done != DISP_E_EXCEPTION) return Check(member, done);
  exception.Complete();
  Check(member, exception.Number(), exception.Description());
}

void LinkControl::Check(DISPID member, HRESULT result, std::wstring_view description) {
  if (SUCCEEDED(result)) return;
  if (MeansLost(result)) lost_ = true;
  throw SystemError(error_number::kDeviceError,
                    "member " + std::to_string(member) + ": " + DescribeResult(result, description));
}

}  // namespace orvenza
