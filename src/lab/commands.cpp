#include "lab/commands.h"

#include "lab/bundle/bundle_command.h"
#include "lab/check/check_command.h"
#include "lab/doctor/doctor_command.h"
#include "lab/handover/hand_over_command.h"
#include "lab/preview/preview_command.h"
#include "lab/rehearsal/rehearse_command.h"
#include "lab/replay/replay_command.h"
#include "lab/table/table_command.h"

namespace orvenza {

std::vector<Command> Commands() {
  return {
      BundleCommand(),  CheckCommand(),    DoctorCommand(), HandOverCommand(),
      PreviewCommand(), RehearseCommand(), ReplayCommand(), TableCommand(),
  };
}

}  // namespace orvenza
