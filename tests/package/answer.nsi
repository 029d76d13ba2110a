; A program for installed_test.sh that presses a button of a dialog like a person:
;   answer.exe /BUTTON=NUMBER /TEXT=TEXT
; It waits for a dialog with a control whose text begins with TEXT, presses the button NUMBER, and waits until that
; text is gone. It exits with 1 if no such dialog appears within a minute.
;   OUTPUT  the program to write

Unicode true
SilentInstall silent
RequestExecutionLevel user
Name "answer"
OutFile "${OUTPUT}"

!include FileFunc.nsh
!include LogicLib.nsh
!include WinMessages.nsh

; Sets $5 to 1 if the text of a control in the dialog $0 begins with $1.
Function IsWanted
  StrCpy $5 0
  StrLen $6 $1
  StrCpy $2 0
  ${Do}
    FindWindow $2 "" "" $0 $2
    ${If} $2 = 0
      ${Break}
    ${EndIf}
    System::Call 'user32::SendMessageW(p r2, i ${WM_GETTEXT}, p ${NSIS_MAX_STRLEN}, w .r3) i .r8'
    StrCpy $3 $3 $6
    ${If} $8 >= $6  ; a control without text leaves $3 undefined
    ${AndIf} $3 == $1
      StrCpy $5 1
      ${Break}
    ${EndIf}
  ${Loop}
FunctionEnd

Section
  ${GetParameters} $0
  ${GetOptions} $0 "/TEXT=" $1  ; unchanged, without quotes
  ${GetOptions} $0 "/BUTTON=" $4
  StrCpy $7 600
  ${DoWhile} $7 > 0
    StrCpy $0 0
    ${Do}
      FindWindow $0 "#32770" "" 0 $0
      ${If} $0 = 0
        ${Break}
      ${EndIf}
      Call IsWanted
      ${If} $5 = 1
        System::Call 'user32::PostMessageW(p r0, i ${WM_COMMAND}, p r4, p 0)'
        ${Do}
          Sleep 50
          Call IsWanted
        ${LoopWhile} $5 = 1
        SetErrorLevel 0
        Quit
      ${EndIf}
    ${Loop}
    Sleep 100
    IntOp $7 $7 - 1
  ${Loop}
  SetErrorLevel 1
SectionEnd
