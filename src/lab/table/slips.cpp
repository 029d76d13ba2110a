#include "lab/table/slips.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "core/text.h"
#include "simulator/paper_layout.h"
#include "simulator/simulated_register.h"

namespace orvenza {
namespace {

constexpr const char* kVoided = "ANNULLATO";
constexpr std::size_t kDateLength = std::string_view("16/11/2026 09:00").size();

bool IsHeading(std::string_view text) {
  return text == "NEGOZIO DI PROVA" || text == "REGISTRATORE SIMULATO" || text == "EURO";
}

/// A trimmed line without the figures that change daily.
std::string Lasting(std::string_view line) {
  std::string_view text = Trim(line);
  if (text.size() >= kDateLength && text[2] == '/' && text[5] == '/') text = Trim(text.substr(kDateLength));
  for (const std::string_view figure : {"SCONTRINI", "TOTALE DEL GIORNO"}) {
    if (text.starts_with(figure)) return std::string(figure);
  }
  return std::string(text.substr(0, text.find(" N. ")));
}

bool Contains(const Slip& slip, const std::string& text) {
  return std::any_of(slip.begin(), slip.end(),
                     [&](const std::string& line) { return line.find(text) != std::string::npos; });
}

/// Whether a closed slip shares a line with what is expected, except its end.
bool Shares(const Slip& slip, const std::vector<Slip>& expected) {
  return std::any_of(slip.begin(), slip.end() - 2, [&](const std::string& line) {
    return std::any_of(expected.begin(), expected.end(), [&](const Slip& whole) {
      return std::find(whole.begin(), whole.end(), line) != whole.end();
    });
  });
}

/// Compares `closed` slips with what is expected.
void Count(const std::map<Slip, int>& closed, const std::map<Slip, int>& expected, CustomerPaper& paper) {
  bool first = true;
  for (const auto& [slip, times] : expected) {
    const auto found = closed.find(slip);
    const int copies = found == closed.end() ? 0 : found->second / times;
    paper.whole = first ? copies : std::min(paper.whole, copies);
    first = false;
  }
  for (const auto& [slip, times] : closed) {
    const auto found = expected.find(slip);
    paper.other += times - (found == expected.end() ? 0 : paper.whole * found->second);
  }
}

}  // namespace

std::vector<Slip> SlipsOn(const std::vector<std::string>& paper) {
  const std::string divider = Divider();
  std::vector<Slip> slips;
  Slip slip;
  for (const std::string& line : paper) {
    std::string text = Lasting(line);
    if (!IsHeading(text)) slip.push_back(std::move(text));
    if (line != divider) continue;
    slips.push_back(std::move(slip));
    slip.clear();
  }
  if (!slip.empty()) slips.push_back(std::move(slip));
  return slips;
}

CustomerPaper Compare(const std::vector<std::string>& paper, const std::vector<Slip>& expected,
                      const std::string& foreign) {
  CustomerPaper counted;
  std::map<Slip, int> closed;
  const std::string byHand(SimulatedRegister::kKeyedInItem);
  for (const Slip& slip : SlipsOn(paper)) {
    if (slip.back() != Divider()) {
      counted.open = true;
    } else if (Contains(slip, kVoided)) {
      ++(Contains(slip, byHand) ? counted.keyedInVoided : counted.voided);
    } else if (Contains(slip, byHand)) {
      ++(Shares(slip, expected) ? counted.mixed : counted.keyedIn);
    } else if (!foreign.empty() && Contains(slip, foreign)) {
      ++(Shares(slip, expected) ? counted.mixed : counted.earlier);
    } else {
      ++closed[slip];
    }
  }
  std::map<Slip, int> wanted;
  for (const Slip& slip : expected) {
    if (!Contains(slip, kVoided)) ++wanted[slip];
  }
  Count(closed, wanted, counted);
  return counted;
}

}  // namespace orvenza
