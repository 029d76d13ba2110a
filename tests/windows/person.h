#pragma once

#include <windows.h>

#include <string>

namespace orvenza::test {

// What a person at the screen sees and does, with the windows of any program. Coordinates are pixels.

/// Pixels an inch of the screen.
int ScreenDpi();

std::wstring ClassOf(HWND window);
/// The text of a window, or a control.
std::string TextOf(HWND window);
std::string TextOf(HWND form, int id);

/// What the keyboard and the mouse mean to the thread of `window`.
GUITHREADINFO StateOf(HWND window);
/// The control with the focus in the program of `form`.
HWND FocusOf(HWND form);
int FocusedId(HWND form);
/// Whether `form` is in front, can be used, and has the focus.
bool IsReady(HWND form);

/// The place of a control in its form.
RECT PlaceOf(HWND form, int id);

/// As with a finger: the key goes to whoever has the keyboard now.
void Press(WORD key);
void PressWith(WORD modifier, WORD key);
void PressWithAlt(WORD key);
/// The left button of the mouse.
void ClickAt(LONG x, LONG y);
/// The same, on the control's middle.
void Click(HWND form, int id);
/// The cross of the title bar.
void CloseByCross(HWND form);

}  // namespace orvenza::test
