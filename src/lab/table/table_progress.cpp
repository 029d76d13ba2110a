#include "lab/table/table_progress.h"

#include <ostream>
#include <string>

namespace orvenza {

using namespace std::chrono_literals;

void TableProgress::Tell(std::size_t done, std::size_t all) {
  if (!console_.progress || clock_.Uptime() - start_ < 1s) return;
  const std::size_t percent = 100 * done / all;
  if (percent == shown_) return;
  shown_ = percent;
  console_.err << "\rplayed: " << percent << " %" << std::flush;
}

void TableProgress::End() {
  if (shown_ > 0) console_.err << "\r" << std::string(16, ' ') << "\r" << std::flush;
}

}  // namespace orvenza
