; The setup program. ./package compiles it, with
;   VERSION  the program's version
;   STAGE    the folder of the files to install
;   MANUALS  the list of those below docs and examples: macros to install and to remove them
;   OUTPUT   the setup program to write
;   SIGN     optional: a command that signs the program named after it

Unicode true
ManifestDPIAware true
ManifestSupportedOS all
ManifestLongPathAware true
SetCompressor /SOLID lzma
; If a file cannot be replaced, setup fails: new and old programs must not be mixed.
AllowSkipFiles off

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh
!include former.nsh
!include start_menu.nsh
!include texts.nsh
!include "${MANUALS}"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Orvenza"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"

; Exit codes besides 0, and NSIS's own 1 (cancelled) and 2 (failed).
!define EXIT_RUNNING 3
!define EXIT_NOT_WRITABLE 4
!define EXIT_FILE_HELD 5

; Default timeout for a running program in seconds; /WAIT= overrides it. The program may be in the middle of a
; receipt, and ends only after it. In interactive mode setup soon asks again.
!define SILENT_WAIT 60
!define SHORT_WAIT 10

; An access right of OpenProcess.
!define PROCESS_QUERY_LIMITED_INFORMATION 0x1000

Name "Orvenza"
OutFile "${OUTPUT}"
!ifdef SIGN
  !uninstfinalize '${SIGN} "%1"'
!endif
RequestExecutionLevel user
; The program keeps settings and logs in its folder, which must therefore be the user's own.
InstallDir "$LOCALAPPDATA\Programs\Orvenza"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "Orvenza ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
!macro VersionTexts language description
  VIAddVersionKey /LANG=${language} "ProductName" "Orvenza"
  VIAddVersionKey /LANG=${language} "ProductVersion" "${VERSION}"
  VIAddVersionKey /LANG=${language} "FileDescription" "${description}"
  VIAddVersionKey /LANG=${language} "FileVersion" "${VERSION}"
  VIAddVersionKey /LANG=${language} "LegalCopyright" "Copyright (c) 2026 The Orvenza authors"
!macroend

Var Wait

!define MUI_ICON "..\src\app\windows\orvenza.ico"
!define MUI_UNICON "..\src\app\windows\orvenza.ico"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveDirectory
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
; The first language is the default when the system's is neither.
!insertmacro MUI_LANGUAGE "Italian"
!insertmacro MUI_LANGUAGE "English"
!insertmacro SetupTexts
!insertmacro VersionTexts ${LANG_ITALIAN} "Installazione di Orvenza"
!insertmacro VersionTexts ${LANG_ENGLISH} "Orvenza setup"

; Shared by the installer and the uninstaller, whose functions have names beginning with `un`.
!macro SharedFunctions un

; Reads /LANG= and /WAIT=.
Function ${un}ReadCommonOptions
  ${GetParameters} $0
  ${If} ${Silent}
    StrCpy $Wait ${SILENT_WAIT}
  ${Else}
    StrCpy $Wait ${SHORT_WAIT}
  ${EndIf}
  ${GetOptions} $0 "/WAIT=" $1
  ${IfNot} ${Errors}
    StrCpy $Wait $1
  ${EndIf}
  ${GetOptions} $0 "/LANG=" $1
  ${IfNot} ${Errors}
    ${If} $1 == "it"
      StrCpy $LANGUAGE ${LANG_ITALIAN}
    ${ElseIf} $1 == "en"
      StrCpy $LANGUAGE ${LANG_ENGLISH}
    ${EndIf}
  ${EndIf}
FunctionEnd

; Pushes 1 if the program in this folder is running: its file cannot be opened for writing then.
Function ${un}IsRunning
  Push $0
  StrCpy $0 0
  ${If} ${FileExists} "$INSTDIR\Orvenza.exe"
    SetFileAttributes "$INSTDIR\Orvenza.exe" NORMAL
    ClearErrors
    FileOpen $0 "$INSTDIR\Orvenza.exe" a
    ${If} ${Errors}
      StrCpy $0 1
    ${Else}
      FileClose $0
      StrCpy $0 0
    ${EndIf}
  ${EndIf}
  Exch $0
FunctionEnd

; Asks the program to end through its command file, and waits for the end. Pushes 1 if it is still running.
Function ${un}QuitAndWait
  Push $0
  Push $1
  Push $2
  FileOpen $0 "$INSTDIR\command.txt" w
  FileWrite $0 "QUIT$\r$\n"
  FileClose $0
  IntOp $1 $Wait * 4
  ${Do}
    Call ${un}IsRunning
    Pop $2
    ${If} $2 = 0
    ${OrIf} $1 <= 0
      ${Break}
    ${EndIf}
    Sleep 250
    IntOp $1 $1 - 1
  ${Loop}
  ; If left there, it would end the next start at once.
  Delete "$INSTDIR\command.txt"
  StrCpy $0 $2
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; Closes the hidden main form of each program running from this folder. The program then ends like at the end of the
; Windows session, whatever it is waiting for.
Function ${un}CloseProgram
  Push $0
  Push $1
  Push $2
  Push $3
  Push $4
  GetFullPathName /SHORT $1 "$INSTDIR\Orvenza.exe"
  StrCpy $0 0
  ${Do}
    FindWindow $0 "Orv_Main" "" 0 $0
    ${If} $0 = 0
      ${Break}
    ${EndIf}
    System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r2)'
    System::Call 'kernel32::OpenProcess(i ${PROCESS_QUERY_LIMITED_INFORMATION}, i 0, i r2) p .r2'
    System::Call 'kernel32::QueryFullProcessImageNameW(p r2, i 0, w .r3, *i ${NSIS_MAX_STRLEN}) i .r4'
    System::Call 'kernel32::CloseHandle(p r2)'
    GetFullPathName /SHORT $3 $3
    ${If} $4 <> 0
    ${AndIf} $3 == $1
      System::Call 'user32::PostMessageW(p r0, i ${WM_CLOSE}, p 0, p 0)'
    ${EndIf}
  ${Loop}
  Pop $4
  Pop $3
  Pop $2
  Pop $1
  Pop $0
FunctionEnd

; Ends the setup program; the connector keeps running.
Function ${un}LeaveRunning
  SetErrorLevel ${EXIT_RUNNING}
  Quit
FunctionEnd

; Returns if the program is not running, otherwise ends the setup program. A program with an open dialog does not
; read its command file: its main form is closed then, if the user agrees.
Function ${un}EndProgram
  Call ${un}IsRunning
  Pop $0
  ${If} $0 = 0
    Return
  ${EndIf}
  ${If} ${Cmd} 'MessageBox MB_OKCANCEL|MB_ICONEXCLAMATION "$(TEXT_RUNNING)" /SD IDOK IDCANCEL'
    Call ${un}LeaveRunning
  ${EndIf}
  ${Do}
    Call ${un}QuitAndWait
    Pop $0
    ${If} $0 = 0
      ${Break}
    ${EndIf}
    MessageBox MB_YESNOCANCEL|MB_DEFBUTTON2|MB_ICONEXCLAMATION "$(TEXT_STILL_RUNNING)" /SD IDCANCEL \
      IDYES close IDNO wait
    Call ${un}LeaveRunning
   close:
    Call ${un}CloseProgram
   wait:
  ${Loop}
FunctionEnd

; Removes the start with Windows, unless it belongs to another folder.
Function ${un}RemoveAutostart
  Push $0
  ReadRegStr $0 HKCU "${RUN_KEY}" "Orvenza"
  ${If} $0 == '"$INSTDIR\Orvenza.exe"'
    DeleteRegValue HKCU "${RUN_KEY}" "Orvenza"
  ${EndIf}
  Pop $0
FunctionEnd

!macroend
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."
!insertmacro StartMenuFunctions

; ---- Installing ----

Section "-Program" SectionProgram
  Call IsWritable
  Pop $0
  ${If} $0 = 0
    MessageBox MB_OK|MB_ICONSTOP "$(TEXT_NOT_WRITABLE)" /SD IDOK
    SetErrorLevel ${EXIT_NOT_WRITABLE}
    Quit
  ${EndIf}
  Call EndProgram

  SetOutPath "$INSTDIR"
  File "${STAGE}\orvenza-lab.exe"  ; the only file that may be in use, so it comes before anything is replaced
  File "${STAGE}\Orvenza.exe"
  SetOverwrite off  ; the shop may have its own sound
  File "${STAGE}\ding.wav"
  SetOverwrite try  ; a manual that is open in a reader stays unchanged
  File "${STAGE}\assistenza.cmd"
  File "${STAGE}\controllo.cmd"
  File "${STAGE}\LICENSE.txt"
  !insertmacro RemoveFormerManuals
  !insertmacro RemoveManuals
  !insertmacro InstallManuals
  SetOverwrite on
  SetOutPath "$INSTDIR"  ; the working folder of the entries in the Start menu
  ClearErrors
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    Abort
  ${EndIf}

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Orvenza"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Orvenza.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Orvenza"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "Language" $LANGUAGE
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  SectionGetSize ${SectionProgram} $0
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "$(TEXT_START_MENU)" SectionStartMenu
  Call FillStartMenu
SectionEnd

Section /o "$(TEXT_AUTOSTART)" SectionAutostart
  WriteRegStr HKCU "${RUN_KEY}" "Orvenza" '"$INSTDIR\Orvenza.exe"'
SectionEnd

Section "-Not chosen"
  ${IfNot} ${SectionIsSelected} ${SectionStartMenu}
    Call RemoveStartMenu
  ${EndIf}
  ${IfNot} ${SectionIsSelected} ${SectionAutostart}
    Call RemoveAutostart
  ${EndIf}
SectionEnd

Section "$(TEXT_RUN)" SectionRun
  SetOutPath "$INSTDIR"
  Exec '"$INSTDIR\Orvenza.exe"'
SectionEnd

; Selects or deselects a section if the option is given; any value but 0 selects it.
!macro SectionOption option section
  ${GetOptions} $0 "${option}" $1
  ${IfNot} ${Errors}
    ${If} $1 == 0
      !insertmacro UnselectSection ${section}
    ${Else}
      !insertmacro SelectSection ${section}
    ${EndIf}
  ${EndIf}
!macroend

Function .onInit
  Call ReadCommonOptions
  ; The choices of an earlier installation apply, unless the command line overrides them.
  ReadRegStr $1 HKCU "${RUN_KEY}" "Orvenza"
  ${If} $1 == '"$INSTDIR\Orvenza.exe"'
    !insertmacro SelectSection ${SectionAutostart}
  ${EndIf}
  ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $1 != ""
  ${AndIfNot} ${FileExists} "${MENU}\Orvenza.lnk"
  ${AndIfNot} ${FileExists} "${FORMER_SHORTCUT}"
    !insertmacro UnselectSection ${SectionStartMenu}
  ${EndIf}
  ${If} ${Silent}
    !insertmacro UnselectSection ${SectionRun}
  ${EndIf}
  ${GetParameters} $0
  !insertmacro SectionOption "/AUTOSTART=" ${SectionAutostart}
  !insertmacro SectionOption "/STARTMENU=" ${SectionStartMenu}
  !insertmacro SectionOption "/RUN=" ${SectionRun}
FunctionEnd

; A file could not be replaced.
Function .onInstFailed
  SetErrorLevel ${EXIT_FILE_HELD}
FunctionEnd

; Sets $0 to 0 if the existing folder is below this one, where only an administrator could write later.
!macro RefuseBelow folder
  Push $1
  Push $2
  Push $3
  GetFullPathName /SHORT $1 "${folder}"
  GetFullPathName /SHORT $2 "$INSTDIR"
  StrLen $3 "$1\"
  StrCpy $2 "$2\" $3
  ${If} $2 == "$1\"
    StrCpy $0 0
  ${EndIf}
  Pop $3
  Pop $2
  Pop $1
!macroend

; Pushes 1 if the folder can be created, and is writable for a user without special rights, too.
Function IsWritable
  Push $0
  SetDetailsPrint none
  ClearErrors
  CreateDirectory "$INSTDIR"
  FileOpen $0 "$INSTDIR\setup.tmp" w
  ${If} ${Errors}
    StrCpy $0 0
  ${Else}
    FileClose $0
    Delete "$INSTDIR\setup.tmp"
    StrCpy $0 1
  ${EndIf}
  !insertmacro RefuseBelow "$PROGRAMFILES32"
  !insertmacro RefuseBelow "$PROGRAMFILES64"
  RMDir "$INSTDIR"  ; only if it is empty
  SetDetailsPrint lastused
  Exch $0
FunctionEnd

Function LeaveDirectory
  Call IsWritable
  Pop $0
  ${If} $0 = 0
    MessageBox MB_OK|MB_ICONSTOP "$(TEXT_NOT_WRITABLE)"
    Abort
  ${EndIf}
FunctionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionStartMenu} "$(TEXT_START_MENU_MORE)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionAutostart} "$(TEXT_AUTOSTART_MORE)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionRun} "$(TEXT_RUN_MORE)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; ---- Removing ----

; Pushes 1 if the sound in the folder is byte for byte the one that setup installs, and not the shop's own.
Function un.IsOwnSound
  Push $0
  Push $1
  Push $2
  Push $3
  InitPluginsDir
  File "/oname=$PLUGINSDIR\ding.wav" "${STAGE}\ding.wav"
  FileOpen $0 "$PLUGINSDIR\ding.wav" r
  FileOpen $1 "$INSTDIR\ding.wav" r
  ${Do}
    FileReadByte $0 $2  ; empty at the end
    FileReadByte $1 $3
    ${If} $2 != $3
    ${OrIf} $2 == ""
      ${Break}
    ${EndIf}
  ${Loop}
  FileClose $0
  FileClose $1
  ClearErrors
  StrCpy $0 0
  ${If} $2 == $3
    StrCpy $0 1
  ${EndIf}
  Pop $3
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

Section "un.$(TEXT_PROGRAM)" SectionRemoveProgram
  SectionIn RO
  Call un.EndProgram
  Delete "$INSTDIR\Orvenza.exe"
  Delete "$INSTDIR\orvenza-lab.exe"
  Delete "$INSTDIR\assistenza.cmd"
  Delete "$INSTDIR\controllo.cmd"
  Delete "$INSTDIR\LICENSE.txt"
  Call un.IsOwnSound
  Pop $0
  ${If} $0 = 1
    Delete "$INSTDIR\ding.wav"
  ${EndIf}
  !insertmacro RemoveFormerManuals
  !insertmacro RemoveManuals
  Delete "$INSTDIR\uninstall.exe"
  Call un.RemoveAutostart
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    Call un.RemoveStartMenu
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ${EndIf}
SectionEnd

Section /o "un.$(TEXT_DATA)" SectionRemoveData
  Delete "$INSTDIR\Orvenza.ini"
  Delete "$INSTDIR\ErrDesc.ini"
  Delete "$INSTDIR\Remembered.ini"
  Delete "$INSTDIR\Evidence.ini"
  Delete "$INSTDIR\*.orv~"  ; left by a power cut
  Delete "$INSTDIR\ding.wav"
  Delete "$INSTDIR\Log.txt"
  Delete "$INSTDIR\Log.Bak"
  Delete "$INSTDIR\Err.txt"
  Delete "$INSTDIR\Err.Bak"
  Delete "$INSTDIR\error.txt"
  Delete "$INSTDIR\error.Bak"
  RMDir /r "$INSTDIR\data"
  RMDir /r "$INSTDIR\storico"
  FindFirst $0 $1 "$INSTDIR\storico_*"
  ${DoWhile} $1 != ""
    RMDir /r "$INSTDIR\$1"
    FindNext $0 $1
  ${Loop}
  FindClose $0
SectionEnd

Section "-un.Folder"
  SetOutPath "$TEMP"  ; a folder in use cannot be removed
  RMDir "$INSTDIR"  ; only if it is empty
SectionEnd

Function un.onInit
  ReadRegDWORD $0 HKCU "${UNINSTALL_KEY}" "Language"
  ${If} $0 <> 0
    StrCpy $LANGUAGE $0
  ${EndIf}
  Call un.ReadCommonOptions
  ${GetParameters} $0
  ${GetOptions} $0 "/PURGE" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${SectionRemoveData}
  ${EndIf}
FunctionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionRemoveProgram} "$(TEXT_PROGRAM_MORE)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionRemoveData} "$(TEXT_DATA_MORE)"
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END
