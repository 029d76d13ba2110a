; The setup program's own texts. The Italian ones say "tu", like NSIS's own pages.

!macro SetupText name italian english
  LangString ${name} ${LANG_ITALIAN} "${italian}"
  LangString ${name} ${LANG_ENGLISH} "${english}"
!macroend

!macro SetupTexts
  !insertmacro SetupText TEXT_MANUAL "${MANUAL_ITALIAN}" "${MANUAL_ENGLISH}"
  !insertmacro SetupText TEXT_CHECK "${CHECK_ITALIAN}" "${CHECK_ENGLISH}"
  !insertmacro SetupText TEXT_SUPPORT "${SUPPORT_ITALIAN}" "${SUPPORT_ENGLISH}"
  !insertmacro SetupText TEXT_START_MENU "Cartella nel menu Start" "Folder in the Start menu"
  !insertmacro SetupText TEXT_START_MENU_MORE \
    "Orvenza, il manuale, il controllo dell'impianto e i dati per l'assistenza nel menu Start." \
    "Orvenza, the manual, the check of the installation and the data for support in the Start menu."
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
    "Il programma, i manuali, la cartella nel menu Start e l'avvio con Windows." \
    "The program, its manuals, its folder in the Start menu and its start with Windows."
  !insertmacro SetupText TEXT_DATA "Impostazioni, file di log e scontrini" "Settings, logs and tickets"
  !insertmacro SetupText TEXT_DATA_MORE \
    "Elimina per sempre anche le impostazioni, i file di log, il suono e tutti gli scontrini nella cartella del \
programma." \
    "Removes for ever the settings, the logs, the sound and all tickets in the program's folder as well."

  !insertmacro SetupText TEXT_RUNNING \
    "Orvenza è in esecuzione in questa cartella.$\r$\n$\r$\nPremi OK per chiuderlo e continuare. Se sta \
stampando uno scontrino, si chiude subito dopo." \
    "Orvenza is running in this folder.$\r$\n$\r$\nPress OK to end it and to go on. If it is printing a receipt, \
it ends right after it."
  !insertmacro SetupText TEXT_STILL_RUNNING \
    "Orvenza è ancora in esecuzione: un suo messaggio aspetta una risposta, oppure sta stampando.$\r$\n$\r$\n\
Vuoi chiuderlo adesso? Uno scontrino stampato a metà viene annullato, e ristampato al prossimo avvio; se era già al \
pagamento, viene messo da parte nella cartella abort.$\r$\n$\r$\nSì: chiude Orvenza adesso.$\r$\n\
No: aspetta ancora, così puoi prima rispondere al messaggio.$\r$\nAnnulla: lascia Orvenza in esecuzione e non cambia \
nulla." \
    "Orvenza is still running: one of its messages waits for an answer, or it is printing.$\r$\n$\r$\nEnd it now? \
A receipt that is half printed is voided, and printed again at the next start; if it had come to the payment, it is put \
aside in the folder abort.$\r$\n$\r$\nYes: end it now.$\r$\nNo: wait longer, so that the message can \
be answered first.$\r$\nCancel: leave it running and change nothing."
  !insertmacro SetupText TEXT_NOT_WRITABLE \
    "Orvenza tiene impostazioni e file di log accanto al programma: serve una cartella in cui possa scrivere chi lo \
usa. Questa non va bene:$\r$\n$\r$\n$INSTDIR$\r$\n$\r$\nScegli un'altra cartella, non sotto Programmi." \
    "Orvenza keeps settings and logs beside the program, so its user must be able to write to the folder. This one \
will not do:$\r$\n$\r$\n$INSTDIR$\r$\n$\r$\nChoose another folder, not one below Program Files."
!macroend
