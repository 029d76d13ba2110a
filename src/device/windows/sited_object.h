#pragma once

#include "device/windows/com.h"

namespace orvenza {

/// Hosts a control in a site: fresh persistent state, its site, in place and active. Undone at the end.
class SitedObject {
 public:
  SitedObject() = default;
  ~SitedObject();
  SitedObject(const SitedObject&) = delete;
  SitedObject& operator=(const SitedObject&) = delete;

  /// Sites and initialises `control` in the order it asks for. An object that is not to be embedded is left
  /// as it is. `clsid` is its class, under which some have registered what they ask for. Throws SystemError
  /// 429.
  void Place(const ComPtr<IUnknown>& control, REFCLSID clsid, IOleClientSite* site);

  /// Makes it active in `window`. A control that is invisible at run time may refuse. Throws SystemError 429.
  void Activate(IOleClientSite* site, HWND window);

 private:
  ComPtr<IOleObject> object_;
  DWORD status_ = 0;  ///< OLEMISC bits.
};

}  // namespace orvenza
