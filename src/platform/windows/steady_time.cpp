#include "platform/windows/steady_time.h"

#include <windows.h>

namespace orvenza {

std::chrono::nanoseconds SteadyTime() {
  LARGE_INTEGER frequency{};
  LARGE_INTEGER ticks{};
  ::QueryPerformanceFrequency(&frequency);
  ::QueryPerformanceCounter(&ticks);
  return DurationOfTicks(ticks.QuadPart, frequency.QuadPart);
}

}  // namespace orvenza
