#include "device/windows/ecr_link_adapter.h"

#include <optional>

#include "device/windows/com_error.h"
#include "device/windows/link_control.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

namespace member {
constexpr DISPID kRxMessage = 1;
constexpr DISPID kSend = 2;
constexpr DISPID kDevicePresent = 5;
constexpr DISPID kPortOpen = 6;
constexpr DISPID kMessage = 17;
constexpr DISPID kReset = 18;
}  // namespace member

}  // namespace

/// The control, or the reason why there is none.
class EcrLinkAdapter::Hosting {
 public:
  void SetEvents(EcrLinkEvents* events) {
    events_ = events;
    if (control_) control_->SetEvents(events);
  }

  LinkControl& Control() {
    if (control_) return *control_;
    if (refusal_) throw SystemError(*refusal_);
    return Create();
  }

  /// The control for a new opening.
  LinkControl& FreshControl() {
    if (control_ && control_->Lost()) control_.reset();
    return control_ ? *control_ : Create();
  }

 private:
  LinkControl& Create() {
    try {
      CheckCreation(ole_.Result(), "OLE");
      control_ = std::make_unique<LinkControl>(kLinkControlName);
    } catch (const SystemError& error) {
      refusal_ = error;
      throw;
    }
    control_->SetEvents(events_);
    return *control_;
  }

  OleGuard ole_;
  EcrLinkEvents* events_ = nullptr;
  std::optional<SystemError> refusal_;  ///< Why the last attempt to create the control failed.
  std::unique_ptr<LinkControl> control_;
};

EcrLinkAdapter::EcrLinkAdapter() : hosting_(std::make_unique<Hosting>()) {}
EcrLinkAdapter::~EcrLinkAdapter() = default;

void EcrLinkAdapter::SetEvents(EcrLinkEvents* events) { hosting_->SetEvents(events); }

std::string EcrLinkAdapter::RxMessage() { return hosting_->Control().GetText(member::kRxMessage); }

void EcrLinkAdapter::SetMessage(const std::string& text) {
  hosting_->Control().PutText(member::kMessage, text);
}

void EcrLinkAdapter::Send() { hosting_->Control().Call(member::kSend); }

bool EcrLinkAdapter::DevicePresent() { return hosting_->Control().GetBoolean(member::kDevicePresent); }

bool EcrLinkAdapter::PortOpen() { return hosting_->Control().GetBoolean(member::kPortOpen); }

void EcrLinkAdapter::SetPortOpen(bool open) { hosting_->Control().PutBoolean(member::kPortOpen, open); }

void EcrLinkAdapter::SetReset(bool reset) { hosting_->FreshControl().PutBoolean(member::kReset, reset); }

void EcrLinkAdapter::SetProperty(LinkProperty property, int value) {
  hosting_->Control().PutInteger(static_cast<DISPID>(property), value);
}

}  // namespace orvenza
