#pragma once

#include "device/windows/com.h"

namespace orvenza::test {

/// An ambient property of the site, of type VT_EMPTY when the site does not have it.
Variant Ambient(const ComPtr<IOleClientSite>& site, DISPID property);

/// The first ambient property that the site lacks or gives in a wrong type, 0 when there is none.
DISPID WrongAmbient(const ComPtr<IOleClientSite>& site);

}  // namespace orvenza::test
