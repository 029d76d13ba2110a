#pragma once

#include <functional>

#include "ui/operator.h"
#include "ui/windows/form.h"

namespace orvenza {

/// Plays a sound file as sndPlaySoundA does.
using SoundPlayer = std::function<BOOL(const char* path, UINT flags)>;

/// The system's player, which is silent where the system has none.
SoundPlayer SystemSound();

/// The message dialog `Orv_Msg`, on the screen from the start. Its buttons are kCommand0 + 1 and following.
class MessageForm final : public Form {
 public:
  /// Plays "ding.wav" of `programFolder`, if there is one, and does not wait for its end.
  MessageForm(Desk& desk, const MessageContent& content, const std::string& programFolder,
              const SoundPlayer& play);

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
