#pragma once

#include <windows.h>

#include <string>

namespace orvenza::test {

// What a person at the screen sees and does, with the windows of any program. Coordinates are in pixels.

/// Pixels per inch of the screen.
int ScreenDpi();

std::wstring ClassOf(HWND window);
/// The text of a window or a control.
std::string TextOf(HWND window);
std::string TextOf(HWND form, int id);

/// The input state of the thread of `window`.
GUITHREADINFO StateOf(HWND window);
/// The focused control in the program of `form`.
HWND FocusOf(HWND form);
int FocusedId(HWND form);
/// Whether `form` is in front, enabled and focused.
bool IsReady(HWND form);

/// The position of a control in its form.
RECT PlaceOf(HWND form, int id);

/// Like a real key press: it goes to the window with the keyboard focus.
void Press(WORD key);
void PressWith(WORD modifier, WORD key);
void PressWithAlt(WORD key);
/// Clicks the left mouse button.
void ClickAt(LONG x, LONG y);
/// Turns the wheel by notches at the pointer's place; towards the person if negative.
void TurnWheel(int notches);
/// Clicks the middle of the control.
void Click(HWND form, int id);
/// Clicks the title bar's close button.
void CloseByCross(HWND form);

}  // namespace orvenza::test
