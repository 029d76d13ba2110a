#pragma once

#include <string>

#include "device/ecr_link.h"
#include "standin/behaviour.h"
#include "standin/event_source.h"
#include "standin/plain_control.h"
#include "standin/standin_line.h"
#include "standin/type_library.h"

namespace orvenza::test {

/// A stand-in for the link control, as strict as a real one may be: it works only after being sited,
/// initialised and activated in the right order, in a container in run mode with ambient properties, and
/// accepts only arguments of the declared types. Its integers cannot be changed while its port is open;
/// nothing is sent while it is closed. Calls are logged.
class StandInControl : public PlainControl, private EcrLinkEvents {
 public:
  StandInControl();

  // IOleObject
  STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
  STDMETHODIMP SetClientSite(IOleClientSite* site) override;
  STDMETHODIMP DoVerb(LONG verb, MSG*, IOleClientSite* site, LONG, HWND window, LPCRECT place) override;
  STDMETHODIMP Close(DWORD option) override;

  // IOleInPlaceObject
  STDMETHODIMP InPlaceDeactivate() override;

  // The three kinds of persistence
  STDMETHODIMP InitNew() override;
  STDMETHODIMP InitNew(IStorage* storage) override;

  // IProvideClassInfo2
  STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

  // IConnectionPointContainer
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
  STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

  // IDispatch
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override;
  STDMETHODIMP Invoke(DISPID number, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT* wrongArgument) override;

 protected:
  ~StandInControl() override;
  void* Find(REFIID iid) override;

 private:
  void ReplyReceived() override { Raise(0); }
  void LinkError1() override { Raise(1); }
  void LinkError3() override { Raise(2); }
  void LinkError2() override { Raise(3); }
  void Raise(std::size_t event);

  HRESULT Initialise();
  HRESULT Activate(HWND window);
  HRESULT Get(DISPID number, VARIANT& result);
  HRESULT Put(const Member& member, VARIANT& value);
  HRESULT Send();

  Alive alive_;
  Behaviour behaviour_ = Behaviour::Now();
  TypeLibrary types_;
  ComPtr<EventSource> events_ = MakeCom<EventSource>();
  StandInLine line_;
  ComPtr<IOleClientSite> site_;
  HWND window_ = nullptr;  ///< While it is active.
  std::string message_;
  bool initialised_ = false;
  bool dead_ = false;
};

}  // namespace orvenza::test
