#pragma once

#include "app/trace/transcript.h"
#include "lab/rehearsal/rehearsal_outcome.h"
#include "lab/rehearsal/scenario.h"

namespace orvenza {

/// Runs the whole connector from start to end: in C:\Orvenza on a disk in memory, on the virtual clock, with
/// the simulated register and the operator's answers. The same scenario gives the same outcome on every
/// system. `sink` receives each line of the transcript once it is complete.
RehearsalOutcome Rehearse(const Scenario& scenario, Transcript::Sink sink = {});

}  // namespace orvenza
