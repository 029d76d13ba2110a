#pragma once

/// The names and numbers by which other programs find the windows and their controls.
namespace orvenza {

/// Window classes of the forms, and of the icon's window, a child of Orv_Main.
namespace window_class {
inline constexpr const wchar_t* kOrvMain = L"Orv_Main";
inline constexpr const wchar_t* kPicture1 = L"Picture1";
inline constexpr const wchar_t* kOrvMsg = L"Orv_Msg";
inline constexpr const wchar_t* kOrvInfo = L"Orv_Info";
inline constexpr const wchar_t* kOrvConf = L"Orv_Conf";
inline constexpr const wchar_t* kOrvUti = L"Orv_Uti";
inline constexpr const wchar_t* kOrvSession =
    L"Orv_Session";  ///< Hidden; receives the end of the Windows session.
inline constexpr const wchar_t* kOrvRegister = L"Orv_Register";  ///< The simulated register.
inline constexpr const wchar_t* kOrvRoll = L"Orv_Roll";          ///< Its roll; the text is what is in view.
}  // namespace window_class

/// Control numbers. The controls of an array are consecutive: the member i of Command0 is kCommand0 + i. 1
/// and 2 are reserved for Enter and Esc.
namespace control_id {
// Orv_Main
inline constexpr int kPicture1 = 10;

// Orv_Msg
inline constexpr int kText1 = 20;
inline constexpr int kImage = 21;     ///< 21 stop, 22 question, 23 exclamation, 24 information.
inline constexpr int kCommand0 = 30;  ///< 31 to 33.

// Orv_Info
inline constexpr int kLabel1 = 41;
inline constexpr int kLabel2 = 42;
inline constexpr int kOption1 = 50;  ///< 51 and following.

// Orv_Conf
inline constexpr int kLabel = 60;  ///< 60 to 64.
inline constexpr int kCombo = 70;  ///< 71 to 75, Combo1 to Combo5.

// Orv_Info and Orv_Conf
inline constexpr int kFrame1 = 80;

// Orv_Info, Orv_Conf (kCommand + 1) and Orv_Uti (1 to 3)
inline constexpr int kCommand = 90;

// Orv_Register
inline constexpr int kRollHeading = 100;
inline constexpr int kRoll = 101;
inline constexpr int kSaveRoll = 102;
inline constexpr int kSwitchesHeading = 103;
inline constexpr int kFaultsHeading = 104;
inline constexpr int kFaults = 105;
inline constexpr int kNextCommand = 106;
inline constexpr int kUntilOff = 107;
inline constexpr int kChosenFault = 108;
inline constexpr int kSwitchOff = 109;
inline constexpr int kCountersHeading = 110;
inline constexpr int kCounters = 111;
inline constexpr int kCopyScenario = 112;
inline constexpr int kStatus = 113;
inline constexpr int kSwitch = 120;  ///< 120 and following.
}  // namespace control_id

/// The timer that flashes the title bars of Orv_Msg and Orv_Info.
inline constexpr int kTmrFlash = 1;

/// The timer of Orv_Main that closes a menu left open.
inline constexpr int kTmrMenu = 2;

/// The timer of Orv_Main that retries to show the icon.
inline constexpr int kTmrIcon = 3;

/// Sent by the icon to Picture1; its last parameter is the mouse message.
inline constexpr unsigned kIconMessage = 512;

}  // namespace orvenza
