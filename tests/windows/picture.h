#pragma once

#include <windows.h>

namespace orvenza::test {

/// Takes a picture of the visible `window` if the environment variable ORVENZA_TEST_PICTURES names a folder.
/// The file is called "Suite.Test-1-Class.bmp", numbered in the order within the test.
void TakePicture(HWND window);

/// The same for the rectangle `place` of the screen.
void TakePicture(const RECT& place, const wchar_t* name);

}  // namespace orvenza::test
