#pragma once

#include "device/reply.h"

namespace orvenza {

/// What follows from a reply, where the register leaves it open. Every such decision stands here, so that it
/// can be compared with the others and changed in one place.
///
///                 silence  refused  paper out  link error  garbled  done
///     LineIsDone     -        -         -         2 only       x      x
///     Accepted       x        -         -           -          x      x
///     Answered       -        -         -           -          x      x
///     NotDone        -        x         -           -          -      -
namespace reply_policy {

/// Whether a ticket's line counts as carried out. Link error 2 does, deliberately.
[[nodiscard]] bool LineIsDone(const Reply& reply);

/// Whether a void or a restart of printing counts as carried out. Silence does, deliberately.
[[nodiscard]] bool Accepted(const Reply& reply);

/// Whether anything but an error came.
[[nodiscard]] bool Answered(const Reply& reply);

/// Whether the register has certainly not carried the command out.
[[nodiscard]] bool NotDone(const Reply& reply);

}  // namespace reply_policy
}  // namespace orvenza
