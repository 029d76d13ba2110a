#pragma once

#include <string>

namespace orvenza::test {

/// Registers `library` (a full path) as the link control, for the current user only and for programs of this
/// one's kind. Under a Wine that does not look at the classes of the user, for its whole prefix. Throws
/// std::runtime_error, also when another control goes by that name for this user.
void RegisterStandIn(const std::wstring& library);

/// Takes the registration back. Leaves another control's alone.
void UnregisterStandIn();

/// The stand-in's library beside this program, as a full path.
std::wstring StandInLibraryPath();

}  // namespace orvenza::test
