#include "app/trace/event_words.h"

#include "app/trace/transcript_text.h"

namespace orvenza {
namespace {

std::string PortText(const std::function<int(LinkProperty)>& property) {
  const auto value = [&](LinkProperty which) { return std::to_string(property(which)); };
  return ": COM" + value(LinkProperty::kPortNumber) + ", " + value(LinkProperty::kBaudRate) +
         " bits a second, end-of-text wait " + value(LinkProperty::kEndOfTextWait) + " ms";
}

}  // namespace

void RecordLine(EventRecorder& recorder, LineEvent event, const std::string& text,
                const std::function<int(LinkProperty)>& property) {
  switch (event) {
    case LineEvent::kSent: recorder.Add("sent", Printable(text)); break;
    case LineEvent::kReceived: recorder.Add("reply", Printable(text)); break;
    case LineEvent::kLinkError: recorder.Add("reply", "link error " + text); break;
    case LineEvent::kAbsent: recorder.Add("absent"); break;
    case LineEvent::kPort: recorder.Add("port", text + (text == "open" ? PortText(property) : "")); break;
  }
}

void RecordClock(EventRecorder& recorder, const std::string& stamp) {
  recorder.Add("clock", "set to " + stamp);
}

void RecordedIcon::CreateIcon(const std::string& tip) {
  recorder_.Add("icon", "shown");
  if (behind_ != nullptr) behind_->CreateIcon(tip);
}

void RecordedIcon::DeleteIcon() {
  recorder_.Add("icon", "taken away");
  if (behind_ != nullptr) behind_->DeleteIcon();
}

}  // namespace orvenza
