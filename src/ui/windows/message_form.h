#pragma once

#include <functional>

#include "ui/operator.h"
#include "ui/windows/form.h"

namespace orvenza {

/// Plays a sound file like sndPlaySoundA.
using SoundPlayer = std::function<BOOL(const char* path, UINT flags)>;

/// The system's player; silent if the system has none.
SoundPlayer SystemSound();

/// The message dialog `Orv_Msg`; visible from construction. Its buttons are kCommand0 + 1 and following.
class MessageForm final : public Form {
 public:
  /// Plays "ding.wav" from `programFolder`, if it exists, without waiting for its end.
  MessageForm(Desk& desk, const MessageContent& content, const std::string& programFolder,
              const SoundPlayer& play);

 private:
  Extent Arrange(int dpi) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  TextMeasure MeasureOfText() const;
  void ShowImage(const Box& box);

  const bool centred_;
  const MessageIcon image_;
  const int buttons_;
  Icon icon_;
};

}  // namespace orvenza
