#pragma once

#include <memory>
#include <string>

#include "device/ecr_link.h"

namespace orvenza {

/// The link control of the register's maker, hosted in a hidden window of our own. To be used on the one
/// thread that pumps window messages, during which its events come.
///
/// The control is created at the first use. While it cannot be created every member throws SystemError 429
/// with the reason, and each reset, the first step of every opening, tries again. A member that fails throws
/// SystemError 57 with its number and the reason; a control that is gone fails so until the next reset
/// replaces it by a new one.
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
