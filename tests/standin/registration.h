#pragma once

#include <string>

namespace orvenza::test {

/// Registers `library` (an absolute path) as the link control, for the current user only and for programs of
/// the same bitness. Under a Wine that ignores per-user classes it is registered for the whole prefix. Throws
/// std::runtime_error, also when this user has another control of that name.
void RegisterStandIn(const std::wstring& library);

/// Removes the registration. Another control's is kept.
void UnregisterStandIn();

/// The absolute path of the stand-in's library beside this program.
std::wstring StandInLibraryPath();

}  // namespace orvenza::test
