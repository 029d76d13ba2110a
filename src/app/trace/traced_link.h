#pragma once

#include <map>
#include <string>

#include "app/trace/traced_files.h"
#include "device/ecr_link.h"
#include "simulator/simulated_link.h"

namespace orvenza {

/// Passes all calls on to a link control and reports the traffic to a trace, as SimulatedLink reports it to
/// its observer. It makes no calls of its own.
class TracedLink : public EcrLink, private EcrLinkEvents {
 public:
  TracedLink(EcrLink& link, const TraceWatches& watches) : link_(link), watches_(watches) {}

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
  void ReplyReceived() override;
  void LinkError1() override;
  void LinkError2() override;
  void LinkError3() override;
  void Tell(LineEvent event, const std::string& text = {});

  EcrLink& link_;
  const TraceWatches& watches_;
  EcrLinkEvents* events_ = nullptr;
  std::map<LinkProperty, int> properties_;
  std::string message_;
  bool open_ = false;      ///< As the connector last found it.
  bool opening_ = false;   ///< Opening was asked for, but its result not yet.
  bool replying_ = false;  ///< A reply is being delivered.
  bool absent_ = false;    ///< At the latest check.
};

}  // namespace orvenza
