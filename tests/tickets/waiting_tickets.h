#pragma once

#include <cstdint>
#include <string>

#include "support/shop.h"

namespace orvenza::test {

/// Drops a new ticket with one command, "1051" and `number`, modified at second `stamp`.
inline void DropAt(Shop& shop, const std::string& name, int number, std::int64_t stamp) {
  shop.Drop(name, {"0;" + std::to_string(number) + ";"});
  shop.folder.SetModified("data\\" + name, stamp);
}

/// The same, left in the in-process folder by an earlier run.
inline void LeaveInProcess(Shop& shop, const std::string& name, int number, std::int64_t stamp) {
  shop.folder.Write("data\\inproces\\" + name, "0;" + std::to_string(number) + ";\r\n");
  shop.folder.SetModified("data\\inproces\\" + name, stamp);
}

/// The content of the ticket folders, new tickets first.
inline Shop::Lines Waiting(const Shop& shop) {
  Shop::Lines names = shop.Names("data");
  for (const std::string& name : shop.Names("data\\inproces")) names.push_back("inproces\\" + name);
  return names;
}

}  // namespace orvenza::test
