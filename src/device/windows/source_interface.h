#pragma once

#include <array>

#include "device/windows/com.h"

namespace orvenza {

/// The interface through which the control raises its events, and the numbers of the first four, in the order
/// in which the interface lists them.
struct SourceInterface {
  IID iid{};
  std::array<DISPID, 4> events{1, 2, 3, 4};
};

/// The default source interface of `control`, of class `clsid`. From the control's type information where it
/// has some; otherwise its numbers are taken to be 1 to 4. Throws SystemError 429 when there is none, or one
/// that cannot be listened to or has fewer events.
SourceInterface FindSourceInterface(const ComPtr<IUnknown>& control, REFCLSID clsid);

/// The type that the property `member` is set with, VT_EMPTY when `types` (may be empty) does not tell.
VARTYPE TypeOfProperty(const ComPtr<ITypeInfo>& types, DISPID member);

}  // namespace orvenza
