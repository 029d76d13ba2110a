#pragma once

#include "device/windows/com.h"

namespace orvenza {

/// Hosts a control in a site: initialises, sites and activates it. The destructor undoes this.
class SitedObject {
 public:
  SitedObject() = default;
  ~SitedObject();
  SitedObject(const SitedObject&) = delete;
  SitedObject& operator=(const SitedObject&) = delete;

  /// Sites and initialises `control` in the order that it requires. An object that cannot be embedded is left
  /// as it is. `clsid` is its class, under which some controls register their requirements. Throws
  /// SystemError 429.
  void Place(const ComPtr<IUnknown>& control, REFCLSID clsid, IOleClientSite* site);

  /// Activates it in `window`. A control that is invisible at run time may refuse. Throws SystemError 429.
  void Activate(IOleClientSite* site, HWND window);

 private:
  ComPtr<IOleObject> object_;
  DWORD status_ = 0;  ///< OLEMISC bits.
};

}  // namespace orvenza
