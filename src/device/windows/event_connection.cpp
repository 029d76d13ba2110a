#include "device/windows/event_connection.h"

#include "device/windows/com_error.h"

namespace orvenza {

void* EventSink::Find(REFIID iid) {
  if (iid == source_.iid) return static_cast<IDispatch*>(this);
  return ComObject::Find(iid);
}

HRESULT EventSink::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return E_NOTIMPL;
}

HRESULT EventSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
  using Handler = void (EcrLinkEvents::*)();
  constexpr Handler kInOrder[] = {&EcrLinkEvents::ReplyReceived, &EcrLinkEvents::LinkError1,
                                  &EcrLinkEvents::LinkError3, &EcrLinkEvents::LinkError2};
  for (std::size_t i = 0; i < source_.events.size(); ++i) {
    if (source_.events[i] != member) continue;
    if (events_ == nullptr) return S_OK;
    try {
      (events_->*kInOrder[i])();
      return S_OK;
    } catch (...) {
      return E_UNEXPECTED;  // The caller is the control, which does not know our exceptions.
    }
  }
  // Unknown events are accepted, too: some controls give up when a listener fails.
  return S_OK;
}

EventConnection::~EventConnection() {
  if (sink_) sink_->SetEvents(nullptr);
  if (point_) point_->Unadvise(cookie_);
}

void EventConnection::Connect(const ComPtr<IUnknown>& control, const SourceInterface& source) {
  const auto container = control.As<IConnectionPointContainer>();
  if (!container) CheckCreation(CONNECT_E_NOCONNECTION, "events");
  ComPtr<IConnectionPoint> point;
  CheckCreation(container->FindConnectionPoint(source.iid, point.Put()), "events");
  sink_ = MakeCom<EventSink>(source);
  CheckCreation(point->Advise(sink_.Get(), &cookie_), "events");
  point_ = std::move(point);
}

}  // namespace orvenza
