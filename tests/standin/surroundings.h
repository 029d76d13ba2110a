#pragma once

#include "device/windows/com.h"

namespace orvenza::test {

/// An ambient property of the site; VT_EMPTY if the site does not have it.
Variant Ambient(const ComPtr<IOleClientSite>& site, DISPID property);

/// The first ambient property that is missing or has the wrong type; 0 if there is none.
DISPID WrongAmbient(const ComPtr<IOleClientSite>& site);

}  // namespace orvenza::test
