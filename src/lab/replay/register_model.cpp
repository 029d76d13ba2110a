#include "lab/replay/register_model.h"

#include <utility>

namespace orvenza {

RegisterModel::RegisterModel(RegisterProfile profile, const LocalTime& start)
    : profile_(std::move(profile)), clock_(start) {
  Begin();
}

RegisterModel::RegisterModel(const RegisterModel& other)
    : profile_(other.profile_), clock_(other.clock_), steps_(other.steps_) {
  Begin();
  for (const Step& step : steps_) Do(step);
}

void RegisterModel::Begin() { device_ = std::make_unique<SimulatedRegister>(clock_, paper_, profile_); }

void RegisterModel::PassUntil(std::chrono::milliseconds time) {
  if (time > clock_.Uptime()) clock_.Stall(time - clock_.Uptime());
}

std::string RegisterModel::Do(const Step& step) {
  if (step.runsOut) device_->RunOutOfPaper(*step.runsOut);
  return device_->Execute(step.command);
}

std::string RegisterModel::Execute(const std::string& command, std::optional<Paper> runsOut) {
  if (!device_->ReceiptOpen() && !device_->PaperOut()) {
    // What went before has no effect on any reply.
    steps_.clear();
    Begin();
  }
  steps_.push_back({command, runsOut});
  return Do(steps_.back());
}

void RegisterModel::TakeBack() {
  steps_.pop_back();
  Begin();
  for (const Step& step : steps_) Do(step);
}

}  // namespace orvenza
