#pragma once

#include <string>
#include <string_view>

#include "lab/table/fault_case.h"

namespace orvenza {

// The words of the page of the failure table.

/// What an end means, in one sentence.
std::string MeaningOf(Verdict verdict);

inline constexpr std::string_view kTablePageIntroduction =
    R"(<p>What becomes of a ticket for every fault at every command, through every answer of the operator.
<span class="screen"><a href="#words">The terms</a> are explained at the end of the page.</span></p>
<noscript><p>Without scripts this page has no filters and shows all rows.</p></noscript>
)";

inline constexpr std::string_view kTablePageWords = R"(<dl>
<dt>Way, hour</dt><dd>The ways of working and the hours for which the row holds. “Contract” is the way of working without
[Safety] AskInDoubt=1. At 23:59:50 a wait for a reply begins less than 15 seconds before midnight. With AskInDoubt, ERR08 was
played for all error codes that are treated like it.</dd>
<dt>What goes wrong</dt><dd>It strikes the command once, or “each time” the command is sent from then on.</dd>
<dt>Answers</dt><dd>The operator’s answers to dialogs with a choice, in their order. “Ok” is not listed.</dd>
<dt>Stampato, Ristampare, Abortire</dt><dd>“Scontrino stampato, continuare”, “Ristampare lo scontrino ( annullare
automaticamente )”, “Abortire la stampa dello scontrino”; “closed”: the dialog with these three was closed without a choice.</dd>
<dt>Sì, No</dt><dd>Whether to close automatically a receipt that cannot be voided.</dd>
<dt>Chiuso: Sì, No</dt><dd>Whether a receipt that no ticket has opened has been closed at the register. “No” voids it.</dd>
<dt>Esci</dt><dd>The program was ended, from the icon’s menu or when the port could not be opened.</dd>
<dt>none, any</dt><dd>None of these answers; every answer leads to this end.</dd>
<dt>The customer gets</dt><dd>What is on the paper. “Whole” is everything that the ticket prints. “In part” is a closed slip that
lacks some of it, has more than it, or was paid in another way. “Keyed in by hand” is a receipt that somebody opened at the register
itself.</dd>
<dt>File</dt><dd>The final place of the ticket’s file: the historic folder, the abort folder, or waiting in the in-process
folder.</dd>
<dt>Error log</dt><dd>Lines in brackets appear in some cases only. Order and number are not shown, and variable parts are left
out.</dd>
</dl>
)";

}  // namespace orvenza
