#include "standin/event_source.h"

#include <cstdio>
#include <vector>

#include "standin/behaviour.h"
#include "standin/call_log.h"
#include "standin/type_library.h"

namespace orvenza::test {
namespace {

/// Present in many controls, but not used by the program.
class PropertyPoint : public ComObject<IConnectionPoint> {
 public:
  STDMETHODIMP GetConnectionInterface(IID* iid) override {
    *iid = IID_IPropertyNotifySink;
    return S_OK;
  }
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
  STDMETHODIMP Advise(IUnknown*, DWORD*) override { return CONNECT_E_ADVISELIMIT; }
  STDMETHODIMP Unadvise(DWORD) override { return CONNECT_E_NOCONNECTION; }
  STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  Alive alive_;
};

void NoteFailure(DISPID event, HRESULT result) {
  char text[80];
  std::snprintf(text, sizeof text, "the handler of event %ld failed: 0x%08lX", event,
                static_cast<unsigned long>(result));
  Note(text);
}

}  // namespace

long Alive::count = 0;

HRESULT EventSource::Raise(DISPID event) {
  // A copy, since a handler may disconnect itself.
  std::vector<ComPtr<IDispatch>> sinks;
  for (const auto& [cookie, sink] : sinks_) sinks.push_back(ComPtr<IDispatch>::Share(sink.Get()));
  for (const auto& sink : sinks) {
    DISPPARAMS none{};
    const HRESULT result =
        sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
    if (FAILED(result)) {
      NoteFailure(event, result);
      return result;
    }
  }
  return S_OK;
}

HRESULT EventSource::GetConnectionInterface(IID* iid) {
  *iid = kStandInEvents;
  return S_OK;
}

HRESULT EventSource::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  if (Behaviour::Now().Is("deaf")) return CONNECT_E_ADVISELIMIT;
  void* found = nullptr;
  if (FAILED(sink->QueryInterface(kStandInEvents, &found))) return CONNECT_E_CANNOTCONNECT;
  *cookie = ++lastCookie_;
  sinks_.emplace(*cookie, ComPtr<IDispatch>::Take(static_cast<IDispatch*>(found)));
  Note("connected");
  return S_OK;
}

HRESULT EventSource::Unadvise(DWORD cookie) {
  if (sinks_.erase(cookie) == 0) return CONNECT_E_NOCONNECTION;
  Note("disconnected");
  return S_OK;
}

HRESULT ConnectionPoints::Next(ULONG count, IConnectionPoint** points, ULONG* fetched) {
  if (fetched != nullptr) *fetched = 0;
  if (count != 1 || given_ == 2) return S_FALSE;
  if (given_++ == 0) {
    *points = new PropertyPoint;
  } else {
    *points = source_.Get();
    source_->AddRef();
  }
  if (fetched != nullptr) *fetched = 1;
  return S_OK;
}

}  // namespace orvenza::test
