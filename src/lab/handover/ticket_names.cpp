#include "lab/handover/ticket_names.h"

#include <algorithm>
#include <initializer_list>
#include <stdexcept>

#include "core/text.h"
#include "lab/shell/wording.h"
#include "platform/name_mask.h"
#include "tickets/outcome_files.h"
#include "tickets/ticket_archive.h"
#include "tickets/ticket_listing.h"

namespace orvenza {
namespace {

constexpr int kMostNumbers = 10'000;

std::string Behind(const std::string& name, int number) {
  const std::size_t point = std::min(name.rfind('.'), name.size());
  return name.substr(0, point) + "-" + std::to_string(number) + name.substr(point);
}

std::string InFront(const std::string& name, int number) { return std::to_string(number) + "-" + name; }

}  // namespace

std::string TicketNames::NameFor(const std::string& path) {
  const std::string name = FittingName(path);
  const auto choose = [this](const std::string& candidate) {
    const bool usable = MatchesMask(candidate, settings_.TicketMask) && IsFree(candidate);
    return usable && chosen_.insert(ToUpperAscii(candidate)).second;
  };
  if (choose(name)) return name;
  for (const auto naming : {Behind, InFront}) {
    for (int number = 2; number <= kMostNumbers; ++number) {
      if (const std::string numbered = naming(name, number); choose(numbered)) return numbered;
    }
  }
  throw std::runtime_error(Quoted(name) + " is taken, and no numbered name is free that the mask " +
                           Quoted(settings_.TicketMask) + " of the settings fits");
}

std::string TicketNames::FittingName(const std::string& path) const {
  const std::string& mask = settings_.TicketMask;
  const std::string name = path.substr(path.find_last_of("\\/") + 1);
  const std::string fitting =
      mask.starts_with('*') ? name.substr(0, name.rfind('.')) + mask.substr(1) : std::string();
  for (const std::string& candidate : {name, fitting}) {
    if (MatchesMask(candidate, mask) && candidate.find_first_of("*?") == std::string::npos) return candidate;
  }
  throw std::runtime_error("the mask " + Quoted(mask) + " of the settings does not fit the name " +
                           Quoted(name) + "; rename the file");
}

bool TicketNames::IsFree(const std::string& name) const {
  const std::string& outcomes = settings_.OutcomesFolder;
  return !MayExist(files_, settings_.TicketFolder + name) &&
         !MayExist(files_, settings_.InProcessFolder + name) &&
         !MayExist(files_, settings_.AbortFolder + AbortName(name)) &&
         (outcomes.empty() || !MayExist(files_, outcomes + OutcomeName(name)));
}

bool ComesBefore(const std::string& name, const std::string& other) {
  const std::string sameTime(TicketListing::kStampLength, '0');
  return TicketListing::IsOlder(sameTime + name, sameTime + other);
}

}  // namespace orvenza
