// Registers the stand-in beside this program as the link control of the current user, or removes the
// registration: orvenza_standin_registrar register | unregister

#include <cstdio>
#include <exception>
#include <string_view>

#include "standin/registration.h"

int main(int argc, char** argv) {
  using namespace orvenza::test;
  const std::string_view wish = argc == 2 ? argv[1] : "";
  try {
    if (wish == "register") {
      RegisterStandIn(StandInLibraryPath());
    } else if (wish == "unregister") {
      UnregisterStandIn();
    } else {
      std::fputs("usage: orvenza_standin_registrar register|unregister\n", stderr);
      return 2;
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
