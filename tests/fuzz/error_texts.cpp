// ErrDesc.ini. Properties: every text of the error dialog exists, in UTF-8, within the length limit of a
// value; texts in the shop's file replace the catalogue's.

#include "device/error_texts.h"
#include "core/catalogue.h"
#include "core/text.h"
#include "memory_shop.h"
#include "targets.h"

namespace orvenza::fuzz {

void FuzzErrorTexts(std::string_view input) {
  MemoryShop shop;
  shop.disk.Put(shop.paths.ErrDesc(), std::string(input));
  ErrorTexts texts(shop.profile, shop.paths.ErrDesc());
  texts.LoadEcrErrorTable();
  for (int number = 110; number <= 116; ++number) {
    const MessageId id{number};
    const std::string own = texts.ErrorDescription(id);
    const std::string shown = texts.MessageText(id);
    Require(shown == (own.empty() ? LoadMessage(id) : own),
            "the shop's text stands in place of the catalogue's");
    Require(ToUtf8(own) == own, "a text is UTF-8");
    Require(CountCharacters(own) <= setting::kLongestValue, "a text is no longer than a value is read");
    Require(own.find_first_of("\r\n") == std::string::npos, "a text is one line");
  }
}

}  // namespace orvenza::fuzz
