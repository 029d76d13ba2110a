#pragma once

#include <string>

namespace orvenza {

/// The events of the link control, in the order of its event list. They arrive while the program pumps
/// events; some controls also raise them from inside Send.
class EcrLinkEvents {
 public:
  virtual ~EcrLinkEvents() = default;

  virtual void ReplyReceived() = 0;
  virtual void LinkError1() = 0;
  virtual void LinkError3() = 0;
  virtual void LinkError2() = 0;
};

/// The integer properties of the link control, by member number. Units and ranges are the control's own.
enum class LinkProperty {
  kBaudRate = 7,
  kParity = 8,  ///< N 0, O 1, E 2, M 3, S 4.
  kDataBits = 9,
  kStopBits = 10,
  kIdentifier = 11,  ///< A character code.
  kAcknowledgementWait = 12,
  kEndOfTextWait = 13,
  kFrameRetries = 14,
  kMessageRetries = 15,
  kPortNumber = 16,
};

/// The name under which the link control is registered with the system.
inline constexpr const char* kLinkControlName = "EcrLinkXControl1.EcrLinkX";

/// `EcrLinkX1`: the control that owns the serial line to the register. It handles framing, acknowledgement
/// and retransmission. Every member throws SystemError when the control fails.
class EcrLink {
 public:
  virtual ~EcrLink() = default;

  /// Sets the receiver of the events; null if none.
  virtual void SetEvents(EcrLinkEvents* events) = 0;

  /// The reply just received (member 1); to be read in ReplyReceived.
  virtual std::string RxMessage() = 0;

  /// The text to send next (member 17).
  virtual void SetMessage(const std::string& text) = 0;

  /// Sends the message (member 2) and returns at once. An event follows, possibly before this returns, or
  /// none when there is no answer.
  virtual void Send() = 0;

  /// True when the register is powered and connected (member 5).
  virtual bool DevicePresent() = 0;

  /// Whether the serial port is open (member 6).
  virtual bool PortOpen() = 0;

  /// Opens or closes the serial port (member 6). Read it back to see whether opening succeeded.
  virtual void SetPortOpen(bool open) = 0;

  /// First step of every opening (member 18).
  virtual void SetReset(bool reset) = 0;

  virtual void SetProperty(LinkProperty property, int value) = 0;
};

}  // namespace orvenza
