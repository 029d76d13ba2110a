// The program that libFuzzer drives, for the one target that ORVENZA_FUZZ_TARGET names.

#include <cstddef>
#include <cstdint>

#include "targets.h"

// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer looks for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orvenza::fuzz::ORVENZA_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
  return 0;
}
