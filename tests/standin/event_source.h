#pragma once

#include <map>

#include "device/windows/com.h"

namespace orvenza::test {

/// Counts the living objects of this library, which may be unloaded when there are none.
class Alive {
 public:
  Alive() { ++count; }
  ~Alive() { --count; }
  Alive(const Alive&) = delete;
  Alive& operator=(const Alive&) = delete;

  static long count;
};

/// The connection point of the stand-in's events.
class EventSource : public ComObject<IConnectionPoint> {
 public:
  /// Raises the event in every connected sink until one fails, and returns that failure.
  HRESULT Raise(DISPID event);

  STDMETHODIMP GetConnectionInterface(IID* iid) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  Alive alive_;
  std::map<DWORD, ComPtr<IDispatch>> sinks_;
  DWORD lastCookie_ = 0;
};

/// Enumerates the connection points: one for changed properties, then the one for the events.
class ConnectionPoints : public ComObject<IEnumConnectionPoints> {
 public:
  explicit ConnectionPoints(const ComPtr<EventSource>& source)
      : source_(ComPtr<EventSource>::Share(source.Get())) {}

  STDMETHODIMP Next(ULONG count, IConnectionPoint** points, ULONG* fetched) override;
  STDMETHODIMP Skip(ULONG) override { return E_NOTIMPL; }
  STDMETHODIMP Reset() override { return E_NOTIMPL; }
  STDMETHODIMP Clone(IEnumConnectionPoints**) override { return E_NOTIMPL; }

 private:
  Alive alive_;
  ComPtr<EventSource> source_;
  int given_ = 0;
};

}  // namespace orvenza::test
