#include <cstdlib>

#include "standin/call_log.h"
#include "standin/standin_control.h"

namespace orvenza::test {
namespace {

constexpr DISPID kAnswer = 1;
constexpr DISPID kGo = 2;
constexpr DISPID kAlive = 5;
constexpr DISPID kLine = 6;
constexpr DISPID kQuestion = 17;
constexpr DISPID kAfresh = 18;

std::string Spelled(UINT codePage, const Variant& text) {
  char bytes[2000];
  const std::wstring_view wide = text.AsText();
  const int length = ::WideCharToMultiByte(codePage, 0, wide.data(), static_cast<int>(wide.size()), bytes,
                                           static_cast<int>(sizeof bytes), nullptr, nullptr);
  return {bytes, static_cast<std::size_t>(length)};
}

/// In the format of the log: True, 19200, text in UTF-8.
std::string Shown(Variant value) {
  switch (value.Get()->vt) {
    case VT_BOOL: return value.AsBoolean() ? "True" : "False";
    case VT_BSTR: return Spelled(CP_UTF8, value);
    default: return std::to_string(value.Get()->lVal);
  }
}

HRESULT STDMETHODCALLTYPE DescribeLater(EXCEPINFO* exception) {
  exception->bstrDescription = ::SysAllocString(L"La carta \u00E8 finita");
  exception->wCode = 68;
  return S_OK;
}

/// Fails in the way `how`. "text" is no failure but a value of a type that no member should have.
HRESULT Fail(const std::string& how, VARIANT* result, EXCEPINFO* exception) {
  if (how == "text") {
    std::swap(*result, *Variant::Text(Bstr(L"x")).Get());
    return S_OK;
  }
  if (how == "deferred") {
    exception->pfnDeferredFillIn = &DescribeLater;
    return DISP_E_EXCEPTION;
  }
  if (how == "unfailing") {
    exception->scode = S_FALSE;
    return DISP_E_EXCEPTION;
  }
  if (how != "exception") return static_cast<HRESULT>(std::strtoul(how.c_str(), nullptr, 16));
  exception->bstrSource = ::SysAllocString(L"StandIn");
  exception->bstrDescription = ::SysAllocString(L"La stampante \u00E8 guasta.\r\n");
  exception->scode = E_ACCESSDENIED;
  return DISP_E_EXCEPTION;
}

HRESULT Refuse(DISPID number) {
  Note("refused: member " + std::to_string(number));
  return E_UNEXPECTED;
}

HRESULT CheckCall(const Member* member, REFIID iid, WORD flags, const DISPPARAMS* parameters) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (parameters == nullptr) return E_POINTER;
  const bool oneKind =
      flags == DISPATCH_METHOD || flags == DISPATCH_PROPERTYGET || flags == DISPATCH_PROPERTYPUT;
  if (member == nullptr || !oneKind || (member->kinds & flags) == 0) return DISP_E_MEMBERNOTFOUND;
  const UINT wanted = flags == DISPATCH_PROPERTYPUT ? 1 : 0;
  if (parameters->cArgs != wanted || parameters->cNamedArgs != wanted) return DISP_E_BADPARAMCOUNT;
  if (wanted == 1 && parameters->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) return DISP_E_PARAMNOTFOUND;
  return S_OK;
}

}  // namespace

HRESULT StandInControl::Invoke(DISPID number, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                               VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) {
  const Member* const member = FindMember(number);
  const HRESULT called = CheckCall(member, iid, flags, parameters);
  if (FAILED(called)) return called;
  if (dead_) return RPC_E_DISCONNECTED;
  if (window_ == nullptr && !behaviour_.Is("invisible")) return Refuse(number);
  const std::string how = Behaviour::Now().After("fails=" + std::to_string(number) + ":");
  if (!how.empty() && exception != nullptr) return Fail(how, result, exception);
  if (flags == DISPATCH_METHOD) return Send();
  if (flags == DISPATCH_PROPERTYGET) return result == nullptr ? E_POINTER : Get(number, *result);
  const HRESULT put = Put(*member, parameters->rgvarg[0]);
  if (put == DISP_E_TYPEMISMATCH && wrongArgument != nullptr) *wrongArgument = 0;
  return put;
}

HRESULT StandInControl::Get(DISPID number, VARIANT& result) {
  Variant value;
  if (number == kAlive) value = Variant::Boolean(line_.Link().DevicePresent());
  if (number == kLine) value = Variant::Boolean(line_.Link().PortOpen());
  if (number == kAnswer) {
    const std::string bytes = line_.Link().RxMessage();
    wchar_t wide[2000];
    const int length = ::MultiByteToWideChar(1252, 0, bytes.data(), static_cast<int>(bytes.size()), wide,
                                             static_cast<int>(std::size(wide)));
    value = Variant::Text(Bstr({wide, static_cast<std::size_t>(length)}));
  }
  if (value.Get()->vt == VT_BOOL && behaviour_.Is("flags-as-numbers")) value.ChangeTo(VT_I2);
  ::VariantInit(&result);
  std::swap(result, *value.Get());
  return S_OK;
}

HRESULT StandInControl::Put(const Member& member, VARIANT& value) {
  const bool integer = member.type == VT_I4;
  if (value.vt != (integer ? IntegerType(behaviour_) : member.type)) return DISP_E_TYPEMISMATCH;
  SimulatedLink& link = line_.Link();
  if (integer && link.PortOpen()) return Refuse(member.number);
  Variant copy;
  ::VariantCopy(copy.Get(), &value);
  if (integer) copy.ChangeTo(VT_I4);
  if (member.number == kQuestion) {
    message_ = Spelled(1252, copy);
    link.SetMessage(message_);
  }
  const bool flag = member.type == VT_BOOL && copy.AsBoolean();
  if (member.number == kAfresh) link.SetReset(flag);
  const bool port = member.number == kLine;
  if (integer) {
    link.SetProperty(static_cast<LinkProperty>(member.number), static_cast<int>(copy.Get()->lVal));
  }
  Note("set " + std::to_string(member.number) + " " + Shown(std::move(copy)));
  if (port) link.SetPortOpen(flag);
  return S_OK;
}

HRESULT StandInControl::Send() {
  const std::string diesWith = Behaviour::Now().After("dies-with=");
  if (!diesWith.empty() && message_.starts_with(diesWith)) {
    dead_ = true;
    // The next instance must live.
    ::SetEnvironmentVariableA(Behaviour::kVariable, nullptr);
    Note("died");
    return RPC_E_DISCONNECTED;
  }
  if (!line_.Link().PortOpen()) return Refuse(kGo);
  Note("call 2");
  line_.Link().Send();
  if (behaviour_.Is("at-once")) line_.RunDue();
  return S_OK;
}

}  // namespace orvenza::test
