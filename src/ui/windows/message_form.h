#pragma once

#include "ui/operator.h"
#include "ui/windows/form.h"

namespace orvenza {

/// The message dialog `Orv_Msg`, on the screen from the start. Its buttons are kCommand0 + 1 and following.
class MessageForm final : public Form {
 public:
  /// Plays "ding.wav" of `programFolder`, if there is one.
  MessageForm(Desk& desk, const MessageContent& content, const std::string& programFolder);

 private:
  Extent Arrange(int dpi) override;
  TextMeasure MeasureOfText() const;
  void ShowImage(const Box& box);

  const bool centred_;
  const MessageIcon image_;
  const int buttons_;
  Icon icon_;
};

}  // namespace orvenza
