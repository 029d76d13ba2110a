#pragma once

#include "device/windows/control_site.h"
#include "device/windows/event_connection.h"
#include "device/windows/sited_object.h"

namespace orvenza {

/// The link control itself, hosted in a hidden window. A failing member throws SystemError 57 with the
/// member's number, the failure's number and its description.
class LinkControl {
 public:
  /// Creates, hosts and activates the control registered as `name`, and connects to its events. Throws
  /// SystemError 429 with the reason.
  explicit LinkControl(const char* name);

  void SetEvents(EcrLinkEvents* events) { events_.SetEvents(events); }

  void Call(DISPID member);
  bool GetBoolean(DISPID member);
  /// Bytes in Windows-1252.
  std::string GetText(DISPID member);
  void PutBoolean(DISPID member, bool value);
  /// In the integer type that the control declares for `member`, otherwise as 32 bits.
  void PutInteger(DISPID member, int value);
  /// Bytes in Windows-1252.
  void PutText(DISPID member, std::string_view bytes);

  /// True once a member has failed because the control has died.
  bool Lost() const { return lost_; }

 private:
  Variant Get(DISPID member, VARTYPE type);
  void Put(DISPID member, Variant value);
  void Invoke(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result);
  void Check(DISPID member, HRESULT result, std::wstring_view description = {});

  // Destroyed in reverse order.
  HiddenWindow window_;
  ComPtr<ControlSite> site_;
  ComPtr<IUnknown> control_;
  SitedObject sited_;
  EventConnection events_;
  ComPtr<IDispatch> members_;
  ComPtr<ITypeInfo> types_;
  bool lost_ = false;
};

}  // namespace orvenza
