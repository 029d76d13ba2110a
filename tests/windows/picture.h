#pragma once

#include <windows.h>

namespace orvenza::test {

/// Takes a picture of the visible window `window`, when the environment variable ORVENZA_TEST_PICTURES names
/// a folder for it: "Suite.Test-1-Class.bmp", in the order they were taken in the test.
void TakePicture(HWND window);

/// The same of the part `place` of the screen.
void TakePicture(const RECT& place, const wchar_t* name);

}  // namespace orvenza::test
