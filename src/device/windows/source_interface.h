#pragma once

#include <array>

#include "device/windows/com.h"

namespace orvenza {

/// The interface through which the control raises its events, with the numbers of the first four, in the
/// interface's order.
struct SourceInterface {
  IID iid{};
  std::array<DISPID, 4> events{1, 2, 3, 4};
};

/// The default source interface of `control`, of class `clsid`, from the control's type information if it has
/// any; otherwise the events are assumed to have the numbers 1 to 4. Throws SystemError 429 when there is no
/// interface, or when it cannot be connected or has fewer events.
SourceInterface FindSourceInterface(const ComPtr<IUnknown>& control, REFCLSID clsid);

/// The declared type of the property `member`; VT_EMPTY when `types` (may be empty) does not tell.
VARTYPE TypeOfProperty(const ComPtr<ITypeInfo>& types, DISPID member);

}  // namespace orvenza
