#pragma once

#include <string>
#include <string_view>

#include "device/windows/com.h"

namespace orvenza {

/// "0x800401F3 not registered": the number of a failed call, then `description` or, where that is empty, what
/// is known of the number, if anything.
std::string DescribeResult(HRESULT result, std::wstring_view description = {});

/// True when the object at the other end is gone for good.
bool MeansLost(HRESULT result);

/// For a step of creating the control: throws SystemError 429 naming `step` when `result` is a failure.
void CheckCreation(HRESULT result, const char* step);

}  // namespace orvenza
