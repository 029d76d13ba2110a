#pragma once

#include <memory>
#include <string>

#include "device/ecr_link.h"

namespace orvenza {

/// The register maker's link control, hosted in a hidden window. Use it only on the thread that pumps window
/// messages; events arrive during the pump.
///
/// The control is created on first use. While that fails, every member throws SystemError 429 with the
/// reason, and each reset, the first step of every opening, tries again. A failing member throws SystemError
/// 57 with its number and the reason; so does every member of a control that has died, until the next reset
/// replaces it.
class EcrLinkAdapter : public EcrLink {
 public:
  EcrLinkAdapter();
  ~EcrLinkAdapter() override;
  EcrLinkAdapter(const EcrLinkAdapter&) = delete;
  EcrLinkAdapter& operator=(const EcrLinkAdapter&) = delete;

  void SetEvents(EcrLinkEvents* events) override;
  std::string RxMessage() override;
  void SetMessage(const std::string& text) override;
  void Send() override;
  bool DevicePresent() override;
  bool PortOpen() override;
  void SetPortOpen(bool open) override;
  void SetReset(bool reset) override;
  void SetProperty(LinkProperty property, int value) override;

 private:
  class Hosting;
  std::unique_ptr<Hosting> hosting_;
};

}  // namespace orvenza
