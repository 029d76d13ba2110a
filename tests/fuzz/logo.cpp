// A logo's bitmap. Properties: it has no more rows than the register stores, and only a file with the marks
// of a bitmap of the register's width is accepted.

#include "device/logo_check.h"

#include <cstdint>
#include <optional>
#include <string>

#include "memory_shop.h"
#include "targets.h"

namespace orvenza::fuzz {

void FuzzLogo(std::string_view input) {
  const std::string path = "C:\\Shop\\logo.bmp";
  MemoryShop shop;
  shop.disk.Put(path, std::string(input));
  const std::optional<std::uint32_t> rows = LogoRows(shop.disk.FileSeam(), path);
  Require(IsValidLogoBitmap(shop.disk.FileSeam(), path) == rows.has_value(), "a valid logo is one with rows");
  if (!rows) return;
  Require(*rows <= kLogoMostRows, "a logo has no more rows than the register stores");
  Require(input.size() >= 30 && input.starts_with("BM"), "a logo begins as a bitmap does");
  Require(LogoHeaderValue(input.substr(18, 4)) == kLogoWidth, "a logo has the register's width");
}

}  // namespace orvenza::fuzz
