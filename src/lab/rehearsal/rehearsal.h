#pragma once

#include "lab/rehearsal/rehearsal_outcome.h"
#include "lab/rehearsal/scenario.h"
#include "lab/rehearsal/transcript.h"

namespace orvenza {

/// Runs the whole connector from its entry to its end: in C:\Orvenza on a disk in memory, on the virtual
/// clock, against the simulated register and with the operator's answers. The same scenario gives the same
/// outcome on every system. `sink` is handed each line of the transcript as soon as it is complete.
RehearsalOutcome Rehearse(const Scenario& scenario, Transcript::Sink sink = {});

}  // namespace orvenza
