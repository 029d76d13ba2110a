; The folder in the Start menu.

!define MENU "$SMPROGRAMS\Orvenza"
; The only entry of earlier versions.
!define FORMER_SHORTCUT "$SMPROGRAMS\Orvenza.lnk"
; Setup knows the names in both languages, because an upgrade may change the language.
!define MANUAL_ITALIAN "Manuale"
!define MANUAL_ENGLISH "Operator's manual (Italian)"
!define CHECK_ITALIAN "Controllo dell'impianto"
!define CHECK_ENGLISH "Check of the installation"
!define SUPPORT_ITALIAN "Dati per l'assistenza"
!define SUPPORT_ENGLISH "Data for support"

!macro SharedStartMenuFunctions un

; Removes the entries in the Start menu besides Orvenza itself, in both languages, and that of an earlier version.
Function ${un}RemoveOtherEntries
  Delete "${FORMER_SHORTCUT}"
  Delete "${MENU}\${MANUAL_ITALIAN}.lnk"
  Delete "${MENU}\${MANUAL_ENGLISH}.lnk"
  Delete "${MENU}\${CHECK_ITALIAN}.lnk"
  Delete "${MENU}\${CHECK_ENGLISH}.lnk"
  Delete "${MENU}\${SUPPORT_ITALIAN}.lnk"
  Delete "${MENU}\${SUPPORT_ENGLISH}.lnk"
FunctionEnd

Function ${un}RemoveStartMenu
  Call ${un}RemoveOtherEntries
  Delete "${MENU}\Orvenza.lnk"
  RMDir "${MENU}"  ; only if it is empty
FunctionEnd

!macroend

!macro StartMenuFunctions

!insertmacro SharedStartMenuFunctions ""
!insertmacro SharedStartMenuFunctions "un."

; The output folder becomes the working folder of the entries.
Function FillStartMenu
  Call RemoveOtherEntries
  CreateDirectory "${MENU}"
  CreateShortcut "${MENU}\Orvenza.lnk" "$INSTDIR\Orvenza.exe"
  CreateShortcut "${MENU}\$(TEXT_MANUAL).lnk" "$INSTDIR\docs\manuale-operatore.html"
  CreateShortcut "${MENU}\$(TEXT_CHECK).lnk" "$INSTDIR\controllo.cmd" "" "$INSTDIR\Orvenza.exe"
  CreateShortcut "${MENU}\$(TEXT_SUPPORT).lnk" "$INSTDIR\assistenza.cmd" '"$DESKTOP"' "$INSTDIR\Orvenza.exe"
FunctionEnd

!macroend
