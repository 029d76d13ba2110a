; The setup program's own texts.

!macro SetupText name italian english
  LangString ${name} ${LANG_ITALIAN} "${italian}"
  LangString ${name} ${LANG_ENGLISH} "${english}"
!macroend

!macro SetupTexts
  !insertmacro SetupText TEXT_START_MENU "Voce nel menu Start" "Entry in the Start menu"
  !insertmacro SetupText TEXT_START_MENU_MORE \
    "Orvenza si avvia anche dal menu Start." \
    "Orvenza can be started from the Start menu too."
  !insertmacro SetupText TEXT_AUTOSTART "Avvio con Windows" "Start with Windows"
  !insertmacro SetupText TEXT_AUTOSTART_MORE \
    "Orvenza si avvia da solo quando questo utente entra in Windows." \
    "Orvenza starts by itself when this user signs in."
  !insertmacro SetupText TEXT_RUN "Avvia Orvenza al termine" "Start Orvenza when done"
  !insertmacro SetupText TEXT_RUN_MORE \
    "Al primo avvio Orvenza chiede a quale porta è collegata la cassa." \
    "At its first start Orvenza asks which port the register is connected to."

  !insertmacro SetupText TEXT_PROGRAM "Il programma" "The program"
  !insertmacro SetupText TEXT_PROGRAM_MORE \
    "Il programma, la voce nel menu Start e l'avvio con Windows." \
    "The program, its entry in the Start menu and its start with Windows."
  !insertmacro SetupText TEXT_DATA "Impostazioni, registri e scontrini" "Settings, logs and tickets"
  !insertmacro SetupText TEXT_DATA_MORE \
    "Elimina per sempre anche le impostazioni, i registri e tutti gli scontrini nella cartella del programma." \
    "Removes for ever the settings, the logs and all tickets in the program's folder as well."

  !insertmacro SetupText TEXT_RUNNING \
    "Orvenza è in esecuzione in questa cartella.$\r$\n$\r$\nPremere OK per chiuderlo e continuare. Se sta \
stampando uno scontrino si chiude subito dopo; se alla cassa aspetta una risposta, prima occorre darla." \
    "Orvenza is running in this folder.$\r$\n$\r$\nPress OK to end it and to go on. If it is printing a receipt \
it ends right after it; if it waits for an answer at the till, that must be given first."
  !insertmacro SetupText TEXT_NOT_WRITABLE \
    "Orvenza tiene impostazioni e registri accanto al programma, ma in questa cartella non si può scrivere:\
$\r$\n$\r$\n$INSTDIR$\r$\n$\r$\nScegliere un'altra cartella." \
    "Orvenza keeps settings and logs beside the program, but this folder cannot be written to:\
$\r$\n$\r$\n$INSTDIR$\r$\n$\r$\nChoose another folder."
!macroend
