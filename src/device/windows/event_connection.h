#pragma once

#include "device/ecr_link.h"
#include "device/windows/source_interface.h"

namespace orvenza {

/// Receives the control's events and passes on those that the program handles.
class EventSink : public ComObject<IDispatch> {
 public:
  explicit EventSink(const SourceInterface& source) : source_(source) {}

  /// The receiver; null if none.
  void SetEvents(EcrLinkEvents* events) { events_ = events; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override;

 protected:
  void* Find(REFIID iid) override;

 private:
  SourceInterface source_;
  EcrLinkEvents* events_ = nullptr;
};

/// Connects a sink to a control for its lifetime.
class EventConnection {
 public:
  EventConnection() = default;
  ~EventConnection();
  EventConnection(const EventConnection&) = delete;
  EventConnection& operator=(const EventConnection&) = delete;

  /// Throws SystemError 429.
  void Connect(const ComPtr<IUnknown>& control, const SourceInterface& source);

  void SetEvents(EcrLinkEvents* events) { sink_->SetEvents(events); }

 private:
  ComPtr<EventSink> sink_;
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace orvenza
