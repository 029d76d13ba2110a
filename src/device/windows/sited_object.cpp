#include "device/windows/sited_object.h"

#include "device/windows/com_error.h"
#include "device/windows/control_site.h"

namespace orvenza {
namespace {

/// A storage in memory, for controls that can initialise their state in no other way.
HRESULT InitialiseInStorage(IPersistStorage& persistence) {
  ComPtr<ILockBytes> bytes;
  HRESULT result = ::CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Put());
  if (FAILED(result)) return result;
  ComPtr<IStorage> storage;
  result = ::StgCreateDocfileOnILockBytes(bytes.Get(), STGM_SHARE_EXCLUSIVE | STGM_CREATE | STGM_READWRITE, 0,
                                          storage.Put());
  return FAILED(result) ? result : persistence.InitNew(storage.Get());
}

HRESULT InitialiseFresh(const ComPtr<IOleObject>& object) {
  HRESULT result = E_NOTIMPL;
  if (const auto stream = object.As<IPersistStreamInit>()) result = stream->InitNew();
  if (result != E_NOTIMPL) return result;
  if (const auto storage = object.As<IPersistStorage>()) return InitialiseInStorage(*storage.Get());
  if (const auto bag = object.As<IPersistPropertyBag>()) return bag->InitNew();
  return S_OK;  // It keeps no state.
}

/// The control's OLEMISC bits; 0 when it reports none.
DWORD StatusOf(const ComPtr<IOleObject>& object, REFCLSID clsid) {
  DWORD status = 0;
  HRESULT result = object->GetMiscStatus(DVASPECT_CONTENT, &status);
  if (result == OLE_S_USEREG) result = ::OleRegGetMiscStatus(clsid, DVASPECT_CONTENT, &status);
  return SUCCEEDED(result) ? status : 0;
}

}  // namespace

SitedObject::~SitedObject() {
  if (!object_) return;
  if (const auto inPlace = object_.As<IOleInPlaceObject>()) inPlace->InPlaceDeactivate();
  object_->Close(OLECLOSE_NOSAVE);
  object_->SetClientSite(nullptr);
}

void SitedObject::Place(const ComPtr<IUnknown>& control, REFCLSID clsid, IOleClientSite* site) {
  object_ = control.As<IOleObject>();
  if (!object_) return;
  status_ = StatusOf(object_, clsid);
  const bool siteFirst = (status_ & OLEMISC_SETCLIENTSITEFIRST) != 0;
  if (siteFirst) CheckCreation(object_->SetClientSite(site), "site");
  CheckCreation(InitialiseFresh(object_), "initialisation");
  if (!siteFirst) CheckCreation(object_->SetClientSite(site), "site");
}

void SitedObject::Activate(IOleClientSite* site, HWND window) {
  if (!object_) return;
  if (const auto runnable = object_.As<IRunnableObject>()) runnable->Run(nullptr);
  const RECT place = HiddenWindow::Place();
  HRESULT result = object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site, 0, window, &place);
  if (FAILED(result)) result = object_->DoVerb(OLEIVERB_SHOW, nullptr, site, 0, window, &place);
  if ((status_ & OLEMISC_INVISIBLEATRUNTIME) == 0) CheckCreation(result, "activation");
}

}  // namespace orvenza
