// The program driven by libFuzzer, for the single target in ORVENZA_FUZZ_TARGET.

#include <cstddef>
#include <cstdint>

#include "targets.h"

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer requires this name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orvenza::fuzz::ORVENZA_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
  return 0;
}
