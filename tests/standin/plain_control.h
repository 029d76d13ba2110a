#pragma once

#include "device/windows/com.h"

namespace orvenza::test {

/// The interfaces of a control; everything that the stand-in does not need is refused.
class PlainControl
    : public ComObject<IOleObject, IOleInPlaceObject, IPersistStreamInit, IPersistStorage,
                       IPersistPropertyBag, IProvideClassInfo2, IConnectionPointContainer, IDispatch> {
 public:
  // IOleObject
  STDMETHODIMP GetClientSite(IOleClientSite**) override { return E_NOTIMPL; }
  STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
  STDMETHODIMP EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
  STDMETHODIMP Update() override { return S_OK; }
  STDMETHODIMP IsUpToDate() override { return S_OK; }
  STDMETHODIMP GetUserClassID(CLSID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
  STDMETHODIMP SetExtent(DWORD, SIZEL*) override { return S_OK; }
  STDMETHODIMP GetExtent(DWORD, SIZEL*) override { return E_NOTIMPL; }
  STDMETHODIMP Advise(IAdviseSink*, DWORD*) override { return OLE_E_ADVISENOTSUPPORTED; }
  STDMETHODIMP Unadvise(DWORD) override { return OLE_E_NOCONNECTION; }
  STDMETHODIMP EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
  STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

  // IOleInPlaceObject
  STDMETHODIMP GetWindow(HWND*) override { return E_NOTIMPL; }
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP UIDeactivate() override { return S_OK; }
  STDMETHODIMP SetObjectRects(LPCRECT, LPCRECT) override { return S_OK; }
  STDMETHODIMP ReactivateAndUndo() override { return E_NOTIMPL; }

  // The three kinds of persistence
  STDMETHODIMP GetClassID(CLSID*) override { return E_NOTIMPL; }
  STDMETHODIMP IsDirty() override { return S_FALSE; }
  STDMETHODIMP Load(IStream*) override { return E_NOTIMPL; }
  STDMETHODIMP Save(IStream*, BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
  STDMETHODIMP Load(IStorage*) override { return E_NOTIMPL; }
  STDMETHODIMP Save(IStorage*, BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP SaveCompleted(IStorage*) override { return E_NOTIMPL; }
  STDMETHODIMP HandsOffStorage() override { return E_NOTIMPL; }
  STDMETHODIMP Load(IPropertyBag*, IErrorLog*) override { return E_NOTIMPL; }
  STDMETHODIMP Save(IPropertyBag*, BOOL, BOOL) override { return E_NOTIMPL; }

  // IDispatch
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
};

}  // namespace orvenza::test
