#pragma once

namespace orvenza {

/// The connector's own texts that are missing from the catalogue, whose numbers are fixed. Like those of the
/// catalogue they are Italian, in UTF-8, and defined nowhere else. A text that ends in " :" is followed by a
/// blank and a value. Labels of procedures and texts printed by the simulated register do not belong here.
namespace own_text {

// The error log.
inline constexpr const char* kHistoricOff =
    "Archivio storico disattivato, la cartella contiene gli scontrini da stampare :";
inline constexpr const char* kOutcomesOff = "Esiti disattivati, cartella non ammessa :";
inline constexpr const char* kPrintedNotArchived = "Scontrino stampato ma non archiviato :";
inline constexpr const char* kReportWaits = "Chiusura o rapporto in attesa :";
inline constexpr const char* kFirstComes = "prima va stampato lo scontrino";
inline constexpr const char* kTraceRefused = "Traccia disattivata, file non ammesso :";
inline constexpr const char* kTraceTooLate = "Traccia disattivata, file INI illeggibile all'avvio";

inline constexpr const char* kValueIgnored = "Valore non valido nel file INI, ignorato :";

inline constexpr const char* kNoEvidence = "Stato degli scontrini interrotti sconosciuto.";
inline constexpr const char* kFailureRepeated = "Errore ripetuto";  ///< Followed by the count and the line.
inline constexpr const char* kFailureEnded = "Errore cessato";      ///< The same.
inline constexpr const char* kTimes = "volte";

// The activity log.
inline constexpr const char* kArchivedLate = "Scontrino già stampato, archiviato ora :";

// Dialogs, with their lines in the error log.
inline constexpr const char* kForeignReceipt = "Alla cassa risulta aperto un altro scontrino.";
inline constexpr const char* kForeignClosed = "È stato chiuso alla cassa ? ( No : viene annullato )";
inline constexpr const char* kCheckPaper = "Controllare la carta : è stato stampato tutto ?";
inline constexpr const char* kInterrupted = "La stampa è stata interrotta.";
inline constexpr const char* kReceiptOf = "Scontrino delle";
inline constexpr const char* kReportOf = "Chiusura o rapporto delle";
inline constexpr const char* kTotal = "totale";
inline constexpr const char* kSettingsUnreadable = "Impossibile leggere il file INI :";
inline constexpr const char* kMissingText = "Miss Messagge !!!";  ///< Deliberately spelled like this.

/// Shown by Windows while the session's end waits for the program.
inline constexpr const char* kCompletesReceipt = "Orvenza completa lo scontrino in corso.";

// The window of the simulated register. In a caption "&" precedes the letter that chooses it.
inline constexpr const char* kRollLabel = "&Rotolo";
inline constexpr const char* kSaveRollButton = "&Salva rotolo";
inline constexpr const char* kSwitchesLabel = "Interruttori";
inline constexpr const char* kFaultsLabel = "&Guasti";
inline constexpr const char* kNextCommandButton = "&Prossimo comando";
inline constexpr const char* kUntilOffButton = "&Finché attivo";
inline constexpr const char* kSwitchOffButton = "&Disattiva";
inline constexpr const char* kCountersLabel = "Contatori";
inline constexpr const char* kCopyScenarioButton = "&Copia come scenario";
inline constexpr const char* kNoFaultActive = "Nessun guasto attivo";
inline constexpr const char* kFaultChosen = "Attivo:";      ///< The fault follows, and when it strikes.
inline constexpr const char* kFaultEnded = "Disattivato:";  ///< The fault follows.
inline constexpr const char* kScenarioCopied = "Scenario copiato negli appunti.";
inline constexpr const char* kNotCopied = "Gli appunti sono occupati da un altro programma. Riprovare.";

// The terminal: the program, its menu.
inline constexpr const char* kRuns = "in funzione";
inline constexpr const char* kTicketsIn = "scontrini in";
inline constexpr const char* kSeparatorIs = "separatore";
inline constexpr const char* kCharacter = "carattere";
inline constexpr const char* kMenuTip = "Menu: m + Invio";
inline constexpr const char* kEnded = "terminato.";
inline constexpr const char* kMenu = "Menu";
inline constexpr const char* kMenuClosed = "Menu chiuso.";
inline constexpr const char* kMenuTooEarly = "Il menu si apre quando il programma è in funzione.";
inline constexpr const char* kNothingAsked = "Nessuna domanda in attesa.";

// The terminal: icons, and possible input.
inline constexpr const char* kStop = "STOP";
inline constexpr const char* kQuestion = "DOMANDA";
inline constexpr const char* kExclamation = "ATTENZIONE";
inline constexpr const char* kInformation = "INFORMAZIONE";
inline constexpr const char* kNumberAndEnter = "Numero + Invio";
inline constexpr const char* kNumberChanges = "Numero + Invio: cambia";
inline constexpr const char* kEnterAlone = "solo Invio:";
inline constexpr const char* kXCloses = "x: chiudi";
inline constexpr const char* kXClosesUnsaved = "x: chiudi senza salvare";
inline constexpr const char* kMOpensMenu = "m: menu";
inline constexpr const char* kClosesMenu = "chiudi il menu";
inline constexpr const char* kAnswer = "Risposta:";
inline constexpr const char* kWrongAnswer = "Risposta non valida.";
inline constexpr const char* kClosedUnanswered = "Chiuso senza risposta.";

// The panel of the simulated register.
inline constexpr const char* kReceiptPaper = "Carta scontrino";
inline constexpr const char* kJournalPaper = "Carta giornale";
inline constexpr const char* kPower = "Alimentazione";
inline constexpr const char* kCable = "Cavo";
inline constexpr const char* kKey = "Chiave";
inline constexpr const char* kSilence = "Nessuna risposta";
inline constexpr const char* kReplyLost = "Risposta persa";
inline constexpr const char* kReplyLate = "Risposta in ritardo di 5 s";
inline constexpr const char* kReplyGarbled = "Risposta illeggibile";
inline constexpr const char* kLinkError = "Errore di linea";  ///< Followed by its number.
inline constexpr const char* kError = "Errore";               ///< Followed by its number and text.
inline constexpr const char* kDailyTotal = "Totale del giorno:";
inline constexpr const char* kReceipts = "Scontrini:";
inline constexpr const char* kClosures = "Chiusure fiscali:";
inline constexpr const char* kOpen = "Aperto:";
inline constexpr const char* kNothingOpen = "niente";
inline constexpr const char* kReceiptOpen = "scontrino,";  ///< Followed by its amount.
inline constexpr const char* kDocumentOpen = "documento non fiscale";
inline constexpr const char* kLinesOnRoll = "Righe sul rotolo:";
inline constexpr const char* kOf = "di";
inline constexpr const char* kAwaitsRestart = "la cassa attende il riavvio";  ///< Preceded by the paper.
inline constexpr const char* kVoided = "(annullato)";
inline constexpr const char* kScenarioHead =
    "Dal registratore simulato. Aggiungere gli scontrini (at 2s ticket 0001.txt) e le risposte (answer Ok).";
inline constexpr const char* kStepsMissing = "Mancano i primi interventi: sono troppi.";
inline constexpr const char* kFromScript = "Dallo script:";
inline constexpr const char* kRollEmpty = "Il rotolo è vuoto, non c'è niente da salvare.";
inline constexpr const char* kRollSaved = "Rotolo salvato :";
inline constexpr const char* kRollNotSaved = "Rotolo non salvato :";

// The same panel on the terminal.
inline constexpr const char* kPanel = "Registratore simulato";
inline constexpr const char* kPanelTip = "Registratore: r + Invio";
inline constexpr const char* kROpensPanel = "r: registratore";
inline constexpr const char* kRegOpensPanel = "reg: registratore";
inline constexpr const char* kPanelClosed = "Registratore chiuso.";
inline constexpr const char* kNothingPrinted = "(nessuna riga stampata)";
inline constexpr const char* kSwitchOn = "presente";
inline constexpr const char* kSwitchOff = "ASSENTE";
inline constexpr const char* kFault = "Guasto:";
inline constexpr const char* kNoFault = "nessuno";
inline constexpr const char* kFaultStruck = "Guasto avvenuto:";
inline constexpr const char* kNextCommand = "al prossimo comando";
inline constexpr const char* kEveryCommand = "a ogni comando";
inline constexpr const char* kAlways = "sempre";
inline constexpr const char* kFaults = "Guasti";
inline constexpr const char* kPanelPrompt =
    "Numero: interruttore (g: guasti; s: salva; c: scenario; solo Invio: chiudi)";
inline constexpr const char* kFaultHint =
    "Numero: al prossimo comando. Numero e sempre, per esempio 6 sempre: a ogni comando. 0: nessun guasto.";
inline constexpr const char* kAfterAction = "(r: mostra il registratore; solo Invio: chiudi)";

}  // namespace own_text

}  // namespace orvenza
