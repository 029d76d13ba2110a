#pragma once

#include <string>
#include <string_view>

#include "device/windows/com.h"

namespace orvenza {

/// "0x800401F3 not registered": the number of a failed call, then `description` or, if that is empty, the
/// known description of the number, if any.
std::string DescribeResult(HRESULT result, std::wstring_view description = {});

/// Whether the object at the other end is gone for good.
bool MeansLost(HRESULT result);

/// For a step of creating the control: throws SystemError 429 naming `step` if `result` is a failure.
void CheckCreation(HRESULT result, const char* step);

}  // namespace orvenza
