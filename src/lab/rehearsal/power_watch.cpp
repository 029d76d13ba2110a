#include "lab/rehearsal/power_watch.h"

namespace orvenza {
namespace {

std::string PointOf(const PowerCut& cut) {
  const std::string number = std::to_string(cut.number);
  switch (cut.when) {
    case PowerCut::When::kBeforeCommand: return "before " + cut.command + " #" + number;
    case PowerCut::When::kAfterReply: return "after " + cut.command + " #" + number;
    case PowerCut::When::kAfterChange: break;
  }
  return "at change " + number;
}

}  // namespace

void PowerWatch::Sending(const std::string& command) {
  bool before = false;
  afterReply_ = false;
  for (std::size_t i = 0; i < cuts_.size(); ++i) {
    const PowerCut& cut = cuts_[i];
    if (cut.when == PowerCut::When::kAfterChange || !command.starts_with(cut.command)) continue;
    if (++seen_[i] != cut.number) continue;
    (cut.when == PowerCut::When::kBeforeCommand ? before : afterReply_) = true;
  }
  CutIf(before);
}

void PowerWatch::Changed() {
  bool reached = false;
  for (std::size_t i = 0; i < cuts_.size(); ++i) {
    if (cuts_[i].when == PowerCut::When::kAfterChange && ++seen_[i] == cuts_[i].number) reached = true;
  }
  CutIf(reached);
}

void PowerWatch::CutIf(bool reached) {
  if (!reached) return;
  afterReply_ = false;
  tell_();
  throw PowerFailure{};
}

std::vector<std::string> PowerWatch::Missed() const {
  std::vector<std::string> missed;
  for (std::size_t i = 0; i < cuts_.size(); ++i) {
    if (seen_[i] < cuts_[i].number) missed.push_back(PointOf(cuts_[i]));
  }
  return missed;
}

}  // namespace orvenza
