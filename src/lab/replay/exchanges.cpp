#include "lab/replay/exchanges.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <utility>

#include "core/catalogue.h"
#include "core/text.h"

namespace orvenza {
namespace {

using std::chrono::milliseconds;

constexpr int kUsualSpeed = 19200;
constexpr int kBitsPerCharacter = 10;
constexpr std::size_t kCode = 4;
constexpr std::size_t kShortestReply = 6;
/// Two times rounded to milliseconds differ by no more than this.
constexpr milliseconds kExact{3};
constexpr std::string_view kLinkError = "link error ";

int NumberIn(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// Undoes Printable as far as the register's encoding goes.
std::string InWindows1252(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const std::string character = FirstCharacters(text, 1);
    bytes += FirstInWindows1252(character);
    text.remove_prefix(character.size());
  }
  return bytes;
}

/// Gives each reply to its command.
class ExchangeReader {
 public:
  std::vector<Exchange> Read(const std::vector<TracedEvent>& events, std::size_t first, std::size_t end) {
    for (std::size_t i = 0; i < end; ++i) Take(events[i], i);
    if (end > 0) Cut(events[end - 1].passed);
    std::erase_if(exchanges_, [first](const Exchange& exchange) { return exchange.event < first; });
    return std::move(exchanges_);
  }

 private:
  void Take(const TracedEvent& event, std::size_t number) {
    if (event.kind == "sent") {
      exchanges_.push_back(
          {InWindows1252(event.text), event.passed, event.at, speed_, {}, 0, event.passed, number});
      open_.push_back(exchanges_.size() - 1);
    } else if (event.kind == "reply") {
      TakeReply(event);
    } else if (event.kind == "answer" && !exchanges_.empty()) {
      if (event.text == LoadMessage(MessageId::kReceiptPrinted)) exchanges_.back().saidPrinted = true;
    } else if (event.kind == "start") {
      Cut(event.passed);
    } else if (event.kind == "port") {
      if (const std::size_t comma = event.text.find(", "); comma != std::string::npos)
        speed_ = NumberIn(std::string_view(event.text).substr(comma + 2));
      if (event.text == "closed") Cut(event.passed);
    }
  }

  void TakeReply(const TracedEvent& event) {
    if (open_.empty()) return;
    const auto found = open_.begin() + static_cast<std::ptrdiff_t>(FindCommand(event));
    Exchange& exchange = exchanges_[*found];
    open_.erase(found);
    exchange.ended = event.passed;
    if (event.text.starts_with(kLinkError))
      exchange.linkError = std::max(1, NumberIn(std::string_view(event.text).substr(kLinkError.size())));
    else
      exchange.reply = InWindows1252(event.text);
  }

  /// The place in `open_` of the command that a reply belongs to: the latest whose code it has, unless it
  /// comes sooner than the line allows; for an error, the latest.
  std::size_t FindCommand(const TracedEvent& event) const {
    std::size_t found = open_.size() - 1;
    bool fits = false;
    for (std::size_t i = 0; i < open_.size(); ++i) {
      const Exchange& exchange = exchanges_[open_[i]];
      const milliseconds least =
          LineTime(exchange.command.size() + event.text.size(), exchange.speed) - kExact;
      const bool hasCode = event.text.substr(0, kCode) == exchange.command.substr(0, kCode);
      if (!hasCode || (fits && event.passed - exchange.sent < least)) continue;
      found = i;
      fits = true;
    }
    return found;
  }

  void Cut(milliseconds now) {
    for (const std::size_t i : open_) {
      Exchange& exchange = exchanges_[i];
      exchange.ended = now;
      exchange.cut =
          now - exchange.sent <= LineTime(exchange.command.size() + kShortestReply, exchange.speed);
    }
    open_.clear();
  }

  std::vector<Exchange> exchanges_;
  std::vector<std::size_t> open_;  ///< Without a reply so far.
  int speed_ = kUsualSpeed;
};

}  // namespace

std::vector<Exchange> ReadExchanges(const std::vector<TracedEvent>& events, std::size_t first,
                                    std::size_t end) {
  return ExchangeReader().Read(events, first, end);
}

milliseconds LineTime(std::size_t characters, int speed) {
  if (speed <= 0) return {};
  return milliseconds(static_cast<long long>(characters) * kBitsPerCharacter * 1000 / speed);
}

}  // namespace orvenza
